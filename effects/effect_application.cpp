// The steps of an application and what progress does to the window meanwhile.
// SPDX-License-Identifier: MIT
#include "effects/effect_application.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include "canvas/surface.h"
#include "document/commands.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/pix_twix.h"
#include "effects/catalogue/render_onto.h"
#include "effects/effect_controls.h"
#include "effects/render_window.h"
#include "platform/lack_of_memory.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr int kEngineDone = 100;
constexpr int kPenDone = 99;

}  // namespace

EffectApplication::EffectApplication(Surface& canvas, Surface& pen, PixTwix& engine, SharedState& state,
                                     const EffectControls& controls, RenderWindow& window, LastSteps lastSteps,
                                     SessionLog& log)
    : canvas_(canvas),
      pen_(pen),
      engine_(engine),
      state_(state),
      controls_(controls),
      window_(window),
      lastSteps_(std::move(lastSteps)),
      log_(log) {
    connect(&engine_, &PixTwix::FxProgress, this, &EffectApplication::EngineProgress);
    connect(&pen_, &Surface::Progress, this, &EffectApplication::PenProgress);
    connect(&canvas_, &Surface::PictureReplaced, this, [this] { canvasChanged_ = true; });
    connect(&canvas_, &Surface::PictureChanged, this, [this] { canvasChanged_ = true; });
}

void EffectApplication::ApplyClick() {
    if (!Enabled(Command::Apply, state_)) return;
    if (const Effect* effect = FindEffect(state_.CurrentSFX)) ApplySFX(*effect);
}

void EffectApplication::ApplySFX(const Effect& effect) {
    // Before the first report nothing shuts the window, and short renders make none.
    if (applying_) return;
    const QScopedValueRollback<bool> once(applying_, true);
    lackedMemory_ = false;
    EffectInputs inputs;
    ReadPoint(effect, inputs);
    const QImage penBefore = pen_.Picture();
    // Sharing, not copying: a picture costs memory only once one of its holders is written.
    Attempt([&] { pen_.SetPicture(canvas_.Picture()); });
    const Outcome outcome = effect.fills == Fills::Pen ? RenderOnPen(effect, inputs) : RenderOnEngine(effect, inputs);
    if (outcome == Outcome::Left) return Attempt([&] { pen_.SetPicture(penBefore); });
    log_.Applied(effect.number, inputs, outcome == Outcome::Rendered);
    ArmBrush(effect, inputs);
}

EffectApplication::Outcome EffectApplication::RenderOnEngine(const Effect& effect, EffectInputs& inputs) {
    effectResult_ = false;
    Attempt([&] { engine_.SetPicture(pen_.Picture()); });
    ReadColors(effect, inputs);
    const bool left = !RunRender([&] {
        const Renderer render = RendererOf(effect, inputs);
        window_.RunRender([&] {
            effectResult_ = engine_.Render(render);
            lackedMemory_ = engine_.LackedMemory();
            if (!effectResult_ && WorkReport().Cancelled()) throw WorkCancelled();
        });
    });
    if (formShut_) EngineProgress(kEngineDone);  // a render that ended without its last report
    Attempt([&] { window_.RunEventLoopOnce(); });
    if (left) return Outcome::Left;
    if (effectResult_) Attempt([&] { pen_.SetPicture(engine_.Picture()); });
    return effectResult_ ? Outcome::Rendered : Outcome::Failed;
}

EffectApplication::Outcome EffectApplication::RenderOnPen(const Effect& effect, EffectInputs& inputs) {
    ReadColors(effect, inputs);
    bool rendered = false;
    const bool left = !RunRender([&] {
        const Renderer render = RendererOf(effect, inputs);
        window_.RunRender([&] { pen_.Render(render); });
        rendered = true;
    });
    if (formShut_) PenProgress(kPenDone);
    return left ? Outcome::Left : rendered ? Outcome::Rendered : Outcome::Failed;
}

void EffectApplication::ReadPoint(const Effect& effect, EffectInputs& inputs) const {
    if (!effect.ShowsCoordinates()) return;
    Attempt([&] { inputs.x = controls_.XCoordinate(); });
    Attempt([&] { inputs.y = controls_.YCoordinate(); });
}

bool EffectApplication::RunRender(const std::function<void()>& render) {
    bool done = true;
    try {
        render();
    } catch (const WorkCancelled&) {
        done = false;
    } catch (const std::exception& failure) {
        // As any failure of a step.
        lackedMemory_ = IsLackOfMemory(failure);
    }
    // Reports of another thread that are still on their way: the last one opens the window again.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return done;
}

void EffectApplication::ReadColors(const Effect& effect, EffectInputs& inputs) const {
    if (effect.color1.label) Attempt([&] { inputs.color1 = SplitColor(controls_.PickerValue(1)); });
    if (effect.color2.label) Attempt([&] { inputs.color2 = SplitColor(controls_.PickerValue(2)); });
}

Renderer EffectApplication::RendererOf(const Effect& effect, EffectInputs& inputs) const {
    ReadRest(effect, inputs);
    return [&](const QImage& picture, const engine::Run& run) { return RenderOnto(effect, inputs, picture, run); };
}

void EffectApplication::ReadRest(const Effect& effect, EffectInputs& inputs) const {
    for (std::size_t i = 0; i < effect.sliders.size(); ++i)
        if (effect.sliders[i].label) inputs.slider[i] = controls_.SliderValue(static_cast<int>(i) + 1);
    if (effect.choice.variable) inputs.choice = state_.*effect.choice.variable;
}

EffectInputs EffectApplication::InputsNow(const Effect& effect) const {
    EffectInputs inputs;
    ReadPoint(effect, inputs);
    ReadColors(effect, inputs);
    Attempt([&] { ReadRest(effect, inputs); });
    return inputs;
}

bool EffectApplication::InputsChanged() const {
    const Effect* effect = FindEffect(state_.CurrentSFX);
    return effect && (effect->number != renderedEffect_ || InputsNow(*effect) != renderedInputs_);
}

void EffectApplication::ArmBrush(const Effect& effect, const EffectInputs& inputs) {
    renderedEffect_ = effect.number;
    renderedInputs_ = inputs;
    canvasChanged_ = false;
    state_.EffectReady = true;
    try {
        lastSteps_.setUpBrush();
    } catch (const std::exception& failure) {
        lackedMemory_ = lackedMemory_ || IsLackOfMemory(failure);
    }
    Attempt(lastSteps_.prepareReminder);
    if (lackedMemory_) lastSteps_.tellNoMemory();
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
