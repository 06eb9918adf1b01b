// Makes and places the controls of the settings panel, and sets them up by the row of the chosen effect.
// SPDX-License-Identifier: MIT
#include "effects/effect_panel.h"

#include <QKeyEvent>
#include <QRadioButton>
#include <QStyle>

#include "controls/color_picker/color_picker.h"
#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/slider/ls_slider.h"
#include "controls/theme/slider_pictures.h"
#include "controls/theme/theme.h"
#include "controls/tool_button/tool_button.h"
#include "controls/toolbox/toolbox.h"
#include "document/painter.h"
#include "effects/catalogue/catalogue.h"
#include "effects/coordinate_box.h"
#include "effects/panel_label.h"
#include "effects/point_input.h"
#include "effects/slider_menu.h"
#include "effects/slider_number.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr QSize kPanelTwips{1935, 3135};
constexpr int kRailPixels = 1755 / kTwipsPerPixel - 4;  // the rail's picture fixes the slider's length, 4 more
constexpr int kBrushStart = 50;
constexpr int kGapAboveApply = 6;  // pixels, as the next
constexpr int kSideGap = 8;

// A list that may reach under the button below it: its frame, rows and scroll bar then end above the button.
class ValueList : public ListEx {
 public:
    explicit ValueList(QWidget* parent) : ListEx(parent), belowScrollBar_(new QWidget) {
        addScrollBarWidget(belowScrollBar_, Qt::AlignBottom);
    }
    void KeepClearOf(const QWidget& below) {
        const int hidden = qMax(0, geometry().bottom() + 1 + kGapAboveApply - below.y());
        setMask(hidden > 0 ? QRegion(0, 0, width(), height() - hidden) : QRegion());
        setViewportMargins(0, 0, 0, hidden);
        belowScrollBar_->setFixedHeight(hidden);
    }

 private:
    QWidget* belowScrollBar_;
};

template <typename Control>
Control* Named(Control* control, const char* name) {
    control->setObjectName(QString::fromLatin1(name));
    control->hide();
    return control;
}

void PlaceInTwips(QWidget* control, int left, int top, int width, int height) {
    const QWidget& panel = *control->parentWidget();
    control->setGeometry(
        QStyle::visualRect(panel.layoutDirection(), panel.rect(), TwipsToPixels(QRectF(left, top, width, height))));
}

void MoveTop(QWidget* control, int topTwips) {
    if (topTwips) control->move(control->x(), TwipsToPixels(topTwips));
}

// The slider shows its value only while it is dragged; what it sets is told to who hovers and to assistive technology.
void Describe(LsSlider& slider, const QString& label) {
    slider.setAccessibleName(label);
    slider.setToolTip(QStringLiteral("%1: %2").arg(label).arg(slider.Value()));
}

LsSlider* MakeSlider(QWidget* parent, const char* name) {
    auto* slider = Named(new LsSlider(parent), name);
    slider->SetOrientation(LsSlider::kHorizontal);
    const QColor ground = theme::kGround;
    slider->SetBackColor(static_cast<ColorRef>(PickerColor(ground.red(), ground.green(), ground.blue())));
    slider->SetRailStyle(LsSlider::kPictureRail);
    QObject::connect(slider, &LsSlider::ValueChanged, slider,
                     [slider] { Describe(*slider, slider->accessibleName()); });
    new SliderNumber(*slider);
    return slider;
}

}  // namespace

