// Which page of the help fits what the user is doing, and the window that shows it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>

#include "document/shared_state.h"
#include "platform/msg_dialog.h"

namespace kelu {

class HelpWindow;

class HelpTopics {
 public:
    /// `folder` holds the pages.
    HelpTopics(const SharedState& state, MsgDialog& dialog, const QString& folder);
    ~HelpTopics();

    /// The page's file name for a value of CurrentSFX; the index for every value that has no page of its own.
    static QString PageOf(int currentSFX);

    /// Opens the page that fits in the help window, which is made at the first use and then stays where the user put
    /// it.
    void LoadCHMFile();
    /// The same for a page by its name, with "#" and a place on it.
    void ShowPage(const QString& page);
    /// Null before the first use.
    HelpWindow* Window() const;

 private:
    const SharedState& state_;
    MsgDialog& dialog_;
    QString folder_;
    QPointer<HelpWindow> window_;
};

}  // namespace kelu
