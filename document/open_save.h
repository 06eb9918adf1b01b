// The commands that bring a picture into the document and take it out: open, drop, save, copy, and the question
// whether to save changes, which leaving the program asks too.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

#include "document/document.h"
#include "document/shared_state.h"
#include "platform/msg_dialog.h"

namespace kelu {

/// The save dialog as the program sees it. The real one shows the desktop's own file dialog.
class SaveDialog {
 public:
    static constexpr const char* kTitle = "Save";
    static constexpr const char* kDefaultExtension = "PNG";
    /// The picture formats that are offered, and PDF: a text and its pattern each, separated by "|".
    static QString Filter();
    static constexpr int kPngFilter = 2;
    static constexpr int kPdfFilter = 5;

    virtual ~SaveDialog() = default;

    /// Asks for a name, with a prompt before a file is replaced; a name without extension gets the default one.
    /// `filterIndex` counts from 1: the filter offered first, and then the one chosen. False when cancelled.
    virtual bool Show(QString& fileName, int& filterIndex) = 0;
};

class OpenSave {
 public:
    /// `showBrowse` shows the browse dialog modally; `createPdf` writes the canvas as a PDF file to the given path and
    /// reports its own failures.
    OpenSave(Document& document, SharedState& state, MsgDialog& dialog, SaveDialog& saveDialog,
             std::function<void()> showBrowse, std::function<void(const QString&)> createPdf);

    void OpenImageNow();
    /// A file was dropped on the canvas.
    void Drop(const QString& path);
    /// The Save command: nothing without changes; the dialog comes a second time after a first Cancel.
    void PerformSave();
    /// Asks, with a beep, when there are unsaved changes; a refused save stops nothing. False: the user stays.
    bool SettleBeforeExit();
    /// One round of the save dialog and the write.
    void SaveImageNow();
    /// The canvas's picture on the clipboard.
    void Copy();

 private:
    /// "Save changes to ...?" Yes saves. False when the user cancelled.
    bool SettleChanges();
    /// The same before another picture takes the place of a changed one; then nothing counts as changed any more.
    bool GiveWay();

    Document& document_;
    SharedState& state_;
    MsgDialog& dialog_;
    SaveDialog& saveDialog_;
    std::function<void()> showBrowse_;
    std::function<void(const QString&)> createPdf_;
};

}  // namespace kelu
