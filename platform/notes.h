// The quiet note as the program sees it: one line that tells what happened, with at most two things to do about it.
// The real one is NoteBar over the picture; tests keep what they are told (tests/support/kept_notes.h).
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace kelu {

struct NoteButton {
    QString caption;
    std::function<void()> run;
};

struct Note {
    QString text;  ///< one line
    std::vector<NoteButton> buttons = {};
    bool stays = false;    ///< tells of a state: comes back after other notes until it is cleared
    bool unasked = false;  ///< tells what happened by itself: no action ends it, for nobody has read it yet
};

/// On the interface thread only; never waits for anything.
class Notes {
 public:
    virtual ~Notes() = default;

    /// Shows the note in place of the one before. It goes after some seconds, at the user's next action, or with a
    /// press of one of its buttons, which then runs.
    virtual void Show(const Note& note) = 0;
    virtual void Clear() = 0;
    /// Tells assistive technology alone what everybody else sees.
    virtual void Tell(const QString& text) = 0;
};

}  // namespace kelu
