// SPDX-License-Identifier: MIT
#include "app/canvas_hand.h"

#include <QGuiApplication>
#include <QWheelEvent>

#include "app/command_keys.h"
#include "app/main_controls.h"
#include "controls/note/note_bar.h"
#include "controls/tool_button/tool_button.h"
#include "document/commands.h"
#include "document/painter.h"
#include "effects/effect_panel.h"
#include "view/key_brush.h"
#include "view/pen_pressure.h"
#include "view/point_picker.h"

namespace kelu {

CanvasHand::CanvasHand(MainControls& controls, Painter& painter, const CommandKeys& keys, const SharedState& state)
    : controls_(controls), painter_(painter), state_(state) {
    connect(controls_.picCanvas, &ImageX::MousePressed, this,
            [this](Qt::MouseButton, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, int, int,
                   const QPoint& imagePixel) {
                if (buttons == Qt::LeftButton && ObstacleTo(Command::Print, state_) == Obstacle::NoPicture) {
                    Q_EMIT PictureWanted();
                    return;
                }
                painter_.Press(buttons, modifiers, imagePixel);
                if (!(modifiers & Qt::ControlModifier)) Q_EMIT RenderUsed();
            });
    connect(controls_.picCanvas, &ImageX::MouseMoved, this,
            [this](Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, int, int, const QPoint& imagePixel) {
                painter_.Move(buttons, modifiers, imagePixel);
            });
    connect(&keys, &CommandKeys::ModifiersHeld, this, [this](Qt::KeyboardModifiers modifiers) {
        if (QGuiApplication::mouseButtons() == Qt::NoButton) painter_.Hover(modifiers);
    });
    controls_.picCanvas->installEventFilter(this);
    new KeyBrush(*controls_.picCanvas);
    FollowPen();
    FollowPoint();
}

bool CanvasHand::eventFilter(QObject*, QEvent* event) {
    const auto* wheel = event->type() == QEvent::Wheel ? static_cast<QWheelEvent*>(event) : nullptr;
    const ImageX& canvas = *controls_.picCanvas;
    if (wheel && !wheel->angleDelta().isNull() && !(wheel->modifiers() & Qt::ControlModifier) &&
        canvas.rect().contains(canvas.ImageRect().toAlignedRect()))
        TellWhatTheWheelDoes();
    return false;
}

void CanvasHand::TellWhatTheWheelDoes() {
    if (state_.CaptureBusy) return;
    const Obstacle obstacle = ObstacleTo(Command::ZoomIn, state_);
    controls_.note->Show(
        {obstacle == Obstacle::None ? tr("Hold Ctrl and turn the wheel to zoom") : ObstacleText(obstacle)});
}

void CanvasHand::FollowPen() {
    connect(new PenPressure(*controls_.picCanvas), &PenPressure::Changed, this,
            [this](double pressure) { painter_.SetPressure(pressure); });
}

void CanvasHand::FollowPoint() {
    auto* const picker = new PointPicker(*controls_.picCanvas);
    EffectPanel* const panel = controls_.pnlSettings;
    connect(panel->cmdPick, &ToolButton::toggled, picker, &PointPicker::SetPicking);
    connect(picker, &PointPicker::Ended, panel->cmdPick, [panel] { panel->cmdPick->setChecked(false); });
    connect(picker, &PointPicker::Picked, panel, &EffectPanel::SetPoint);
    connect(panel, &EffectPanel::PointShown, picker, &PointPicker::ShowMark);
}

}  // namespace kelu
