// SPDX-License-Identifier: MIT
#include "document/session_replay.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QScopeGuard>

#include "document/journal_file.h"
#include "pictures/picture_file.h"
#include "platform/error.h"
#include "platform/pool_job.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr int kAskAgain = 300;  // ms

QString Line(const QString& text) { return text + QStringLiteral("\r\n"); }

}  // namespace

SessionReplay::SessionReplay(Document& document, OpenSave& openSave, SharedState& state, Journal& journal,
                             MsgDialog& dialog, Surroundings surroundings)
    : document_(document),
      openSave_(openSave),
      state_(state),
      journal_(journal),
      dialog_(dialog),
      surroundings_(std::move(surroundings)) {
    patience_.setInterval(kAskAgain);
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &SessionReplay::Ask);
}

void SessionReplay::LookForJournals() {
    const QPointer<SessionReplay> self(this);
    StartJob([self, folder = surroundings_.folder] {
        auto found = std::make_shared<std::vector<LeftJournal>>(FindLeftJournals(folder));
        if (found->empty()) return;
        HandBack(QCoreApplication::instance(), [self, found] {
            if (!self) return;
            self->left_ = std::move(*found);
            self->Ask();
        });
    });
}

void SessionReplay::Ask() {
    while (!left_.empty()) {
        if (!surroundings_.mayAsk()) return patience_.start();
        const LeftJournal left = std::move(left_.front());
        left_.erase(left_.begin());
        const MsgReply reply = dialog_.ShowMessage(
            {tr("Bring back"),
             Line(tr("Kelu ended while '%1' had unsaved strokes. Bring them back?").arg(left.PictureName())),
             MsgIcon::Exclamation, MsgButtons::YesNoCancel});
        if (reply.answer == MsgAnswer::No) {
            Attempt([&] { left.file->Remove(); });
            continue;
        }
        // There is room for one picture. The others, and one that is not decided on, are for the next start.
        left_.clear();
        if (reply.answer == MsgAnswer::Yes) BringBack(left);
    }
}

void SessionReplay::BringBack(const QString& journalPath) {
    RunShowingErrors(dialog_, [&] { BringBack(ReadLeftJournal(journalPath)); });
}

void SessionReplay::BringBack(const LeftJournal& left) {
    try {
        if (left.recipe.effects != kEffectDefinitions)
            throw Error(kFileError, tr("another version of Kelu made them, with other effects"));
        const auto readPicture = [&] { return ReadJournalPicture(left.recipe); };
        if (!Play({left.recipe, readPicture, false, !left.recipe.kept.name.isEmpty(), left.file}) || !left.damaged)
            return;
        dialog_.ShowMessage({tr("Bring back"),
                             Line(tr("The record of '%1' was damaged at its end. What stood before that is back.")
                                      .arg(left.PictureName())),
                             MsgIcon::Information});
    } catch (const std::exception& error) {
        dialog_.ShowMessage(
            {tr("Bring back"),
             Line(tr("The strokes on '%1' can't be brought back: %2.").arg(left.PictureName(), DescriptionOf(error))),
             MsgIcon::Error});
    }
}

void SessionReplay::PlayRecipe(const QString& path) {
    if (state_.CaptureBusy) return;
    RunShowingErrors(dialog_, [&] {
        Work work;
        work.recipe = ReadRecipeFile(path);
        CheckWhole(work.recipe);
        work.recipe.isJournal = false;
        const OpenedPicture& open = journal_.Picture();
        if (state_.ImageActive && !open.path.isEmpty()) {
            work.recipe.file = open.path;
            work.recipe.shrunk = false;
            work.fit = true;
            work.passing = open.passing;
            work.readPicture = [opened = open.opened] { return opened; };
        } else {
            work.recipe.file = PictureOfRecipe(work.recipe, path);
            work.readPicture = [file = work.recipe.file] { return ReadPhotograph(file); };
        }
        Play(work);
    });
}

bool SessionReplay::Play(const Work& work) {
    if (state_.ImageDirty && !openSave_.SettleChanges()) return false;
    Surfaces made;
    Replay replay(work.recipe, made, surroundings_.render);
    {
        const auto atEnd = qScopeGuard([this] { surroundings_.showProgress(100); });
        RunBeside([&] {
            replay.Open(work.readPicture(), work.fit);
            replay.DoAll([this](int percent) {
                HandBack(this, [this, percent] { surroundings_.showProgress(percent); });
                return true;
            });
        });
    }
    document_.TakeOver(made, work.recipe.file, work.passing ? Document::Source::Paste : Document::Source::Drop,
                       replay.EffectReady());
    OpenedPicture picture{work.recipe.file,
                          {document_.Original().Picture(), document_.Original().Told()},
                          replay.What().shrunk,
                          work.passing,
                          replay.FirstBrush()};
    journal_.Resume(replay.What(), picture, work.file);
    surroundings_.played();
    return true;
}

}  // namespace kelu
