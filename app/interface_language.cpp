// SPDX-License-Identifier: MIT
#include "app/interface_language.h"

#include <QCoreApplication>

#include "capture/capture_panel.h"
#include "controls/status_bar/status_bar.h"
#include "controls/tool_button/tool_button.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::MainWindow)
};

}  // namespace

QString VersionText() { return QStringLiteral(" v%1  by Tarvane Design").arg(QCoreApplication::applicationVersion()); }

void LoadLanguage(MainControls& controls, const SharedState& state) {
    for (const CommandRow& row : kCommands) {
        const QString tip = CommandTip(row);
        const QString key = KeyText(row.key);
        controls.Button(row.command).SetTip(tip);
        if (!tip.contains(key)) controls.Button(row.command).SetKey(key);
    }
    controls.Button(Command::Restore).SetTip(state.WindowMaximised ? Texts::tr("Restore Down") : Texts::tr("Maximize"));
    controls.sBar1->SetPanelText(1, VersionText());
    controls.selectors->LoadTips();
    controls.pnlSettings->LoadTips();
    controls.picCapContainer->LoadTips();
}

}  // namespace kelu
