// The settings panel (pnlSettings): what the chosen effect lets the user set, the brush size and Apply.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QWidget>
#include <array>
#include <map>
#include <optional>

#include "document/shared_state.h"
#include "effects/effect_controls.h"

class QRadioButton;

namespace kelu {

class ColorPicker;
class CoordinateBox;
class ListEx;
class LsSlider;
class Pager;
class PanelLabel;
class PointInput;
class ToolButton;
class Toolbox;
struct Effect;
struct EffectColor;
struct EffectSlider;

/// Nothing on the panel is applied here: Apply reads it through EffectControls. All controls start hidden.
class EffectPanel : public QWidget, public EffectControls {
    Q_OBJECT

 public:
    explicit EffectPanel(SharedState& state, QWidget* parent = nullptr);

    /// Chooses effect `number` and sets the panel up for it; a number that no effect has does nothing. What the user
    /// had set is lost but for brush size, compass direction and (unless the effect writes them) the coordinates.
    void SetUp(int number);
    /// Tips of the compass buttons.
    void LoadTips();
    /// Rails and thumbs, sharp on a screen of this ratio.
    void DrawSliders(qreal ratio);
    /// The point was picked on the picture. It counts, as it is, until a box is edited or an effect chosen.
    void SetPoint(const QPoint& imagePixel);
    /// The inputs of this moment were applied; a right click on a slider offers them again.
    void RememberApplied();

    int XCoordinate() const override;
    int YCoordinate() const override;
    qint32 PickerValue(int picker) const override;
    int SliderValue(int slider) const override;

    QSize sizeHint() const override;

    // The controls, children of the panel, made once and never exchanged; each carries its name as object name.
    PanelLabel* const lblDesc;  // first: it lies below the others
    PanelLabel* const lblBS;
    LsSlider* const sldBrushSize;
    const std::array<LsSlider*, 3> sldValue;  ///< sldValue1 to sldValue3
    ListEx* const lstValue;
    Toolbox* const TBCompass;
    Pager* const PagerCompass;
    const std::array<ColorPicker*, 2> CPicker;  ///< CPicker1 and CPicker2
    PanelLabel* const lblCoords;
    CoordinateBox* const txtXCoord;
    CoordinateBox* const txtYCoord;
    ToolButton* const cmdPick;                 ///< while it is checked, a click on the picture sets the point
    const std::array<QRadioButton*, 2> OptGS;  ///< OptGS1 and OptGS2
    const std::array<PanelLabel*, 2> lblGS;    ///< indices 0 and 1
    ToolButton* const cmdApply;

 Q_SIGNALS:
    /// The point of the chosen effect, to be marked on the picture while the pointer is over the panel; none: no mark.
    void PointShown(const std::optional<QPoint>& imagePixel);

 protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    /// Enter, where no control of the panel has a use of its own for it, presses Apply.
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void Place();
    void Connect();

    void LoadValueList(const Effect& effect);
    void SetUpSlider(LsSlider& slider, const EffectSlider& input);
    void SetUpCoordinates(const Effect& effect);
    void SetUpColor(ColorPicker& picker, const EffectColor& input);
    void SetUpOptions(const Effect& effect);

    void ValueListSelected();
    void OptionMarked(int option);
    void CompassClicked(int button);
    void ShowPoint();

    SharedState& state_;
    PointInput* const point_;
    std::map<int, std::array<int, 3>> applied_;  ///< by effect: the sliders at its last Apply
    std::optional<int> appliedBrush_;
};

}  // namespace kelu
