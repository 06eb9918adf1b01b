// SPDX-License-Identifier: MIT
#include "app/paint_reminder.h"

namespace kelu {

void PaintReminder::PrepareReminder() {
    if (settings_.Read(settings::kReminder) == true) RemindToPaint();
}

void PaintReminder::RemindToPaint() {
    const MsgReply reply = dialog_.ShowMessage(
        {QStringLiteral("Information"),
         QStringLiteral("You are ready to go! Simply apply the chosen effect by 'brushing' over the image.\r\n"),
         MsgIcon::Information, MsgButtons::Ok, QStringLiteral("Don't Show This Again")});
    settings_.Write(settings::kReminder, !reply.ticked);
}

}  // namespace kelu
