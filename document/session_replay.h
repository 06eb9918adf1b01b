// Plays in the window's document what a journal or a recipe tells: brings back what was painted and not saved when the
// program ended, and paints a recipe.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "document/document.h"
#include "document/journal.h"
#include "document/left_journals.h"
#include "document/open_save.h"
#include "document/replay.h"
#include "platform/msg_dialog.h"

namespace kelu {

class SessionReplay : public QObject {
    Q_OBJECT

 public:
    struct Surroundings {
        QString folder;                         ///< of the journals
        EffectRenderer render;                  ///< called on a worker
        std::function<bool()> mayAsk;           ///< false while a dialog, a render or the camera has the window
        std::function<void(int)> showProgress;  ///< percent; 100 hides it
        std::function<void()> played;           ///< the document shows the picture; a brush may be made
    };

    SessionReplay(Document& document, OpenSave& openSave, SharedState& state, Journal& journal, MsgDialog& dialog,
                  Surroundings surroundings);

    /// Has a worker look for journals of earlier runs and asks about them, as soon as it may. Called once, when the
    /// start is over.
    void LookForJournals();
    /// Brings back what was left in this run of the program.
    void BringBack(const QString& journalPath);
    /// Paints the recipe on the open picture, as it was opened, or without one on the picture that it names.
    void PlayRecipe(const QString& path);

 private:
    struct Work {
        Recipe recipe;
        std::function<Photograph()> readPicture;
        bool fit = false;
        bool passing = false;
        std::shared_ptr<JournalFile> file;  ///< to go on with; null: a new one
    };

    void Ask();
    void BringBack(const LeftJournal& left);
    /// False when the user kept the present picture. Throws what the replay throws; the document is then as it was.
    bool Play(const Work& work);

    Document& document_;
    OpenSave& openSave_;
    SharedState& state_;
    Journal& journal_;
    MsgDialog& dialog_;
    Surroundings surroundings_;
    std::vector<LeftJournal> left_;
    QTimer patience_;
};

}  // namespace kelu
