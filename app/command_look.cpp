// SPDX-License-Identifier: MIT
#include "app/command_look.h"

#include <QAbstractEventDispatcher>

#include "app/main_controls.h"
#include "canvas/surface.h"
#include "controls/tool_button/tool_button.h"
#include "effects/effect_application.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"

namespace kelu {

CommandLook::CommandLook(MainControls& controls, const Surface& canvas, const SharedState& state,
                         const EffectApplication& application)
    : controls_(controls), canvas_(canvas), state_(state), application_(application) {
    controls_.Button(Command::Original).setCheckable(true);
    // Either is raised in each turn of the event loop, depending on whether it may wait.
    const auto* loop = QAbstractEventDispatcher::instance();
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, &CommandLook::Refresh);
    connect(loop, &QAbstractEventDispatcher::awake, this, &CommandLook::Refresh);
}

QString CommandLook::WhatIsInTheWay(Command command) const {
    const Obstacle obstacle = ObstacleTo(command, state_);
    if (obstacle != Obstacle::None) return ObstacleText(obstacle);
    if (command == Command::Undo && !canvas_.CanUndo()) return tr("Nothing to undo");
    if (command == Command::Redo && !canvas_.CanRedo()) return tr("Nothing to redo");
    return {};
}

void CommandLook::Refresh() {
    if (!controls_.picCanvas->window()->isEnabled()) return;
    for (const CommandRow& row : kCommands) controls_.Button(row.command).SetObstacle(WhatIsInTheWay(row.command));
    controls_.Button(Command::Original).setChecked(state_.ShowingOriginal);
    controls_.selectors->SetObstacle(WhatIsInTheWay(Command::ChooseEffect));
    ToolButton& apply = *controls_.pnlSettings->cmdApply;
    apply.SetObstacle(WhatIsInTheWay(Command::Apply));
    apply.SetMark(Enabled(Command::Apply, state_) && application_.Due() ? tr("not applied yet") : QString());
}

}  // namespace kelu
