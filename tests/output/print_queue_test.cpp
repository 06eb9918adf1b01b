// Printing through the system's own print service: a private one on the loopback interface with a queue that hands the
// page on as it is. The page that arrives is examined from outside, with the tools of another PDF library.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <optional>

#include "controls/list_ex/list_ex.h"
#include "output/frm_print.h"
#include "output/print_service.h"
#include "platform/error.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

constexpr int kPatience = 15000;           // ms, for what takes a second on an idle machine
constexpr double kCentimetre = 72 / 2.54;  // points
constexpr QSizeF kA4(595.276, 841.89);     // points

/// A queue of A4 sheets that takes PDF and passes it on unchanged.
constexpr const char* kPdfPrinter = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "KELUTEST.PPD"
*Manufacturer: "Kelu"
*Product: "(Test)"
*ModelName: "Kelu test printer"
*ShortNickName: "Kelu test printer"
*NickName: "Kelu test printer"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*cupsVersion: 2.4
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "0 0 595 842"
*ImageableArea Letter/Letter: "0 0 612 792"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
*DefaultFont: Courier
*Font Courier: Standard "(1.0)" Standard ROM
)ppd";

constexpr const char* kPolicy = R"conf(Listen 127.0.0.1:%1
Browsing Off
LogLevel info
DefaultAuthType None
WebInterface No
DefaultPaperSize A4
<Location />
  Order allow,deny
  Allow from 127.0.0.1
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order deny,allow
    Allow from 127.0.0.1
  </Limit>
</Policy>
)conf";

void WriteFile(const QString& path, const QString& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

QString Tool(const char* name) {
    const QString found = QStandardPaths::findExecutable(QLatin1String(name));
    return found.isEmpty() ? QStandardPaths::findExecutable(QLatin1String(name), {QStringLiteral("/usr/sbin")}) : found;
}

/// What the program says; nothing if it fails.
std::optional<QString> Ask(const char* tool, const QStringList& words) {
    QProcess process;
    process.start(Tool(tool), words);
    if (!process.waitForFinished(kPatience) || process.exitCode() != 0) return std::nullopt;
    return QString::fromUtf8(process.readAllStandardOutput());
}

quint16 FreePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

/// The device behind the queue: keeps the last page it was sent.
class PaperTray : public QTcpServer {
 public:
    PaperTray() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* printer = nextPendingConnection();
            page.clear();
            done = false;
            connect(printer, &QTcpSocket::readyRead, this, [this, printer] {
                page += printer->readAll();
                done = page.trimmed().endsWith("%%EOF");
                // The sender waits for that before it calls the job done.
                if (done) printer->disconnectFromHost();
            });
            connect(printer, &QTcpSocket::disconnected, printer, &QObject::deleteLater);
        });
    }
    QByteArray page;
    bool done = false;
};

/// The print service with its two queues, one for all tests of this file: starting it is most of the time they take.
class PrintServer {
 public:
    /// Why there is none; empty when it runs.
    QString missing;
    PaperTray tray;

    PrintServer() {
        for (const char* tool : {"cupsd", "lpadmin", "pdfinfo", "pdfimages", "qpdf"})
            if (Tool(tool).isEmpty()) missing = QStringLiteral("%1 is not installed").arg(QLatin1String(tool));
        if (missing.isEmpty()) Start();
    }
    ~PrintServer() {
        process_.terminate();
        if (!process_.waitForFinished(5000)) process_.kill(), process_.waitForFinished(5000);
    }

    /// What the service noted.
    QString Log() const {
        QFile log(folder_.filePath(QStringLiteral("error_log")));
        return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
    }

