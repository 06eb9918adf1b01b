// The window of one message: picture, heading, text, check box, buttons.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

#include "platform/msg_dialog.h"

class QBoxLayout;
class QCheckBox;
class QPushButton;

namespace kelu {

class MessageWindow : public QDialog {
    Q_OBJECT

 public:
    MessageWindow(const Message& message, QWidget* parent);

    /// The answer, once exec() has returned.
    MsgReply Reply() const;

    void reject() override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    void AddWords(QBoxLayout& column, const Message& message);
    /// The first of them.
    QPushButton* AddButtons(QBoxLayout& row);
    void Finish(MsgAnswer answer);

    MsgButtons buttons_;
    MsgAnswer answer_;
    QCheckBox* checkbox_ = nullptr;
    QString plainText_;  ///< for the clipboard
};

}  // namespace kelu