EffectPanel::EffectPanel(SharedState& state, QWidget* parent)
    : QWidget(parent),
      lblDesc(Named(new PanelLabel(this), "lblDesc")),
      lblBS(Named(new PanelLabel(this), "lblBS")),
      sldBrushSize(MakeSlider(this, "sldBrushSize")),
      sldValue{MakeSlider(this, "sldValue1"), MakeSlider(this, "sldValue2"), MakeSlider(this, "sldValue3")},
      lstValue(Named<ListEx>(new ValueList(this), "lstValue")),
      TBCompass(new Toolbox),
      PagerCompass(Named(new Pager(Qt::Horizontal, this), "PagerCompass")),
      CPicker{Named(new ColorPicker(this), "CPicker1"), Named(new ColorPicker(this), "CPicker2")},
      lblCoords(Named(new PanelLabel(this), "lblCoords")),
      txtXCoord(Named(new CoordinateBox(this), "txtXCoord")),
      txtYCoord(Named(new CoordinateBox(this), "txtYCoord")),
      cmdPick(Named(new ToolButton(QStringLiteral("crosshair"), this), "cmdPick")),
      OptGS{Named(new QRadioButton(this), "OptGS1"), Named(new QRadioButton(this), "OptGS2")},
      lblGS{Named(new PanelLabel(this), "lblGS0"), Named(new PanelLabel(this), "lblGS1")},
      cmdApply(Named(new ToolButton(this), "cmdApply")),
      state_(state),
      point_(new PointInput(*txtXCoord, *txtYCoord)) {
    setObjectName(QStringLiteral("pnlSettings"));
    QPalette colors = palette();
    colors.setColor(QPalette::Window, theme::kGround);
    setPalette(colors);
    setAutoFillBackground(true);

    lblBS->SetCaption(tr("Brush Size"));
    lblDesc->setWordWrap(true);
    lblDesc->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblCoords->SetCaption(tr("X,Y Coordinates"));
    cmdApply->SetCaption(tr("  Apply"));
    cmdApply->SetLook(ToolButton::Look::Primary);
    txtXCoord->setText(QString::number(kDefaultX));
    txtYCoord->setText(QString::number(kDefaultY));
    txtXCoord->setAccessibleName(tr("X coordinate"));
    cmdPick->SetTip(tr("Pick the point on the picture"));
    cmdPick->setCheckable(true);
    txtYCoord->setAccessibleName(tr("Y coordinate"));

    sldBrushSize->SetMax(kLargestBrush);
    sldBrushSize->SetMin(kSmallestBrush);
    sldBrushSize->SetValue(kBrushStart);
    Describe(*sldBrushSize, lblBS->text());

    TBCompass->setObjectName(QStringLiteral("TBCompass"));
    FillCompass(*TBCompass);
    TBCompass->SetCurrent(kDefaultDirection);
    PagerCompass->SetChild(TBCompass);
    PagerCompass->setLayoutDirection(Qt::LeftToRight);  // west is at the left in every language

    DrawSliders(devicePixelRatioF());
    Place();
    Connect();
}

void EffectPanel::DrawSliders(qreal ratio) {
    for (LsSlider* slider : {sldBrushSize, sldValue[0], sldValue[1], sldValue[2]}) {
        slider->SetRailPicture(theme::SliderRail(kRailPixels, ratio));
        slider->SetSliderIcon(theme::SliderThumb(ratio));
    }
}

QSize EffectPanel::sizeHint() const {
    return {TwipsToPixels(kPanelTwips.width()), TwipsToPixels(kPanelTwips.height())};
}

void EffectPanel::Place() {
    resize(sizeHint());
    PlaceInTwips(lblBS, 120, 75, 750, 165);
    PlaceInTwips(sldBrushSize, 90, 300, 1755, 360);
    PlaceInTwips(lblDesc, 120, 730, 1680, 1170);
    PlaceInTwips(sldValue[0], 90, 1200, 1755, 360);
    PlaceInTwips(sldValue[1], 90, 1660, 1755, 360);
    PlaceInTwips(sldValue[2], 90, 2160, 1755, 360);
    PlaceInTwips(lstValue, 90, 1200, 1755, 1215);
    PlaceInTwips(PagerCompass, 90, 2130, 1755, 405);
    PlaceInTwips(CPicker[0], 195, 1560, 735, 495);
    PlaceInTwips(CPicker[1], 1080, 1560, 735, 495);
    PlaceInTwips(lblCoords, 120, 1905, 1095, 165);
    PlaceInTwips(txtXCoord, 240, 2175, 495, 315);
    PlaceInTwips(txtYCoord, 1080, 2175, 495, 315);
    PlaceInTwips(cmdPick, 765, 2190, 285, 285);
    PlaceInTwips(OptGS[0], 120, 1200, 255, 255);
    PlaceInTwips(OptGS[1], 120, 1440, 255, 255);
    PlaceInTwips(lblGS[0], 405, 1215, 870, 165);
    PlaceInTwips(lblGS[1], 405, 1470, 645, 165);
    PlaceInTwips(cmdApply, 350, 2640, 1245, 385);
    if (theme::TextScale() == 1) return;
    // Larger letters take the room that is free at their end and below them.
    for (PanelLabel* label : {lblBS, lblCoords, lblGS[0], lblGS[1]}) {
        const QRect place = QStyle::visualRect(layoutDirection(), rect(), label->geometry());
        const QRect wide(place.topLeft(), QPoint(width() - kSideGap, place.top() + label->fontMetrics().height()));
        label->setGeometry(QStyle::visualRect(layoutDirection(), rect(), wide));
    }
}

