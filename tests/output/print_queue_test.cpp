// Printing through a real print server, a private one on the loopback interface: the page that reaches the device,
// looked at with the tools of another PDF library, and a server that refuses or falls silent.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <limits>

#include "controls/list_ex/list_ex.h"
#include "output/frm_print.h"
#include "output/output_settings.h"
#include "platform/error.h"
#include "tests/support/kit.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/tools.h"

namespace kelu {
namespace {

using testing::HasSubstr;

constexpr int kPatience = 15000;  // ms, for what takes a second on an idle machine

/// A printer with letter paper that takes PDF as it is.
constexpr const char* kPrinter = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*LanguageEncoding: ISOLatin1
*PCFileName: "KELUTEST.PPD"
*ColorDevice: True
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: Letter
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageSize
*DefaultImageableArea: Letter
*ImageableArea A4/A4: "0 0 595 842"
*ImageableArea Letter/Letter: "0 0 612 792"
*DefaultPaperDimension: Letter
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
)ppd";

constexpr const char* kServer = R"conf(Listen 127.0.0.1:%1
Browsing Off
DefaultAuthType None
<Policy default>
<Limit All>
Order deny,allow
Allow from 127.0.0.1
</Limit>
</Policy>
)conf";

/// What the program says; null if it fails.
QString Ask(const QString& tool, const QStringList& words) {
    QProcess process;
    process.start(FindTool(tool), words);
    if (!process.waitForFinished(kPatience) || process.exitCode() != 0) return {};
    return QString::fromUtf8(process.readAllStandardOutput()) + ' ';
}

/// The device behind the queues: keeps the last document it was sent.
class PaperTray : public QTcpServer {
 public:
    QByteArray document;

    PaperTray() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* printer = nextPendingConnection();
            connect(printer, &QTcpSocket::readyRead, this, [this, printer] {
                document += printer->readAll();
                if (Done()) printer->disconnectFromHost();  // the sender waits for that
            });
            connect(printer, &QTcpSocket::disconnected, printer, &QObject::deleteLater);
        });
    }
    bool Done() const { return document.trimmed().endsWith("%%EOF"); }
};

/// Stands before the server and hands on what is said, until it is told to die at the next document.
class FrailServer : public QTcpServer {
 public:
    qint64 mostBytes =
        std::numeric_limits<qint64>::max();  ///< of a connection, from its client; behind them it hangs up

    explicit FrailServer(quint16 port) {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, port] {
            QTcpSocket* const client = nextPendingConnection();
            auto* const server = new QTcpSocket(client);
            server->connectToHost(QHostAddress::LocalHost, port);
            connect(client, &QTcpSocket::readyRead, this, [this, client, server, taken = qint64{0}]() mutable {
                const QByteArray bytes = client->readAll();
                taken += bytes.size();
                taken > mostBytes ? client->abort() : static_cast<void>(server->write(bytes));
            });
            connect(server, &QTcpSocket::readyRead, client, [client, server] { client->write(server->readAll()); });
            connect(server, &QTcpSocket::disconnected, client, &QTcpSocket::disconnectFromHost);
            connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
        });
    }
};

/// The server with two queues: "Closed" takes no jobs, "Open" does and is the default.
struct PrintQueue : testing::Test {
    QTemporaryDir folder{"/tmp/kelu-print-XXXXXX"};  // where the server's own user can go, too
    QProcess server;
    PaperTray tray;
    SystemPrintService service;
    MemorySettings settings;
    ScriptedDialog dialog;
    quint16 port = 0;

    static void Use(quint16 port) { qputenv("CUPS_SERVER", QString("127.0.0.1:%1").arg(port).toLatin1()); }
    void SetUp() override {
        KELU_NEEDS("cupsd", "lpadmin", "pdftoppm", "pdfimages");
        QString files;
        for (const char* key : {"ServerRoot", "StateDir", "CacheDir", "RequestRoot", "TempDir", "DocumentRoot"}) {
            QDir(folder.path()).mkpath(QString("%1/ppd").arg(key));
            files += QString("%1 %2/%1\n").arg(key, folder.path());
        }
        for (const char* log : {"ErrorLog", "AccessLog", "PageLog"}) files += QString("%1 syslog\n").arg(log);
        QTcpServer free;
        free.listen(QHostAddress::LocalHost);
        port = free.serverPort();
        free.close();
        Write("cupsd.conf", QString(kServer).arg(port).toLatin1());
        Write("printer.ppd", kPrinter);
        // As root the server runs its filters under a user of its own, who must own the folders.
        if (Ask("id", {"-u"}).trimmed() == u"0") files += "User lp\nGroup lp\n";
        Write("files.conf", files.toLatin1());
        Ask("chown", {"-R", "lp:lp", folder.path()});
        Use(port);
        server.start(FindTool("cupsd"),
                     {"-f", "-c", folder.filePath("cupsd.conf"), "-s", folder.filePath("files.conf")});
        const QStringList queue{"-v", QString("socket://127.0.0.1:%1/?snmp=false").arg(tray.serverPort()), "-P",
                                folder.filePath("printer.ppd")};
        const auto add = [&] { return !Ask("lpadmin", QStringList{"-p", "Open", "-E"} + queue).isNull(); };
        ASSERT_TRUE(QTest::qWaitFor(add, kPatience)) << "the print server can't be started here";
        Ask("lpadmin", QStringList{"-p", "Closed"} + queue);
        Ask("lpadmin", {"-d", "Open"});
    }
    void TearDown() override {
        server.terminate();
        if (!server.waitForFinished(5000)) server.kill();
        server.waitForFinished(5000);
    }
    void Write(const QString& name, const QByteArray& text) { WriteBytes(folder.filePath(name), text); }
};

