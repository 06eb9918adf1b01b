// The system's printing as the print dialog sees it: printers by name, and one page with a picture on it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QStringList>

#include "output/pdf/page_layout.h"
#include "platform/run_beside.h"

namespace kelu {

struct PrintTicket {
    QString printer;  ///< device name
    bool portrait = false;
    QImage picture;  ///< as it is to lie on the sheet
    PageSetup setup;
};

class PrintService {
 public:
    /// Raised by Printers when the system can't tell of its printers.
    static constexpr int kNoPrinterInformation = 484;

    virtual ~PrintService() = default;

    /// Device names in the system's order. Throws Error(kNoPrinterInformation).
    virtual QStringList Printers() = 0;
    /// Device name of the default printer; empty when there is none.
    virtual QString DefaultPrinter() = 0;
    /// Prints one page on the paper that the printer has by default, and returns when the print system has taken it;
    /// events run meanwhile. `work` tells how far the page is made, and ends it (WorkCancelled). Throws Error with the
    /// system's own reason when it refuses.
    virtual void Print(const PrintTicket& ticket, Work& work) = 0;
};

/// The system's print server, which gets the page as a PDF document. It is waited for beside the interface thread.
class SystemPrintService : public PrintService {
 public:
    /// Milliseconds: how long a silent server is waited for, when it is asked for its printers and for each of its
    /// answers to a job.
    explicit SystemPrintService(int listPatience = 4000, int jobPatience = 60'000)
        : listPatience_(listPatience), jobPatience_(jobPatience) {}

    QStringList Printers() override;
    QString DefaultPrinter() override { return default_; }
    void Print(const PrintTicket& ticket, Work& work) override;

 private:
    const int listPatience_;
    const int jobPatience_;
    QString default_;
};

}  // namespace kelu
