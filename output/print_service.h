// The system's printing as the print dialog sees it: printers by name, and one page with a picture on it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QStringList>
#include <functional>

#include "output/pdf/page_layout.h"

namespace kelu {

class PrintService {
 public:
    /// Raised by Printers when the system can't tell of its printers.
    static constexpr int kNoPrinterInformation = 484;

    /// Places the picture on the page that the printer really has.
    using Place = std::function<PlacedPicture(const PrinterPage&)>;

    virtual ~PrintService() = default;

    /// Device names in the system's order. Throws Error(kNoPrinterInformation).
    virtual QStringList Printers() = 0;
    /// Device name of the default printer; empty when there is none.
    virtual QString DefaultPrinter() = 0;
    /// Prints one page. Throws Error when the printer is not there or fails.
    virtual void Print(const QString& printer, bool portrait, const QImage& picture, const Place& place) = 0;
};

/// The toolkit's printing, which reaches the system's print service.
class SystemPrintService : public PrintService {
 public:
    /// Waits for a print service that doesn't answer no longer than 4 seconds, with events running.
    QStringList Printers() override;
    QString DefaultPrinter() override { return default_; }
    void Print(const QString& printer, bool portrait, const QImage& picture, const Place& place) override;

 private:
    QString default_;
};

}  // namespace kelu
