// Apply: from the click to the armed brush. One frame serves all effects; what differs stands in the catalogue.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

#include "document/shared_state.h"

namespace kelu {

class EffectControls;
class PixTwix;
class RenderWindow;
class Surface;
struct Effect;
struct EffectInputs;

/// The render starts from the canvas as painted so far and ends on the pen; the canvas is only read. A step that fails
/// is passed over in silence: at worst the pen holds a copy of the canvas, and painting changes nothing visible.
class EffectApplication : public QObject {
    Q_OBJECT

 public:
    struct LastSteps {
        std::function<void()> setUpBrush;       ///< makes the brush anew from the pen
        std::function<void()> prepareReminder;  ///< tells the user to paint
    };

    EffectApplication(Surface& canvas, Surface& pen, PixTwix& engine, SharedState& state,
                      const EffectControls& controls, RenderWindow& window, LastSteps lastSteps);

    /// The click on Apply: applies the current effect, or does nothing without an open picture, during a render and for
    /// a number that is no effect.
    void ApplyClick();
    /// The application of one row. Ignored while another runs.
    void ApplySFX(const Effect& effect);

    /// What the last engine operation answered.
    bool EffectResult() const { return effectResult_; }

 private:
    void ApplyEngineEffect(const Effect& effect);
    void ApplyNeon();
    /// Runs a render and drops its failure; false when the user left it.
    bool RunRender(const std::function<void()>& render);
    void ReadColors(const Effect& effect, EffectInputs& inputs) const;
    bool CallEngine(const Effect& effect, EffectInputs& inputs);
    void ArmBrush();

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
    bool effectResult_ = false;
    bool applying_ = false;
    bool formShut_ = false;
};

}  // namespace kelu
