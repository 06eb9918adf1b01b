// SPDX-License-Identifier: MIT
#include "app/paint_reminder.h"

namespace kelu {

void PaintReminder::PrepareReminder() {
    if (settings_.Read(settings::kReminder) == u"1") RemindToPaint();
}

void PaintReminder::RemindToPaint() {
    dialog_.SetShowCheckbox(true);
    dialog_.SetAboutStyle(false);
    dialog_.SetCheckboxCaption(QStringLiteral("Don't Show This Again"));
    dialog_.ShowMessage(
        QStringLiteral("Information"),
        QStringLiteral("You are ready to go! Simply apply the chosen effect by 'brushing' over the image.\r\n"),
        MsgDialog::kOk, QStringLiteral("Kelu"), MsgIcon::Information);
    settings_.Write(settings::kReminder, dialog_.CheckboxValue() ? QStringLiteral("0") : QStringLiteral("1"));
}

}  // namespace kelu
