// SPDX-License-Identifier: MIT
#include "app/paint_reminder.h"

#include <QCoreApplication>

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::PaintReminder)
};

}  // namespace

void PaintReminder::PrepareReminder() {
    if (settings_.Read(settings::kReminder) != true) return notes_.Tell(tr("The effect is ready to be painted"));
    RemindToPaint();
    notes_.Show({tr("Hold Ctrl while you paint to bring the original back"), {}});
}

void PaintReminder::RemindToPaint() {
    const MsgReply reply = dialog_.ShowMessage(
        {Texts::tr("Information"),
         Texts::tr("You are ready to go! Simply apply the chosen effect by 'brushing' over the image.\r\n"),
         MsgIcon::Information, MsgButtons::Ok, Texts::tr("Don't Show This Again")});
    RunShowingErrors(dialog_, [&] { settings_.Keep(settings::kReminder, !reply.ticked); });
}

}  // namespace kelu
