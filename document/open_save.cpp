// SPDX-License-Identifier: MIT
#include "document/open_save.h"

#include "pictures/picture_format.h"

namespace kelu {

QString SaveDialog::Filter() { return SaveFilters() + QStringLiteral("|PDF Files (*.pdf)|*.pdf"); }

OpenSave::OpenSave(Document& document, SharedState& state, MsgDialog& dialog, SaveDialog& saveDialog,
                   std::function<void()> showBrowse, std::function<void(const QString&)> createPdf)
    : document_(document),
      state_(state),
      dialog_(dialog),
      saveDialog_(saveDialog),
      showBrowse_(std::move(showBrowse)),
      createPdf_(std::move(createPdf)) {}

MsgAnswer OpenSave::AskToSave(bool beep) {
    if (beep) dialog_.Beep();
    return dialog_
        .ShowMessage({QStringLiteral("Confirm"),
                      QStringLiteral("Save changes to '%1'?\r\n").arg(state_.CurrentFileName), MsgIcon::Exclamation,
                      MsgButtons::YesNoCancel})
        .answer;
}

bool OpenSave::SettleChanges() {
    switch (AskToSave()) {
        case MsgAnswer::Yes:
            SaveImageNow();
            break;
        case MsgAnswer::No:
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
        if (filterIndex == SaveDialog::kPdfFilter)
            createPdf_(fileName);
        else if (filterIndex >= 1 && filterIndex < SaveDialog::kPdfFilter)
            document_.Canvas().SaveFile(fileName);
        state_.ImageDirty = false;
        state_.ImageActive = false;
    });
}

void OpenSave::Copy() {
    if (state_.ImageActive) document_.Canvas().CopyToClipboard();
}

}  // namespace kelu