 private:
    void Start() {
        port_ = FreePort();
        const QString root = folder_.path();
        QDir(root).mkpath(QStringLiteral("server/ppd"));
        QString files =
            QStringLiteral(
                "ServerRoot %1/server\nErrorLog %1/error_log\nAccessLog %1/access_log\nPageLog %1/page_log\n"
                "Printcap %1/printcap\n")
                .arg(root);
        const std::pair<const char*, const char*> folders[] = {
            {"StateDir", "state"},    {"CacheDir", "cache"},         {"RequestRoot", "spool"},
            {"TempDir", "temporary"}, {"DocumentRoot", "documents"}, {"ServerKeychain", "keys"}};
        for (const auto& [key, name] : folders) {
            QDir(root).mkpath(QLatin1String(name));
            files += QStringLiteral("%1 %2/%3\n").arg(QLatin1String(key), root, QLatin1String(name));
        }
        // As root the service runs its filters under a user of its own, who must own the folders.
        QFile::setPermissions(
            root, QFile::permissions(root) | QFile::ReadOther | QFile::ExeOther | QFile::ReadGroup | QFile::ExeGroup);
        if (Ask("id", {QStringLiteral("-u")}).value_or(QString()).trimmed() == u"0") {
            files += QStringLiteral("User lp\nGroup lp\n");
            Ask("chown", {QStringLiteral("-R"), QStringLiteral("lp:lp"), root});
        }
        WriteFile(root + QStringLiteral("/cupsd.conf"), QString::fromLatin1(kPolicy).arg(port_));
        WriteFile(root + QStringLiteral("/files.conf"), files);
        WriteFile(root + QStringLiteral("/printer.ppd"), QString::fromLatin1(kPdfPrinter));
        process_.setProcessChannelMode(QProcess::MergedChannels);
        process_.start(Tool("cupsd"), {QStringLiteral("-f"), QStringLiteral("-c"), root + QStringLiteral("/cupsd.conf"),
                                       QStringLiteral("-s"), root + QStringLiteral("/files.conf")});
        const QString address = QStringLiteral("127.0.0.1:%1").arg(port_);
        qputenv("CUPS_SERVER", address.toLatin1());
        for (const char* queue : {"First", "Second"})
            if (!AddQueue(address, QLatin1String(queue))) {
                missing = QStringLiteral("the print service can't be started here: ") +
                          QString::fromUtf8(process_.readAll()) + Log();
                return;
            }
        Ask("lpadmin", {QStringLiteral("-h"), address, QStringLiteral("-d"), QStringLiteral("Second")});
    }

    /// Tries until the service is up.
    bool AddQueue(const QString& address, const QString& name) {
        const QStringList words{QStringLiteral("-h"),
                                address,
                                QStringLiteral("-p"),
                                name,
                                QStringLiteral("-E"),
                                QStringLiteral("-v"),
                                QStringLiteral("socket://127.0.0.1:%1/?snmp=false").arg(tray.serverPort()),
                                QStringLiteral("-P"),
                                folder_.filePath(QStringLiteral("printer.ppd"))};
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < kPatience; QTest::qWait(100)) {
            if (process_.state() == QProcess::NotRunning) return false;
            if (Ask("lpadmin", words)) return true;
        }
        return false;
    }

    // Not in a private folder of ours, which the service's own user could not enter.
    QTemporaryDir folder_{QStringLiteral("/tmp/kelu-print-XXXXXX")};
    QProcess process_;
    quint16 port_ = 0;
};

/// The picture's place on the page, in points from the upper left corner, as the page's drawing commands have it.
struct Sheet {
    QSizeF size;
    QRectF picture;
};

QTransform Matrix(const QStringList& n) {
    return QTransform(n[0].toDouble(), n[1].toDouble(), n[2].toDouble(), n[3].toDouble(), n[4].toDouble(),
                      n[5].toDouble());
}

/// Follows the transformations of the page's commands up to the one that draws the picture.
QRectF PlaceOfPicture(const QString& commands, double pageHeight) {
    QTransform now;
    QList<QTransform> kept;
    QStringList operands;
    for (const QString& word : commands.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts)) {
        if (word == u"q") kept.append(now);
        if (word == u"Q" && !kept.isEmpty()) now = kept.takeLast();
        if (word == u"cm" && operands.size() >= 6) now = Matrix(operands.last(6)) * now;
        if (word == u"Do") {
            const QRectF square = now.mapRect(QRectF(0, 0, 1, 1));
            return QRectF(square.left(), pageHeight - square.bottom(), square.width(), square.height());
        }
        if (word[0].isLetter())
            operands.clear();
        else
            operands.append(word);
    }
    return {};
}

class PrintQueue : public testing::Test {
 protected:
    static void SetUpTestSuite() { server = new PrintServer; }
    static void TearDownTestSuite() {
        delete server;
        server = nullptr;
    }
    void SetUp() override {
        if (!server->missing.isEmpty()) GTEST_SKIP() << server->missing.toStdString();
    }

