// The steps of an application and what progress does to the window meanwhile.
// SPDX-License-Identifier: MIT
#include "effects/effect_application.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include "canvas/surface.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/pix_twix.h"
#include "effects/effect_controls.h"
#include "effects/render_window.h"
#include "platform/error.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr int kEngineDone = 100;
constexpr int kPenDone = 99;

}  // namespace

EffectApplication::EffectApplication(Surface& canvas, Surface& pen, PixTwix& engine, SharedState& state,
                                     const EffectControls& controls, RenderWindow& window, LastSteps lastSteps)
    : canvas_(canvas),
      pen_(pen),
      engine_(engine),
      state_(state),
      controls_(controls),
      window_(window),
      lastSteps_(std::move(lastSteps)) {
    connect(&engine_, &PixTwix::FxProgress, this, &EffectApplication::EngineProgress);
    connect(&pen_, &Surface::Progress, this, &EffectApplication::PenProgress);
}

void EffectApplication::ApplyClick() {
    if (!state_.ImageActive) return;
    if (const Effect* effect = FindEffect(state_.CurrentSFX)) ApplySFX(*effect);
}

void EffectApplication::ApplySFX(const Effect& effect) {
    // Before the first report nothing shuts the window, and short renders make none.
    if (applying_) return;
    const QScopedValueRollback<bool> once(applying_, true);
    if (effect.number == kNeon)
        ApplyNeon();
    else
        ApplyEngineEffect(effect);
}

void EffectApplication::ApplyEngineEffect(const Effect& effect) {
    EffectInputs inputs;
    if (effect.ShowsCoordinates()) {
        Attempt([&] { inputs.x = controls_.XCoordinate(); });
        Attempt([&] { inputs.y = controls_.YCoordinate(); });
    }
    effectResult_ = false;
    const QImage penBefore = pen_.Picture();
    // Sharing, not copying: a picture costs memory only once one of its holders is written.
    Attempt([&] { pen_.SetPicture(canvas_.Picture()); });
    Attempt([&] { engine_.SetPicture(pen_.Picture()); });
    ReadColors(effect, inputs);
    const bool left = !RunRender([&] { effectResult_ = CallEngine(effect, inputs); });
    if (formShut_) EngineProgress(kEngineDone);  // an operation that ended without its last report
    Attempt([&] { window_.RunEventLoopOnce(); });
    if (left) return Attempt([&] { pen_.SetPicture(penBefore); });
    if (effectResult_) Attempt([&] { pen_.SetPicture(engine_.Picture()); });
    ArmBrush();
}

void EffectApplication::ApplyNeon() {
    const QImage penBefore = pen_.Picture();
    Attempt([&] { pen_.SetPicture(canvas_.Picture()); });
    const bool left = !RunRender([&] { window_.RunRender([&] { pen_.NeonFilter(); }); });
    if (formShut_) PenProgress(kPenDone);
    if (left) return Attempt([&] { pen_.SetPicture(penBefore); });
    ArmBrush();
}

bool EffectApplication::RunRender(const std::function<void()>& render) {
    bool done = true;
    try {
        render();
    } catch (const WorkCancelled&) {
        done = false;
    } catch (const std::exception&) {
        // As any failure of a step.
    }
    // Reports of another thread that are still on their way: the last one opens the window again.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return done;
}

void EffectApplication::ReadColors(const Effect& effect, EffectInputs& inputs) const {
    if (effect.color1.label) Attempt([&] { inputs.color1 = SplitColor(controls_.PickerValue(1)); });
    if (effect.color2.label) Attempt([&] { inputs.color2 = SplitColor(controls_.PickerValue(2)); });
}

bool EffectApplication::CallEngine(const Effect& effect, EffectInputs& inputs) {
    for (std::size_t i = 0; i < effect.sliders.size(); ++i)
        if (effect.sliders[i].label) inputs.slider[i] = controls_.SliderValue(static_cast<int>(i) + 1);
    if (effect.choice.variable) inputs.choice = state_.*effect.choice.variable;
    bool done = false;
    window_.RunRender([&] {
        done = RenderEffect(effect, inputs, engine_);
        if (!done && WorkReport().Cancelled()) throw WorkCancelled();
    });
    return done;
}

void EffectApplication::ArmBrush() {
    state_.EffectReady = true;
    Attempt(lastSteps_.setUpBrush);
    Attempt(lastSteps_.prepareReminder);
}

void EffectApplication::EngineProgress(int percent) {
    state_.ImageActive = percent >= kEngineDone;
    if (percent < kEngineDone)
        ShowProgress(percent);
    else
        HideProgress();
    Attempt([&] { window_.RunEventLoopOnce(); });
}

void EffectApplication::PenProgress(int percent) {
    if (percent < kPenDone)
        ShowProgress(percent);
    else if (percent == kPenDone)
        HideProgress();
    Attempt([&] { window_.RunEventLoopOnce(); });
}

void EffectApplication::ShowProgress(int percent) {
    formShut_ = true;
    Attempt([&] { window_.SetFormEnabled(false); });
    Attempt([&] { window_.SetProgressVisible(true); });
    Attempt([&] { window_.SetProgress(percent); });
}

void EffectApplication::HideProgress() {
    formShut_ = false;
    Attempt([&] { window_.SetFormEnabled(true); });
    Attempt([&] { window_.SetProgressVisible(false); });
}

}  // namespace kelu
