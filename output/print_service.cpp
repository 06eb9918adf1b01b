// SPDX-License-Identifier: MIT
#include "output/print_service.h"

#include <cups/cups.h>
#include <cups/pwg.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTemporaryFile>
#include <memory>
#include <optional>

#include "output/pdf/pdf_export.h"
#include "platform/error.h"
#include "platform/run_beside.h"
#include "platform/temporary_folder.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::PrintService)
};

constexpr double kPointsPerInch = 72;
constexpr double kPaperUnitsPerInch = 2540;  // of the print system's table of papers
constexpr double kLookSeconds = 0.25;        // between two looks at the cancel flag

/// A talk with the print server, for one thread. Every answer is waited for so long and no longer.
class PrintServer {
 public:
    explicit PrintServer(int patienceMs) : patience_(patienceMs / 1000.0) {
        // Without this the library would ask for a password on the terminal.
        cupsSetPasswordCB2([](const char*, http_t*, const char*, const char*, void*) -> const char* { return nullptr; },
                           nullptr);
        http_.reset(
            httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, patienceMs, nullptr));
        if (http_) httpSetTimeout(http_.get(), kLookSeconds, &PrintServer::GoOnWaiting, this);
    }

    bool Connected() const { return http_ != nullptr; }
    /// Whether the last wait was given up.
    bool Silent() const { return silent_; }
    http_t* Connection() {
        waited_ = 0;
        return http_.get();
    }

 private:
    static int GoOnWaiting(http_t*, void* self) {
        auto& server = *static_cast<PrintServer*>(self);
        server.waited_ += kLookSeconds;
        server.silent_ = server.silent_ || server.waited_ >= server.patience_;
        return !server.silent_ && !server.report_.Cancelled();
    }

    struct Close {
        void operator()(http_t* http) const { httpClose(http); }
    };
    std::unique_ptr<http_t, Close> http_;
    const double patience_;
    const WorkReport report_;
    double waited_ = 0;
    bool silent_ = false;
};

/// The printers that the server knows.
class Destinations {
 public:
    explicit Destinations(PrintServer& server) : count_(cupsGetDests2(server.Connection(), &all_)) {}
    ~Destinations() { cupsFreeDests(count_, all_); }
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    cups_dest_t* begin() const { return all_; }
    cups_dest_t* end() const { return all_ + count_; }

    static QString NameOf(const cups_dest_t& each) {
        const QString name = QString::fromUtf8(each.name);
        return each.instance == nullptr ? name : name + u'/' + QString::fromUtf8(each.instance);
    }
    cups_dest_t* Find(const QString& name) const {
        for (cups_dest_t& each : *this)
            if (NameOf(each) == name) return &each;
        return nullptr;
    }

 private:
    cups_dest_t* all_ = nullptr;
    const int count_;
};

/// Points, upright. Nothing for a name that stands in no table.
std::optional<QSizeF> PaperSize(const char* name) {
    if (name == nullptr) return std::nullopt;
    const pwg_media_t* paper = pwgMediaForPWG(name);
    if (paper == nullptr) paper = pwgMediaForPPD(name);
    if (paper == nullptr) paper = pwgMediaForLegacy(name);
    if (paper == nullptr || paper->width <= 0 || paper->length <= 0) return std::nullopt;
    return QSizeF(paper->width, paper->length) * (kPointsPerInch / kPaperUnitsPerInch);
}

/// What the user has chosen for this printer, else what it has by default, else what is usual in the country.
QSizeF DefaultPaper(PrintServer& server, cups_dest_t& printer) {
    for (const char* option : {"media", "PageSize"})
        if (const auto chosen = PaperSize(cupsGetOption(option, printer.num_options, printer.options))) return *chosen;
    const std::unique_ptr<cups_dinfo_t, decltype(&cupsFreeDestInfo)> details(
        cupsCopyDestInfo(server.Connection(), &printer), &cupsFreeDestInfo);
    if (details) {
        ipp_attribute_t* paper = cupsFindDestDefault(server.Connection(), &printer, details.get(), CUPS_MEDIA);
        if (const auto own = PaperSize(paper == nullptr ? nullptr : ippGetString(paper, 0, nullptr))) return *own;
    }
    const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
    return *PaperSize(metric ? CUPS_MEDIA_A4 : CUPS_MEDIA_LETTER);
}

/// The sheet as the picture is to lie on it. Device pixels of the placing are points here.
PdfPage Sheet(const PrintTicket& ticket, const QSizeF& paper) {
    const QSizeF sheet = ticket.portrait ? paper : paper.transposed();
    const QImage& picture = ticket.picture;
    const PlacedPicture at = PlacePicture(ticket.setup, {sheet.width(), sheet.height(), kPointsPerInch, kPointsPerInch},
                                          {picture.width(), picture.height(), DotsPerInch(picture.dotsPerMeterX()),
                                           DotsPerInch(picture.dotsPerMeterY())});
    return {sheet, QRectF(at.x, at.y, at.width, at.height)};
}

[[noreturn]] void Fail(const QString& reason) { throw Error(kFileError, reason, QStringLiteral("PrintNow")); }

void SendToServer(const PrintTicket& ticket, int patience) {
    const auto check = [&](bool good, const PrintServer& server) {
        if (WorkReport().Cancelled()) throw WorkCancelled();
        if (server.Silent()) Fail(Texts::tr("The print server does not answer"));
        if (!good) Fail(ticket.printer + QStringLiteral(": ") + QString::fromUtf8(cupsLastErrorString()));
    };
    PrintServer server(patience);
    check(server.Connected(), server);
    const Destinations printers(server);
    cups_dest_t* printer = printers.Find(ticket.printer);
    if (printer == nullptr) {
        const ipp_status_t told = cupsLastError();
        check(told < IPP_STATUS_ERROR_BAD_REQUEST || told == IPP_STATUS_ERROR_NOT_FOUND, server);
        Fail(Texts::tr("There is no printer \"%1\"").arg(ticket.printer));
    }
    const QSizeF paper = DefaultPaper(server, *printer);
    check(true, server);

    QTemporaryFile document(TemporaryFolder() + QStringLiteral("/kelu-print-XXXXXX.pdf"));  // the user's alone
    if (!document.open()) Fail(document.errorString());
    WritePdfPage(document, ticket.picture, Sheet(ticket, paper), KeluPdfProperties());
    if (!document.flush()) Fail(document.errorString());
    check(true, server);
    const int job =
        cupsPrintFile2(server.Connection(), printer->name, QFile::encodeName(document.fileName()).constData(), "Kelu",
                       printer->num_options, printer->options);
    check(job != 0, server);
    // A job whose document the server did not take to its end has a number, too.
    if (httpGetStatus(server.Connection()) != HTTP_STATUS_OK) Fail(Texts::tr("The print server does not answer"));
}

}  // namespace

QStringList SystemPrintService::Printers() {
    QStringList names;
    default_.clear();
    RunBeside([&] {
        PrintServer server(listPatience_);
        if (!server.Connected()) return;  // nobody prints here
        for (const cups_dest_t& each : Destinations(server)) {
            names.append(Destinations::NameOf(each));
            if (each.is_default) default_ = names.last();
        }
        if (server.Silent()) throw Error(kNoPrinterInformation, Texts::tr("The print server does not answer"));
    });
    return names;
}

void SystemPrintService::Print(const PrintTicket& ticket, Work& work) {
    RunBeside([&] { SendToServer(ticket, jobPatience_); }, UserInput::Let, &work);
}

}  // namespace kelu
