// The message after a render that tells the user to brush the effect on, until its box is ticked.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

#include "document/settings.h"
#include "platform/msg_dialog.h"
#include "platform/notes.h"

namespace kelu {

class PaintReminder {
    Q_DECLARE_TR_FUNCTIONS(PaintReminder)

 public:
    PaintReminder(MsgDialog& dialog, Settings& settings, Notes& notes)
        : dialog_(dialog), settings_(settings), notes_(notes) {}

    /// Shows the reminder unless the user turned it off.
    void PrepareReminder();
    /// Shows it and keeps what the user chose for the next time.
    void RemindToPaint();

 private:
    MsgDialog& dialog_;
    Settings& settings_;
    Notes& notes_;
};

}  // namespace kelu