void EffectPanel::Connect() {
    connect(lstValue, &ListEx::SelectionChanged, this, &EffectPanel::ValueListSelected);
    connect(TBCompass, &Toolbox::ButtonClicked, this, [this](int index) { CompassClicked(index); });
    for (std::size_t i = 0; i < OptGS.size(); ++i) {
        const int option = static_cast<int>(i) + 1;
        connect(OptGS[i], &QRadioButton::clicked, this, [this, option] { OptionMarked(option); });
        connect(OptGS[i], &QRadioButton::toggled, this, [this, option](bool marked) {
            if (marked) OptionMarked(option);
        });
        connect(lblGS[i], &PanelLabel::Pressed, OptGS[i], &QRadioButton::click);
    }
    connect(point_, &PointInput::Changed, this, &EffectPanel::ShowPoint);
    AddSliderMenu(*sldBrushSize, [this] { return OfferedValues{appliedBrush_, kBrushStart}; });
    for (std::size_t i = 0; i < sldValue.size(); ++i)
        AddSliderMenu(*sldValue[i], [this, i] {
            const auto applied = applied_.find(state_.CurrentSFX);
            const Effect* effect = FindEffect(state_.CurrentSFX);
            return OfferedValues{applied == applied_.end() ? std::nullopt : std::optional(applied->second[i]),
                                 effect ? effect->sliders[i].value : sldValue[i]->Value()};
        });
}

void EffectPanel::RememberApplied() {
    applied_[state_.CurrentSFX] = {sldValue[0]->Value(), sldValue[1]->Value(), sldValue[2]->Value()};
    appliedBrush_ = sldBrushSize->Value();
}

void EffectPanel::SetPoint(const QPoint& imagePixel) { point_->SetPicked(imagePixel); }

void EffectPanel::ShowPoint() {
    const bool shown = underMouse() && lblCoords->isVisible();
    Q_EMIT PointShown(shown ? std::optional(point_->Point()) : std::nullopt);
}

void EffectPanel::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    ShowPoint();
}

void EffectPanel::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    Q_EMIT PointShown(std::nullopt);
}

void EffectPanel::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat() && cmdApply->isVisible())
        cmdApply->animateClick();
    else
        QWidget::keyPressEvent(event);
}

void EffectPanel::LoadTips() {
    int button = 0;
    for (const char* tip : kCompassTips) TBCompass->SetTip(++button, EffectText(tip));
}

void EffectPanel::SetUp(int number) {
    const Effect* found = FindEffect(number);
    if (!found) return;
    const Effect& effect = *found;
    const bool list = effect.choice.kind == EffectChoice::Kind::List;
    const bool compass = effect.choice.kind == EffectChoice::Kind::Compass;

    // First, because the list's selection is filed under the current effect.
    state_.CurrentSFX = static_cast<std::int16_t>(number);
    if (list) LoadValueList(effect);

    lblBS->show();
    sldBrushSize->show();
    lblDesc->SetCaption(effect.PanelCaption());
    lblDesc->show();

    MoveTop(sldValue[0], effect.tops.sldValue1);
    for (std::size_t i = 0; i < sldValue.size(); ++i) SetUpSlider(*sldValue[i], effect.sliders[i]);
    SetUpCoordinates(effect);
    MoveTop(CPicker[0], effect.tops.cPicker1);
    SetUpColor(*CPicker[0], effect.color1);
    SetUpColor(*CPicker[1], effect.color2);
    SetUpOptions(effect);

    MoveTop(PagerCompass, effect.tops.pagerCompass);
    PagerCompass->setVisible(compass);
    MoveTop(lstValue, effect.tops.lstValue);
    lstValue->setVisible(list);
    static_cast<ValueList*>(lstValue)->KeepClearOf(*cmdApply);
    if (list) lstValue->scrollTo(lstValue->currentIndex(), QAbstractItemView::PositionAtCenter);
    cmdApply->show();
}

