// Notes for tests: every note is kept, none is shown.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "platform/notes.h"

namespace kelu {

class KeptNotes : public Notes {
 public:
    std::vector<Note> shown;
    QStringList told;
    int cleared = 0;

    void Show(const Note& note) override { shown.push_back(note); }
    void Clear() override { ++cleared; }
    void Tell(const QString& text) override { told += text; }
};

}  // namespace kelu
