// SPDX-License-Identifier: MIT
#include "document/open_save.h"

#include "pictures/picture_format.h"

namespace kelu {

QString SaveDialog::Filter() { return SaveFilters() + QStringLiteral("|PDF Files (*.pdf)|*.pdf"); }

OpenSave::OpenSave(Document& document, SharedState& state, MsgDialog& dialog, SaveDialog& saveDialog,
                   std::function<void()> showBrowse, std::function<bool(const QString&)> createPdf, SessionLog& log)
    : document_(document),
      state_(state),
      dialog_(dialog),
      saveDialog_(saveDialog),
      showBrowse_(std::move(showBrowse)),
      createPdf_(std::move(createPdf)),
      log_(log) {}

int OpenSave::AskToSave(bool beep) {
    if (beep) dialog_.Beep();
    const int answer = ShowPlainMessage(dialog_, QStringLiteral("Confirm"),
                                        QStringLiteral("Save changes to '%1'?\r\n").arg(state_.CurrentFileName),
                                        MsgDialog::kYesNoCancel, MsgIcon::Exclamation);
    if (answer == MsgDialog::kNo) log_.Settled({});
    return answer;
}

bool OpenSave::SettleChanges() {
    switch (AskToSave()) {
        case MsgDialog::kYes:
            SaveImageNow();
            break;
        case MsgDialog::kNo:
            break;
        default:
            return false;
    }
    state_.ImageDirty = false;  // whatever came of the save
    return true;
}

void OpenSave::OpenImageNow() {
    if (state_.CaptureBusy) return;
    if (state_.ImageDirty && !SettleChanges()) return;
    showBrowse_();
}

void OpenSave::Drop(const QString& path) {
    if (state_.CaptureBusy) return;
    const bool wasDirty = state_.ImageDirty;
    if (wasDirty && !SettleChanges()) return;
    RunShowingErrors(dialog_, [&] { document_.Open(path, Document::Source::Drop, wasDirty); });
}

void OpenSave::PerformSave() {
    if (state_.CaptureBusy || !state_.ImageDirty) return;
    SaveImageNow();
    if (state_.ImageActive) SaveImageNow();
}

void OpenSave::SaveImageNow() {
    RunShowingErrors(dialog_, [&] {
        QString fileName;
        int filterIndex = SaveDialog::kPngFilter;
        if (!saveDialog_.Show(fileName, filterIndex)) return;
        bool written = false;
        if (filterIndex == SaveDialog::kPdfFilter) {
            written = createPdf_(fileName);
        } else if (filterIndex >= 1 && filterIndex < SaveDialog::kPdfFilter) {
            document_.Canvas().SaveFile(fileName);
            written = true;
        }
        // A PDF that failed counts as saved all the same, but is not.
        if (written) log_.Settled(fileName);
        state_.ImageDirty = false;
        state_.ImageActive = false;
    });
}

void OpenSave::Copy() {
    if (state_.ImageActive) document_.Canvas().CopyToClipboard();
}

}  // namespace kelu
