// The message dialog as the program sees it: one call shows one message and tells what the user answered.
// The real window is MsgDialogWindow; tests answer by script (tests/support/scripted_dialog.h).
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <exception>

#include "platform/run_beside.h"

namespace kelu {

/// The picture beside the text.
enum class MsgIcon { None, Kelu, Information, Exclamation, Error };
enum class MsgButtons { Ok, YesNo, YesNoCancel };
/// A message closed by its window's close button or Escape is answered Cancel, No or Ok: the last button it has.
enum class MsgAnswer { Ok, Cancel, Yes, No };
/// About: a large picture, the heading's first line large, the text in a field that scrolls.
enum class MsgLook { Plain, About };

/// What a message shows. Line ends in the texts may be CR LF.
struct Message {
    QString heading;
    QString text;
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::Ok;
    QString checkbox = {};  ///< caption of a check box below the text, unticked at first; empty: none
    QString title = QStringLiteral("Kelu");
    MsgLook look = MsgLook::Plain;
};

struct MsgReply {
    MsgAnswer answer = MsgAnswer::Ok;
    bool ticked = false;  ///< the check box, when the message closed
};

class MsgDialog {
 public:
    virtual ~MsgDialog() = default;

    /// Shows the message modally and returns once it is answered.
    virtual MsgReply ShowMessage(const Message& message) = 0;
    /// The system's beep.
    virtual void Beep() = 0;
};

/// What a message tells of a failure, whatever its type.
QString DescriptionOf(const std::exception& error);

/// The standard error message: heading "Error", description and number of `error`.
void ShowStandardError(MsgDialog& dialog, const std::exception& error);

/// Runs a routine; its first failure ends it and is shown in the standard error message, a cancel in none. True when it
/// ran to its end.
template <typename Routine>
bool RunShowingErrors(MsgDialog& dialog, Routine&& routine) {
    try {
        routine();
        return true;
    } catch (const WorkCancelled&) {
        return false;
    } catch (const std::exception& error) {
        ShowStandardError(dialog, error);
        return false;
    }
}

}  // namespace kelu
