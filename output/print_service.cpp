// SPDX-License-Identifier: MIT
#include "output/print_service.h"

#include <QEventLoop>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QThread>
#include <QTimer>
#include <memory>

#include "platform/error.h"

namespace kelu {

namespace {

constexpr int kLongestWait = 4000;  // ms

struct PrinterList {
    QStringList names;
    QString standard;
};

/// Asks the print service beside the interface thread: a service that takes the question and stays silent would freeze
/// the window for half a minute. Nothing when it did not answer in time.
std::shared_ptr<PrinterList> AskForPrinters() {
    struct Question {
        std::shared_ptr<PrinterList> answer;
        QEventLoop* waiting = nullptr;
    };
    auto question = std::make_shared<Question>();
    QEventLoop loop;
    question->waiting = &loop;
    QObject receiver;  // gone with this call, so that a late answer finds nobody
    QPointer<QObject> there(&receiver);
    // A thread of its own that nobody waits for: one of the pool would hold up the program's end.
    QThread* asking = QThread::create([question, there] {
        auto list = std::make_shared<PrinterList>();
        list->names = QPrinterInfo::availablePrinterNames();
        list->standard = QPrinterInfo::defaultPrinterName();
        QMetaObject::invokeMethod(
            qApp,
            [question, there, list] {
                if (!there) return;
                question->answer = list;
                question->waiting->quit();
            },
            Qt::QueuedConnection);
    });
    QObject::connect(asking, &QThread::finished, asking, &QObject::deleteLater);
    asking->start();
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return question->answer;
}

}  // namespace

QStringList SystemPrintService::Printers() {
    const std::shared_ptr<PrinterList> list = AskForPrinters();
    if (!list) throw Error(kNoPrinterInformation, QStringLiteral("The print service does not answer"));
    default_ = list->standard;
    return list->names;
}

void SystemPrintService::Print(const QString& name, bool portrait, const QImage& picture, const Place& place) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(name);
    // An unknown name would quietly become the default printer.
    if (printer.printerName() != name) throw Error(kFileError, QStringLiteral("There is no printer %1").arg(name));
    if (QPrinterInfo::printerInfo(name).supportedPageSizes().isEmpty()) {
        const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
        printer.setPageSize(QPageSize(metric ? QPageSize::A4 : QPageSize::Letter));
    }
    printer.setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
    printer.setFullPage(true);
    printer.setColorMode(QPrinter::Color);
    printer.setDocName(QStringLiteral("Kelu"));

    const QRectF sheet = printer.paperRect(QPrinter::DevicePixel);
    const PlacedPicture at = place({sheet.width(), sheet.height(), static_cast<double>(printer.logicalDpiX()),
                                    static_cast<double>(printer.logicalDpiY())});
    QPainter painter;
    if (!painter.begin(&printer)) throw Error(kFileError, QStringLiteral("The printer %1 can't be used").arg(name));
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(at.x, at.y, at.width, at.height), picture);
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        throw Error(kFileError, QStringLiteral("The page could not be sent to %1").arg(name));
}

}  // namespace kelu