void EffectPanel::LoadValueList(const Effect& effect) {
    lstValue->Clear();
    int row = 0;
    for (const char* name : effect.choice.names) lstValue->AddItem(EffectText(name), row++);
    lstValue->setAccessibleName(effect.PanelTitle());
    lstValue->SetListIndex(effect.choice.initial - 1);
}

void EffectPanel::SetUpSlider(LsSlider& slider, const EffectSlider& input) {
    if (input.label) {
        // In this order: the minimum must stay below the maximum, and writing it writes the value too.
        slider.SetMax(input.max);
        slider.SetMin(input.min);
        slider.SetValue(input.value);
        Describe(slider, EffectText(input.label));
    }
    slider.setVisible(input.label != nullptr);
}

void EffectPanel::SetUpCoordinates(const Effect& effect) {
    if (effect.ResetsCoordinates()) {
        txtXCoord->setText(QString::number(kDefaultX));
        txtYCoord->setText(QString::number(kDefaultY));
    }
    for (QWidget* control : {static_cast<QWidget*>(lblCoords), static_cast<QWidget*>(txtXCoord),
                             static_cast<QWidget*>(txtYCoord), static_cast<QWidget*>(cmdPick)})
        control->setVisible(effect.ShowsCoordinates());
    cmdPick->setChecked(false);
    point_->Forget();
    ShowPoint();
}

void EffectPanel::SetUpColor(ColorPicker& picker, const EffectColor& input) {
    if (input.label) {
        picker.SetColor(input.value);
        picker.setAccessibleName(EffectText(input.label));
        picker.setToolTip(picker.accessibleName());
    }
    picker.setVisible(input.label != nullptr);
}

void EffectPanel::SetUpOptions(const Effect& effect) {
    const bool options = effect.choice.kind == EffectChoice::Kind::Options;
    if (options) {
        MoveTop(OptGS[0], effect.tops.optGS1);
        MoveTop(OptGS[1], effect.tops.optGS2);
        MoveTop(lblGS[0], effect.tops.lblGS0);
        MoveTop(lblGS[1], effect.tops.lblGS1);
        for (std::size_t i = 0; i < lblGS.size(); ++i) {
            const QString caption = EffectText(effect.choice.names[i]);
            lblGS[i]->SetCaption(caption);
            OptGS[i]->setAccessibleName(caption);
        }
    }
    for (std::size_t i = 0; i < OptGS.size(); ++i) {
        lblGS[i]->setVisible(options);
        OptGS[i]->setVisible(options);
    }
    if (options) {
        OptGS[0]->setChecked(true);
        state_.*effect.choice.variable = 1;
    }
}

void EffectPanel::ValueListSelected() {
    const Effect* effect = FindEffect(state_.CurrentSFX);
    const int row = lstValue->ListIndex();
    if (!effect || effect->choice.kind != EffectChoice::Kind::List) return;
    if (row < 0 || row >= static_cast<int>(effect->choice.names.size())) return;
    state_.*effect->choice.variable = static_cast<std::int16_t>(row + 1);
}

void EffectPanel::OptionMarked(int option) {
    // All effects with options share the buttons; choosing one of them sets its own variable anew.
    for (const Effect& effect : Catalogue())
        if (effect.choice.kind == EffectChoice::Kind::Options)
            state_.*effect.choice.variable = static_cast<std::int16_t>(option);
}

void EffectPanel::CompassClicked(int button) {
    if (button < 1 || button > static_cast<int>(std::size(kCompassTips))) return;
    state_.CompassDirection = static_cast<std::int16_t>(button);
}

int EffectPanel::XCoordinate() const { return point_->Point().x(); }
int EffectPanel::YCoordinate() const { return point_->Point().y(); }
qint32 EffectPanel::PickerValue(int picker) const { return CPicker[static_cast<std::size_t>(picker - 1)]->Color(); }
int EffectPanel::SliderValue(int slider) const { return sldValue[static_cast<std::size_t>(slider - 1)]->Value(); }

}  // namespace kelu
