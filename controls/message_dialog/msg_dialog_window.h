// The real message dialog: a modal window in the program's look.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include "platform/msg_dialog.h"

namespace kelu {

class MsgDialogWindow : public MsgDialog {
 public:
    /// `parent` is the window that the messages block.
    explicit MsgDialogWindow(QWidget* parent = nullptr);
    void SetParent(QWidget* parent) { parent_ = parent; }

    void SetShowCheckbox(bool show) override { showCheckbox_ = show; }
    void SetCheckboxCaption(const QString& caption) override { checkboxCaption_ = caption; }
    void SetAboutStyle(bool about) override { aboutStyle_ = about; }
    bool CheckboxValue() const override { return checkboxValue_; }
    /// Also the state in which the box of the next message starts; the one after starts unticked again.
    void SetCheckboxValue(bool ticked) override { checkboxValue_ = startTicked_ = ticked; }
    int ShowMessage(const QString& heading, const QString& text, int style, const QString& title,
                    MsgIcon icon) override;
    void Beep() override;

 private:
    QPointer<QWidget> parent_;
    QString checkboxCaption_;
    bool showCheckbox_ = false;
    bool aboutStyle_ = false;
    bool checkboxValue_ = false;
    bool startTicked_ = false;
};

}  // namespace kelu
