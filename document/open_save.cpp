// SPDX-License-Identifier: MIT
#include "document/open_save.h"

#include "document/commands.h"
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

bool OpenSave::SettleChanges() {
    const MsgReply reply = dialog_.ShowMessage({QStringLiteral("Confirm"),
                                                QStringLiteral("Save changes to '%1'?\r\n").arg(state_.CurrentFileName),
                                                MsgIcon::Exclamation, MsgButtons::YesNoCancel});
    if (reply.answer == MsgAnswer::Yes) SaveImageNow();
    return reply.answer != MsgAnswer::Cancel;
}

bool OpenSave::GiveWay() {
    if (!state_.ImageDirty) return true;
    if (!SettleChanges()) return false;
    state_.ImageDirty = false;  // whatever came of the save
    return true;
}

bool OpenSave::SettleBeforeExit() {
    if (!state_.ImageDirty) return true;
    dialog_.Beep();
    return SettleChanges();
}

void OpenSave::OpenImageNow() {
    if (Enabled(Command::Open, state_) && GiveWay()) showBrowse_();
}

void OpenSave::Drop(const QString& path) {
    if (!Enabled(Command::Drop, state_)) return;
    const bool wasDirty = state_.ImageDirty;
    if (!GiveWay()) return;
    RunShowingErrors(dialog_, [&] { document_.Open(path, Document::Source::Drop, wasDirty); });
}

void OpenSave::PerformSave() {
    if (!Enabled(Command::Save, state_)) return;
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
    if (Enabled(Command::Copy, state_)) document_.Canvas().CopyToClipboard();
}

}  // namespace kelu
