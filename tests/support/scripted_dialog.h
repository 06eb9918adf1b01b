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
    /// Answers of the next messages in order. Without one a message is answered as by its close button.
    std::deque<MsgAnswer> answers;
    /// Ticks the check box of every message that shows one.
    bool ticks = false;
    /// Called while a message "shows", before it is answered: what a test does meanwhile.
    std::function<void(const Message&)> whileShown;

    std::vector<Message> shown;
    int beeps = 0;

    QStringList Texts() const {
        QStringList texts;
        for (const Message& message : shown) texts.append(message.text);
        return texts;
    }

    MsgReply ShowMessage(const Message& message) override {
        shown.push_back(message);
        if (whileShown) whileShown(message);
        MsgReply reply{MsgAnswer::Ok, !message.checkbox.isEmpty() && ticks};
        if (message.buttons != MsgButtons::Ok)
            reply.answer = message.buttons == MsgButtons::YesNo ? MsgAnswer::No : MsgAnswer::Cancel;
        if (!answers.empty()) {
            reply.answer = answers.front();
            answers.pop_front();
        }
        return reply;
    }
    void Beep() override { ++beeps; }
};

}  // namespace kelu
