// From the chosen effect to its page.
// SPDX-License-Identifier: MIT
#include "app/help_topics.h"

#include "app/help_window.h"
#include "effects/catalogue/catalogue.h"

namespace kelu {

HelpTopics::HelpTopics(const SharedState& state, MsgDialog& dialog, const QString& folder)
    : state_(state), dialog_(dialog), folder_(folder) {}

HelpTopics::~HelpTopics() { delete window_; }

QString HelpTopics::PageOf(int currentSFX) {
    if (currentSFX == kSettingsTopic) return QStringLiteral("settings.html");
    const Effect* effect = FindEffect(currentSFX);
    return effect ? QString::fromLatin1(effect->helpPage) : QStringLiteral("index.html");
}

HelpWindow* HelpTopics::Window() const { return window_; }

void HelpTopics::LoadCHMFile() { ShowPage(PageOf(state_.CurrentSFX)); }

void HelpTopics::ShowPage(const QString& page) {
    RunShowingErrors(dialog_, [&] {
        if (!window_) window_ = new HelpWindow(folder_);
        window_->ShowPage(page);
        window_->Raise();
    });
}

}  // namespace kelu
