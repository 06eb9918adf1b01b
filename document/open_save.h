// The commands that bring a picture into the document and take it out: open, drop, save, copy, and the question
// whether to save changes, which leaving the program asks too.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <functional>

#include "document/document.h"
#include "document/offered_picture.h"
#include "document/shared_state.h"
#include "platform/msg_dialog.h"
#include "platform/notes.h"

namespace kelu {

/// The save dialog as the program sees it. The real one shows the desktop's own file dialog.
class SaveDialog {
 public:
    static constexpr const char* kTitle = QT_TRANSLATE_NOOP("kelu::SaveFileDialog", "Save");
    static constexpr const char* kDefaultExtension = "PNG";
    /// The picture formats that are offered, and PDF: a text and its pattern each, separated by "|".
    static QString Filter();
    static constexpr int kPngFilter = 2;
    static constexpr int kPdfFilter = 5;

    virtual ~SaveDialog() = default;

    /// Asks for a name, with a prompt before a file is replaced; a name without extension gets the default one.
    /// `fileName` proposes a name, with its folder unless the dialog is to choose one; it may be empty. `filterIndex`
    /// counts from 1: the filter offered first, and then the one chosen. False when cancelled.
    virtual bool Show(QString& fileName, int& filterIndex) = 0;
};

/// What opening and saving need of others; those that may be empty are left out then.
struct OpenSaveHelpers {
    std::function<void()> showBrowse;  ///< the browse dialog, modally
    /// Writes the canvas as a PDF file and reports its own failures; false then.
    std::function<bool(const QString& path)> createPdf;
    std::function<QString()> effectName = {};                    ///< of the last render, for the proposed name
    std::function<void(const QString& folder)> showFolder = {};  ///< in the user's file manager
};

class OpenSave {
    Q_DECLARE_TR_FUNCTIONS(OpenSave)

 public:
    OpenSave(Document& document, SharedState& state, MsgDialog& dialog, SaveDialog& saveDialog, Notes& notes,
             OpenSaveHelpers helpers, SessionLog& log = SessionLog::None());

    /// "Save changes to ...?"; false when the user cancelled, otherwise the changes are saved or given up.
    bool SettleChanges();

    void OpenImageNow();
    /// A file was dropped on the window.
    void Drop(const QString& path);
    /// A picture without a file was dropped or pasted.
    void DropPicture(const OfferedPicture& offered);
    /// The Save command: nothing without changes; the dialog comes a second time after a first Cancel.
    void PerformSave();
    /// Asks, with a beep, when there are unsaved changes; a refused save stops nothing. False: the user stays.
    bool SettleBeforeExit();
    /// One round of the save dialog and the write. A note tells the name.
    void SaveImageNow();
    /// A note with the name of a file just saved and a way to its folder; `mayGoOn`: and one to open it.
    void TellSaved(const QString& path, bool mayGoOn);
    /// A note for who goes on with the canvas of a picture that was saved, with a way to open its file.
    void TellAlreadySaved();
    /// A note, when the picture that was just opened came smaller than its file.
    void TellMadeSmaller();
    /// The canvas's picture on the clipboard.
    void Copy();

 private:
    /// The same before another picture takes the place of a changed one; then nothing counts as changed any more.
    bool GiveWay();
    void TakeIn(Document::Source source, const std::function<QString()>& makePath);
    /// `path` may become another, or none, by a save that is asked for first.
    void OpenAgain(const QString& path, Document::Source source);
    /// The way on with the picture saved last; none for a PDF.
    std::vector<NoteButton> GoOnButtons();
    QString ProposedName() const;
    /// Asks before the file that is open is replaced by the smaller picture that was made of it.
    bool MayReplace(const QString& path);

    Document& document_;
    SharedState& state_;
    MsgDialog& dialog_;
    SaveDialog& saveDialog_;
    Notes& notes_;
    OpenSaveHelpers helpers_;
    SessionLog& log_;
    QString savedPath_;  ///< of the last save; empty: it was no picture
};

}  // namespace kelu
