// A message dialog for tests: answers from a queue, keeps every message, never opens a window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <vector>

#include "platform/msg_dialog.h"

namespace kelu {

class ScriptedDialog : public MsgDialog {
 public:
    struct Shown {
        QString heading;
        QString text;
        int style = 0;
        QString title;
        MsgIcon icon = MsgIcon::None;
        bool checkbox = false;
        QString checkboxCaption;
        bool about = false;
    };

    /// Answers of the next messages in order. Without one a message is answered as by its close button.
    std::deque<int> answers;
    /// Ticks the check box of every message that shows one.
    bool ticks = false;
    /// Called while a message "shows", before it is answered: what a test does meanwhile.
    std::function<void(const Shown&)> whileShown;

    std::vector<Shown> shown;
    int beeps = 0;

    QStringList Texts() const {
        QStringList texts;
        for (const Shown& message : shown) texts.append(message.text);
        return texts;
    }

    void SetShowCheckbox(bool show) override { next_.checkbox = show; }
    void SetCheckboxCaption(const QString& caption) override { next_.checkboxCaption = caption; }
    void SetAboutStyle(bool about) override { next_.about = about; }
    bool CheckboxValue() const override { return ticked_; }
    void SetCheckboxValue(bool ticked) override { ticked_ = ticked; }

    int ShowMessage(const QString& heading, const QString& text, int style, const QString& title,
                    MsgIcon icon) override {
        Shown message = next_;
        message.heading = heading;
        message.text = text;
        message.style = style;
        message.title = title;
        message.icon = icon;
        shown.push_back(message);
        if (whileShown) whileShown(message);
        ticked_ = message.checkbox && ticks;
        if (answers.empty()) return style == kYesNoCancel ? kCancel : kOkAnswer;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void Beep() override { ++beeps; }

 private:
    Shown next_;
    bool ticked_ = false;
};

}  // namespace kelu
