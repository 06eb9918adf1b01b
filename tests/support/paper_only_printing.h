// A print service for tests: one printer, which takes every page.
// SPDX-License-Identifier: MIT
#pragma once

#include "output/print_service.h"

namespace kelu {

class PaperOnlyPrinting : public PrintService {
 public:
    QStringList Printers() override { return {QStringLiteral("Paper")}; }
    QString DefaultPrinter() override { return QStringLiteral("Paper"); }
    void Print(const PrintTicket&, Work&) override {}
};

}  // namespace kelu
