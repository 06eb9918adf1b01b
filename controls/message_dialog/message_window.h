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

/// What a message shows.
struct Message {
    QString heading;
    QString text;
    QString title;
    int style = MsgDialog::kOk;
    MsgIcon icon = MsgIcon::None;
    bool about = false;
    bool hasCheckbox = false;
    QString checkboxCaption;
    bool ticked = false;
};

class MessageWindow : public QDialog {
    Q_OBJECT

 public:
    MessageWindow(const Message& message, QWidget* parent);

    /// The answer, once exec() has returned.
    int Answer() const { return answer_; }
    bool Ticked() const;

    void reject() override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    QCheckBox* checkbox_ = nullptr;
    QString plainText_;  ///< for the clipboard
    int answer_;
    bool threeWay_;

    /// The first of them.
    QPushButton* AddButtons(QBoxLayout& row);
    void Finish(int answer);
};

}  // namespace kelu