TEST_F(PrintQueue, ThePageReachesThePrinterAndARefusalTheUser) {
    const QSize letter(612, 792);  // points
    constexpr int kMargin = 28;    // points: 1 cm
    for (const bool portrait : {false, true}) {
        QImage picture(portrait ? 50 : 100, 50, QImage::Format_RGB32);
        for (int i = 0; i < picture.width() * 50; ++i) picture.setPixel(i / 50, i % 50, qRgb(i % 200, i / 50, 90));
        frmPrint form(picture, service, settings, dialog, nullptr);
        form.show();
        ASSERT_EQ(form.lstPrinters->Count(), 2);
        EXPECT_EQ(service.DefaultPrinter(), "Open");
        if (portrait) form.Option1->setChecked(true);
        form.lstPrinters->SetListIndex(0);
        dialog.shown.clear();
        form.cmdOK->click();
        ASSERT_EQ(dialog.shown.size(), 1u) << "a refused job is lost without a word";
        EXPECT_THAT(dialog.shown[0].text.toStdString(), HasSubstr("Closed: "));
        EXPECT_TRUE(form.isVisible());

        tray.document.clear();
        form.lstPrinters->SetListIndex(1);
        form.cmdOK->click();
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(settings.Read(settings::kPrinterName), "Open");
        ASSERT_TRUE(QTest::qWaitFor([&] { return tray.Done(); }, kPatience)) << "no page came out of the printer";
        const QString page = folder.filePath("page.pdf");
        Write("page.pdf", tray.document);
        ASSERT_FALSE(Ask("pdftoppm", {"-r", "72", "-png", "-singlefile", page, folder.filePath("page")}).isNull());
        const QImage sheet(folder.filePath("page.png"));
        EXPECT_EQ(sheet.size(), portrait ? letter : letter.transposed());
        QRect inked;
        for (int y = 0; y < sheet.height(); ++y)
            for (int x = 0; x < sheet.width(); ++x)
                if (sheet.pixel(x, y) != 0xffffffff) inked |= QRect(x, y, 1, 1);
        // Upright the width is what limits both pictures; the other way the first is centred down.
        EXPECT_NEAR(inked.left(), kMargin, 1);
        EXPECT_NEAR(inked.right(), sheet.width() - kMargin, 1);
        EXPECT_NEAR(inked.width(), inked.height() * (portrait ? 1 : 2), 2);
        EXPECT_NEAR(inked.center().y(), sheet.height() / 2, 1);
        Ask("pdfimages", {"-png", page, folder.filePath("picture")});
        EXPECT_EQ(QImage(folder.filePath("picture-000.png")).convertToFormat(QImage::Format_RGB32),
                  form.surface.Picture());
    }
}

TEST_F(PrintQueue, AServerThatDiesIsToldAndPrintsAgainWhenItIsBack) {
    FrailServer frail(port);
    Use(frail.serverPort());
    QImage picture(900, 700, QImage::Format_RGB32);  // too much for the network to swallow at once
    for (int i = 0; i < picture.width() * picture.height(); ++i)
        picture.setPixel(i / 700, i % 700, static_cast<QRgb>(i) * 2654435761u);
    frmPrint form(picture, service, settings, dialog, nullptr);
    form.show();
    ASSERT_EQ(form.lstPrinters->Count(), 2);
    form.lstPrinters->SetListIndex(1);
    for (const qint64 most : {100'000, 0}) {
        frail.mostBytes = most;
        dialog.shown.clear();
        form.cmdOK->click();
        ASSERT_EQ(dialog.shown.size(), 1u) << "a lost job is lost without a word";
        EXPECT_THAT(dialog.shown[0].text.toStdString(),
                    testing::AnyOf(HasSubstr("Open: "), HasSubstr("does not answer")))
            << "by what breaks first, the sending or the answer";
        EXPECT_TRUE(form.isVisible() && form.isEnabled());
    }
    EXPECT_TRUE(tray.document.isEmpty()) << "half a page";
    frail.mostBytes = std::numeric_limits<qint64>::max();
    form.cmdOK->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return tray.Done(); }, kPatience)) << "back again, it prints";
}

TEST(SilentPrintServer, IsGivenUpWhileTheWindowLives) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    qputenv("CUPS_SERVER", QStringLiteral("127.0.0.1:%1").arg(silent.serverPort()).toLatin1());
    SystemPrintService service(500, 60'000);
    int turns = 0;
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, &events, [&] { ++turns; });
    events.start(20);
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(ErrorOf([&] { service.Printers(); }).Number(), PrintService::kNoPrinterInformation);
    EXPECT_GE(turns, 5) << "events run meanwhile";
    Work work;
    QTimer::singleShot(300, &events, [&] { work.cancelled = true; });
    EXPECT_THROW(service.Print({"Any", false, QImage(4, 4, QImage::Format_RGB32), {}}, work), WorkCancelled);
    EXPECT_LT(clock.elapsed(), 8000);
}

}  // namespace
}  // namespace kelu