    static QImage Picture(int width, int height) {
        QImage picture(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) picture.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, (x * y) % 256));
        return picture;
    }

    /// Prints in the dialog on the second of the two printers; the page then lies in page.pdf.
    void Print(const QImage& picture, bool portrait) {
        server->tray.done = false;
        frmPrint form(picture, service, settings, dialog, nullptr);
        ASSERT_EQ(form.lstPrinters->Count(), 2);
        EXPECT_EQ(form.lstPrinters->Text(1), "Second");
        EXPECT_EQ(service.DefaultPrinter(), "Second");
        form.lstPrinters->SetListIndex(1);
        if (portrait) form.Option1->setChecked(true);
        form.cmdOK->click();
        ASSERT_TRUE(dialog.shown.empty()) << dialog.shown[0].text.toStdString();
        ASSERT_TRUE(QTest::qWaitFor([] { return server->tray.done; }, kPatience)) << "no page came out of the printer\n"
                                                                                  << server->Log().toStdString();
        QFile file(PagePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(server->tray.page);
    }
    QString PagePath() const { return paper.filePath(QStringLiteral("page.pdf")); }

    Sheet Examine() const {
        Sheet sheet;
        const QString info = Ask("pdfinfo", {PagePath()}).value_or(QString());
        EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Pages: +1\n")))) << info.toStdString();
        const auto size = QRegularExpression(QStringLiteral("Page size: +([0-9.]+) x ([0-9.]+) pts")).match(info);
        sheet.size = QSizeF(size.captured(1).toDouble(), size.captured(2).toDouble());
        const QString plain = paper.filePath(QStringLiteral("plain.pdf"));
        Ask("qpdf", {QStringLiteral("--qdf"), QStringLiteral("--object-streams=disable"), PagePath(), plain});
        QFile file(plain);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        const auto begin = text.indexOf("stream\n", text.indexOf("%% Contents for page 1")) + 7;
        sheet.picture = PlaceOfPicture(QString::fromLatin1(text.mid(begin, text.indexOf("endstream", begin) - begin)),
                                       sheet.size.height());
        return sheet;
    }

    QImage EmbeddedPicture() const {
        Ask("pdfimages", {QStringLiteral("-png"), PagePath(), paper.filePath(QStringLiteral("picture"))});
        return QImage(paper.filePath(QStringLiteral("picture-000.png"))).convertToFormat(QImage::Format_RGB32);
    }

    static inline PrintServer* server = nullptr;
    QTemporaryDir paper;
    SystemPrintService service;
    MemorySettings settings;
    ScriptedDialog dialog;
};

TEST_F(PrintQueue, PutsThePictureOnThePageAsLargeAsItsMarginsAllow) {
    struct Row {
        const char* what;
        int width, height;  // as printed: image pixels after the turn
        bool portrait;
    };
    for (const Row& row :
         {Row{"landscape, wider than the sheet", 300, 100, false},
          Row{"portrait, taller than the sheet", 60, 200, true}, Row{"landscape, a tall picture", 80, 160, false}}) {
        SCOPED_TRACE(row.what);
        const QImage printed = Picture(row.width, row.height);
        // Portrait turns the picture to the left, so it goes in turned to the right.
        const QImage picture = row.portrait ? printed.transformed(QTransform().rotate(90)) : printed;
        ASSERT_NO_FATAL_FAILURE(Print(picture, row.portrait));
        const Sheet sheet = Examine();
        const QSizeF paperSize = row.portrait ? kA4 : kA4.transposed();
        EXPECT_NEAR(sheet.size.width(), paperSize.width(), 1);
        EXPECT_NEAR(sheet.size.height(), paperSize.height(), 1);
        const QSizeF room = paperSize - QSizeF(2 * kCentimetre, 2 * kCentimetre);
        const QSizeF size = QSizeF(row.width, row.height).scaled(room, Qt::KeepAspectRatio);
        EXPECT_NEAR(sheet.picture.width(), size.width(), 0.5);
        EXPECT_NEAR(sheet.picture.height(), size.height(), 0.5);
        EXPECT_NEAR(sheet.picture.center().x(), paperSize.width() / 2, 0.5);
        EXPECT_NEAR(sheet.picture.center().y(), paperSize.height() / 2, 0.5);
        EXPECT_EQ(EmbeddedPicture(), printed) << "every pixel, without loss";
    }
}

TEST_F(PrintQueue, RefusesAPrinterThatIsNotThere) {
    EXPECT_THROW(service.Print(QStringLiteral("Third"), false, Picture(4, 4),
                               [](const PrinterPage&) { return PlacedPicture{}; }),
                 Error);
}

TEST(SilentPrintService, IsGivenUpAfterFourSeconds) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    const QByteArray before = qgetenv("CUPS_SERVER");
    qputenv("CUPS_SERVER", QStringLiteral("127.0.0.1:%1").arg(silent.serverPort()).toLatin1());
    int turns = 0;
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, &events, [&] { ++turns; });
    events.start(50);
    QElapsedTimer clock;
    clock.start();
    SystemPrintService service;
    int number = 0;
    try {
        service.Printers();
    } catch (const Error& error) {
        number = error.Number();
    }
    EXPECT_EQ(number, PrintService::kNoPrinterInformation);
    EXPECT_GE(clock.elapsed(), 3700);
    EXPECT_LT(clock.elapsed(), 8000);
    EXPECT_GE(turns, 20) << "events run meanwhile";

    silent.close();
    qputenv("CUPS_SERVER", before);
}

}  // namespace
}  // namespace kelu
