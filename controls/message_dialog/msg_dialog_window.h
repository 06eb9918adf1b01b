// The real message dialog: a modal window in the program's look.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/msg_dialog.h"

namespace kelu {

class MsgDialogWindow : public MsgDialog {
 public:
    /// `parent` is the window that the messages block.
    explicit MsgDialogWindow(QWidget* parent = nullptr);
    void SetParent(QWidget* parent) { parent_ = parent; }

    MsgReply ShowMessage(const Message& message) override;
    void Beep() override;

 private:
    QPointer<QWidget> parent_;
};

}  // namespace kelu
