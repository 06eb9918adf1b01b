// SPDX-License-Identifier: MIT
#include "document/open_save.h"

#include <QDir>
#include <QFileInfo>

#include "document/clipboard_picture.h"
#include "document/commands.h"
#include "pictures/picture_format.h"

namespace kelu {

QString SaveDialog::Filter() { return SaveFilters() + u'|' + SaveFilter(QStringLiteral("PDF"), QStringLiteral("pdf")); }

namespace {

QString Size(const QSize& pixels) {
    return QStringLiteral("%1 \u00D7 %2").arg(QString::number(pixels.width()), QString::number(pixels.height()));
}

}  // namespace

OpenSave::OpenSave(Document& document, SharedState& state, MsgDialog& dialog, SaveDialog& saveDialog, Notes& notes,
                   OpenSaveHelpers helpers, SessionLog& log)
    : document_(document),
      state_(state),
      dialog_(dialog),
      saveDialog_(saveDialog),
      notes_(notes),
      helpers_(std::move(helpers)),
      log_(log) {}

bool OpenSave::SettleChanges() {
    const MsgReply reply =
        dialog_.ShowMessage({tr("Confirm"), tr("Save changes to '%1'?\r\n").arg(state_.CurrentFileName),
                             MsgIcon::Exclamation, MsgButtons::YesNoCancel});
    if (reply.answer == MsgAnswer::Yes) SaveImageNow();
    if (reply.answer == MsgAnswer::No) log_.Settled({});
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
    if (Enabled(Command::Open, state_) && GiveWay()) helpers_.showBrowse();
}

void OpenSave::Drop(const QString& path) {
    TakeIn(Document::Source::Drop, [&] { return path; });
}

void OpenSave::DropPicture(const OfferedPicture& offered) {
    TakeIn(Document::Source::Paste, [&] {
        QString path;
        document_.RunsBeside()([&] { path = KeepOffered(offered); });
        return path;
    });
}

void OpenSave::TakeIn(Document::Source source, const std::function<QString()>& makePath) {
    if (!Enabled(Command::Drop, state_)) return;
    const bool wasDirty = state_.ImageDirty;
    if (!GiveWay()) return;
    RunShowingErrors(dialog_, [&] {
        document_.Open(makePath(), source, wasDirty);
        TellMadeSmaller();
    });
}

void OpenSave::OpenAgain(const QString& path, Document::Source source) {
    if (!Enabled(Command::Drop, state_) || !GiveWay() || path.isEmpty()) return;
    RunShowingErrors(dialog_, [&] { document_.Open(path, source, /*wasDirty=*/false, Document::Size::Full); });
}

void OpenSave::TellMadeSmaller() {
    if (!document_.MadeSmaller()) return;
    const auto openFull = [this, path = document_.OpenedPath(), source = document_.OpenedBy()] {
        OpenAgain(path, source);
    };
    notes_.Show({tr("Made smaller, %1 to %2").arg(Size(document_.SizeInFile()), Size(document_.OpenedSize())),
                 {{tr("Open in full size"), openFull}}});
}

QString OpenSave::ProposedName() const {
    if (document_.OpenedPath().isEmpty()) return {};
    const QFileInfo opened(document_.OpenedPath());
    QString name = opened.completeBaseName();
    const QString effect = helpers_.effectName ? helpers_.effectName() : QString();
    if (!effect.isEmpty()) name += QStringLiteral(" - ") + effect;
    name = name.replace(u'/', u'-') + QStringLiteral(".png");
    // Among the temporary files nobody keeps anything.
    return Document::Passing(document_.OpenedBy()) ? name : opened.absoluteDir().filePath(name);
}

bool OpenSave::MayReplace(const QString& path) {
    const QString opened = QFileInfo(document_.OpenedPath()).canonicalFilePath();
    if (!document_.MadeSmaller() || opened.isEmpty() || QFileInfo(path).canonicalFilePath() != opened) return true;
    return dialog_
               .ShowMessage(
                   {tr("Confirm"),
                    tr("'%1' was made smaller when it was opened, from %2 to %3 pixels. Saved over it, its "
                       "full size is lost.\r\n\r\nSave over it all the same?\r\n")
                        .arg(state_.CurrentFileName, Size(document_.SizeInFile()), Size(document_.OpenedSize())),
                    MsgIcon::Exclamation, MsgButtons::YesNo})
               .answer == MsgAnswer::Yes;
}

void OpenSave::TellSaved(const QString& path, bool mayGoOn) {
    std::vector<NoteButton> buttons;
    if (mayGoOn) buttons = GoOnButtons();
    if (helpers_.showFolder)
        buttons.push_back(
            {tr("Show in folder"), [this, path] { helpers_.showFolder(QFileInfo(path).absolutePath()); }});
    notes_.Show({tr("Saved as %1").arg(QFileInfo(path).fileName()), buttons});
}

std::vector<NoteButton> OpenSave::GoOnButtons() {
    if (savedPath_.isEmpty()) return {};
    return {{tr("Go on with it"), [this] { OpenAgain(savedPath_, Document::Source::Drop); }}};
}

void OpenSave::TellAlreadySaved() { notes_.Show({ObstacleText(Obstacle::Saved), GoOnButtons()}); }

void OpenSave::PerformSave() {
    if (!Enabled(Command::Save, state_)) return;
    SaveImageNow();
    if (state_.ImageActive) SaveImageNow();
}

void OpenSave::SaveImageNow() {
    RunShowingErrors(dialog_, [&] {
        QString fileName = ProposedName();
        int filterIndex = SaveDialog::kPngFilter;
        if (!saveDialog_.Show(fileName, filterIndex) || !MayReplace(fileName)) return;
        const bool isPicture = filterIndex >= 1 && filterIndex < SaveDialog::kPdfFilter;
        bool written = false;
        if (filterIndex == SaveDialog::kPdfFilter) {
            written = helpers_.createPdf(fileName);
        } else if (isPicture) {
            document_.RunsBeside()([&] { document_.Canvas().SaveFile(fileName); });
            written = true;
        }
        // A PDF that failed counts as saved all the same, but is not.
        if (written) log_.Settled(fileName);
        state_.ImageDirty = false;
        state_.ImageActive = false;
        savedPath_ = isPicture ? fileName : QString();
        if (isPicture) TellSaved(fileName, /*mayGoOn=*/true);
    });
}

void OpenSave::Copy() {
    if (!Enabled(Command::Copy, state_)) return;
    RunShowingErrors(dialog_, [&] { CopyToClipboard(document_.Canvas().Picture(), document_.RunsBeside()); });
}

}  // namespace kelu
