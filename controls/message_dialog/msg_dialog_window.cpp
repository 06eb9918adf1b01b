// Options to window and answer back; see msg_dialog_window.h.
// SPDX-License-Identifier: MIT
#include "controls/message_dialog/msg_dialog_window.h"

#include <QApplication>

#include "controls/message_dialog/message_window.h"

namespace kelu {

MsgDialogWindow::MsgDialogWindow(QWidget* parent) : parent_(parent) {}

int MsgDialogWindow::ShowMessage(const QString& heading, const QString& text, int style, const QString& title,
                                 MsgIcon icon) {
    // A message raised out of another dialog belongs above that one.
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner && parent_) owner = parent_->window();
    MessageWindow window(
        {heading, text, title, style, icon, aboutStyle_, showCheckbox_, checkboxCaption_, startTicked_}, owner);
    startTicked_ = false;
    window.exec();
    checkboxValue_ = window.Ticked();
    return window.Answer();
}

void MsgDialogWindow::Beep() { QApplication::beep(); }

}  // namespace kelu
