// The message dialog as the program sees it: one call shows a heading, a text and one or three buttons.
// The real window is MsgDialogWindow; tests answer by script (tests/support/scripted_dialog.h).
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <exception>

#include "platform/run_beside.h"

namespace kelu {

/// The picture beside the text.
enum class MsgIcon { None, Kelu, Information, Exclamation, Error };

class MsgDialog {
 public:
    /// Button sets.
    static constexpr int kOk = 96;
    static constexpr int kYesNoCancel = 99;
    /// Answers of ShowMessage. A dialog closed by its window's close button or Escape answers kCancel
    /// (or kOkAnswer when OK is all there is).
    static constexpr int kOkAnswer = 1;
    static constexpr int kCancel = 2;
    static constexpr int kYes = 6;
    static constexpr int kNo = 7;

    virtual ~MsgDialog() = default;

    /// Options of the next message; they stay until changed.
    virtual void SetShowCheckbox(bool show) = 0;
    virtual void SetCheckboxCaption(const QString& caption) = 0;
    virtual void SetAboutStyle(bool about) = 0;
    /// Whether the check box was ticked when the last message closed.
    virtual bool CheckboxValue() const = 0;
    virtual void SetCheckboxValue(bool ticked) = 0;

    /// Shows the message modally and returns the answer. Line ends in the texts may be CR LF.
    virtual int ShowMessage(const QString& heading, const QString& text, int style, const QString& title,
                            MsgIcon icon) = 0;
    /// The system's beep.
    virtual void Beep() = 0;
};

/// Shows a message without check box and About look, title "Kelu".
int ShowPlainMessage(MsgDialog& dialog, const QString& heading, const QString& text, int style, MsgIcon icon);

/// The standard error message: heading "Error", style 96, description and number of `error`.
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
