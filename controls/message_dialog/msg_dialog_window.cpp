// Shows each message above the window it belongs to.
// SPDX-License-Identifier: MIT
#include "controls/message_dialog/msg_dialog_window.h"

#include <QApplication>

#include "controls/message_dialog/message_window.h"

namespace kelu {

MsgDialogWindow::MsgDialogWindow(QWidget* parent) : parent_(parent) {}

MsgReply MsgDialogWindow::ShowMessage(const Message& message) {
    // A message raised out of another dialog belongs above that one.
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner && parent_) owner = parent_->window();
    MessageWindow window(message, owner);
    window.exec();
    return window.Reply();
}

void MsgDialogWindow::Beep() { QApplication::beep(); }

}  // namespace kelu
