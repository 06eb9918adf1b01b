// SPDX-License-Identifier: MIT
#include "document/open_save.h"

#include "document/clipboard_picture.h"

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

int OpenSave::AskToSave(bool beep) {
    if (beep) dialog_.Beep();
    return ShowPlainMessage(dialog_, QStringLiteral("Confirm"),
                            QStringLiteral("Save changes to '%1'?\r\n").arg(state_.CurrentFileName),
                            MsgDialog::kYesNoCancel, MsgIcon::Exclamation);
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
        if (filterIndex == SaveDialog::kPdfFilter)
            createPdf_(fileName);
        else if (filterIndex >= 1 && filterIndex < SaveDialog::kPdfFilter)
            document_.RunsBeside()([&] { document_.Canvas().SaveFile(fileName); });
        state_.ImageDirty = false;
        state_.ImageActive = false;
    });
}

void OpenSave::Copy() {
    if (!state_.ImageActive) return;
    RunShowingErrors(dialog_, [&] { CopyToClipboard(document_.Canvas().Picture(), document_.RunsBeside()); });
}

}  // namespace kelu
