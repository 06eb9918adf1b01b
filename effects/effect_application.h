// Apply: from the click to the armed brush. One frame serves all effects; what differs stands in the catalogue.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

#include "canvas/render_picture.h"
#include "document/effect_inputs.h"
#include "document/session_log.h"
#include "document/shared_state.h"

namespace kelu {

class EffectControls;
class PixTwix;
class RenderWindow;
class Surface;
struct Effect;

/// The render starts from the canvas as painted so far and ends on the pen; the canvas is only read. A step that fails
/// is passed over in silence: at worst the pen holds a copy of the canvas, and painting changes nothing visible.
class EffectApplication : public QObject {
    Q_OBJECT

 public:
    struct LastSteps {
        std::function<void()> setUpBrush;       ///< makes the brush anew from the pen
        std::function<void()> prepareReminder;  ///< tells the user to paint
        std::function<void()> tellNoMemory;     ///< last, when render or brush found none
    };

    EffectApplication(Surface& canvas, Surface& pen, PixTwix& engine, SharedState& state,
                      const EffectControls& controls, RenderWindow& window, LastSteps lastSteps,
                      SessionLog& log = SessionLog::None());

    /// The click on Apply: applies the current effect, or does nothing without an open picture, during a render and for
    /// a number that is no effect.
    void ApplyClick();
    /// The application of one row. Ignored while another runs.
    void ApplySFX(const Effect& effect);

    /// What the last render on the engine answered.
    bool EffectResult() const { return effectResult_; }

    /// Number of the effect that was rendered last; 0: none.
    int RenderedEffect() const { return renderedEffect_; }
    /// Whether effect or inputs differ from those of the last render.
    bool InputsChanged() const;
    /// Whether Apply would give the pen another picture: effect, inputs or canvas differ from those of the last render,
    /// or there was none.
    bool Due() const { return canvasChanged_ || InputsChanged(); }

 private:
    enum class Outcome { Rendered, Failed, Left };  ///< Left: the user did not want to wait
    Outcome RenderOnEngine(const Effect& effect, EffectInputs& inputs);
    Outcome RenderOnPen(const Effect& effect, EffectInputs& inputs);
    /// Runs a render and drops its failure; false when the user left it.
    bool RunRender(const std::function<void()>& render);
    void ReadPoint(const Effect& effect, EffectInputs& inputs) const;
    void ReadColors(const Effect& effect, EffectInputs& inputs) const;
    void ReadRest(const Effect& effect, EffectInputs& inputs) const;
    EffectInputs InputsNow(const Effect& effect) const;
    /// Reads what is left of the inputs; what it gives refers to the arguments.
    Renderer RendererOf(const Effect& effect, EffectInputs& inputs) const;
    void ArmBrush(const Effect& effect, const EffectInputs& inputs);

    void EngineProgress(int percent);
    void PenProgress(int percent);
    void ShowProgress(int percent);
    void HideProgress();

    Surface& canvas_;
    Surface& pen_;
    PixTwix& engine_;
    SharedState& state_;
    const EffectControls& controls_;
    RenderWindow& window_;
    LastSteps lastSteps_;
    SessionLog& log_;
    int renderedEffect_ = 0;  // of the last render, as the next two
    EffectInputs renderedInputs_;
    bool canvasChanged_ = true;
    bool effectResult_ = false;
    bool applying_ = false;
    bool lackedMemory_ = false;  // the render under way
    bool formShut_ = false;
};

}  // namespace kelu
