// Notes for tests: every note is kept, none is shown.
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/notes.h"

namespace kelu {

class KeptNotes : public Notes {
 public:
    std::vector<Note> shown;
    int cleared = 0;

    void Show(const Note& note) override { shown.push_back(note); }
    void Clear() override { ++cleared; }
};

}  // namespace kelu
