// The settings panel and both selectors: what shows for each effect, what stays from one to the next, what is refused.
// SPDX-License-Identifier: MIT
#include "effects/effect_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include "controls/color_picker/color_picker.h"
#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/slider/ls_slider.h"
#include "controls/tool_button/tool_button.h"
#include "controls/toolbox/toolbox.h"
#include "effects/catalogue/catalogue.h"
#include "effects/coordinate_box.h"
#include "effects/effect_overview.h"
#include "effects/effect_selectors.h"
#include "effects/panel_label.h"
#include "platform/units.h"

namespace kelu {
namespace {

class EffectPanelTest : public testing::Test {
 protected:
    EffectPanelTest() : panel(state) { panel.show(); }

    SharedState state;
    EffectPanel panel;
};

TEST_F(EffectPanelTest, ASliderTakesANumberFromTheKeyboard) {
    panel.SetUp(7);  // Radius 1 to 100, starts at 10
    struct Row {
        const char* typed;
        Qt::Key end;
        int value;
    };
    for (const auto& [typed, end, value] : {Row{"42", Qt::Key_Return, 42}, Row{"7", Qt::Key_Escape, 42},
                                            Row{"1000", Qt::Key_Enter, 100}, Row{"5", Qt::Key_Tab, 5}}) {
        auto* stop = panel.findChild<QWidget*>("sldValue1Number");
        ASSERT_TRUE(stop && stop->isVisible());
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
        EXPECT_EQ(stop->accessibleName(), "Radius");
        stop->setFocus();
        QTest::keyClick(stop, Qt::Key_Return);
        auto* field = panel.findChild<QSpinBox*>();
        ASSERT_TRUE(field && field->hasFocus());
        QTest::keyClicks(field, typed);
        QTest::keyClick(field, end);
        EXPECT_EQ(panel.sldValue[0]->Value(), value) << typed;
        EXPECT_TRUE(!field->isVisible() && (end == Qt::Key_Tab || stop->hasFocus())) << typed;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(EffectPanelTest, ShowsTheInputsOfTheRowAndNoOthersAtTheirStart) {
    std::vector<const Effect*> upAndDown;  // so that each is chosen after two different neighbours
    for (const Effect& effect : Catalogue()) upAndDown.push_back(&effect);
    for (std::size_t i = upAndDown.size(); i-- > 0;) upAndDown.push_back(upAndDown[i]);
    for (const Effect* row : upAndDown) {
        SCOPED_TRACE(row->listText);
        panel.SetUp(row->number);
        EXPECT_EQ(state.CurrentSFX, row->number);
        EXPECT_EQ(panel.lblDesc->text(), ShownCaption(row->PanelCaption()).remove('\r'));
        for (const QWidget* always : {static_cast<QWidget*>(panel.lblBS), static_cast<QWidget*>(panel.sldBrushSize),
                                      static_cast<QWidget*>(panel.lblDesc), static_cast<QWidget*>(panel.cmdApply)})
            EXPECT_TRUE(always->isVisible());
        for (std::size_t i = 0; i < row->sliders.size(); ++i) {
            LsSlider& slider = *panel.sldValue[i];
            const EffectSlider& input = row->sliders[i];
            ASSERT_EQ(slider.isVisible(), input.label != nullptr);
            if (!input.label) continue;
            EXPECT_EQ((std::array{slider.Min(), slider.Max(), slider.Value()}),
                      (std::array{input.min, input.max, input.value}));
            slider.SetValue(input.max);  // what the user set is lost
        }
        for (const auto& [picker, input] : {std::pair{1, row->color1}, {2, row->color2}}) {
            ColorPicker& control = *panel.CPicker[static_cast<std::size_t>(picker - 1)];
            ASSERT_EQ(control.isVisible(), input.label != nullptr);
            if (!input.label) continue;
            EXPECT_EQ(panel.PickerValue(picker), input.value);
            control.SetColor(0x123456);
        }
        for (const QWidget* part : {static_cast<QWidget*>(panel.lblCoords), static_cast<QWidget*>(panel.txtXCoord),
                                    static_cast<QWidget*>(panel.txtYCoord)})
            EXPECT_EQ(part->isVisible(), row->ShowsCoordinates());
        using Kind = EffectChoice::Kind;
        EXPECT_EQ(panel.PagerCompass->isVisible(), row->choice.kind == Kind::Compass);
        EXPECT_EQ(panel.lstValue->isVisible(), row->choice.kind == Kind::List);
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_EQ(panel.OptGS[i]->isVisible(), row->choice.kind == Kind::Options);
            EXPECT_EQ(panel.lblGS[i]->isVisible(), row->choice.kind == Kind::Options);
        }
        if (row->choice.variable) {
            EXPECT_EQ(state.*row->choice.variable, row->choice.initial) << "without any click";
        }
    }
}

TEST_F(EffectPanelTest, OptionsWriteAllThreeVariablesAndStartAnewWithTheEffect) {
    panel.SetUp(28);
    panel.OptGS[1]->click();
    EXPECT_THAT((std::array{state.GraySelect, state.MaximumSelect, state.MinimumSelect}), testing::Each(2));
    panel.SetUp(1);
    EXPECT_TRUE(panel.OptGS[0]->isChecked());
    EXPECT_EQ(panel.lblGS[1]->text(), QStringLiteral("Weighted"));
    EXPECT_EQ(state.GraySelect, 1);
    panel.SetUp(28);
    EXPECT_EQ(panel.lblGS[1]->text(), QStringLiteral("Square"));
    EXPECT_EQ(state.MaximumSelect, 1);

    // The caption is part of the option button; a click on the marked one writes all the same.
    QTest::mouseClick(panel.lblGS[1], Qt::LeftButton);
    EXPECT_EQ(state.MinimumSelect, 2);
    state.GraySelect = 0;
    QTest::mouseClick(panel.lblGS[1], Qt::LeftButton);
    EXPECT_EQ(state.GraySelect, 2);
}

TEST_F(EffectPanelTest, CoordinatesAreWrittenByMostEffectsButNotByImplode) {
    panel.SetUp(9);
    panel.txtXCoord->setText(QStringLiteral("7"));
    panel.SetUp(8);
    EXPECT_EQ(panel.XCoordinate(), 7);
    panel.SetUp(26);
    EXPECT_EQ(panel.XCoordinate(), 7);
    panel.SetUp(15);  // writes them, though they stay hidden
    EXPECT_EQ(panel.XCoordinate(), 250);
    EXPECT_EQ(panel.YCoordinate(), 100);
}

TEST_F(EffectPanelTest, CoordinateBoxesTakeUpToThreeDigits) {
    panel.SetUp(9);
    CoordinateBox& box = *panel.txtXCoord;
    const struct {
        const char *typed, *text;
        int value;
    } cases[] = {{"1234", "999", 999}, {"1a-2.", "12", 12}, {"", "", 0}, {"999", "999", 999}, {"0", "0", 0}};
    for (const auto& [typed, text, value] : cases) {
        box.clear();
        QTest::keyClicks(&box, QString::fromLatin1(typed));
        EXPECT_EQ(box.text().toStdString(), text) << typed;
        EXPECT_EQ(box.Value(), value) << typed;
    }
    const struct {
        const char* pasted;
        int value;
    } pastes[] = {{"-5", 0}, {"12.7", 12}, {" 3,5 ", 3}, {"a4", 4}, {"-", 0}, {"x 99 999 999 999 999", 999}};
    for (const auto& [pasted, value] : pastes) {
        QGuiApplication::clipboard()->setText(QString::fromLatin1(pasted));
        box.clear();
        box.paste();
        EXPECT_EQ(box.Value(), value) << pasted;
    }
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.Value(), 99);

    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    panel.txtYCoord->setFocus();
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.selectedText(), QStringLiteral("99")) << "typing replaces what stood there";
}

class EffectSelectorsTest : public testing::Test {
 protected:
    EffectSelectorsTest() : selectors(state, &window), chosen(&selectors, &EffectSelectors::EffectChosen) {
        selectors.SetUpSFXList();
        selectors.LoadTips();
        window.resize(300, 600);
        window.show();
    }
    int LastChosen() const { return chosen.isEmpty() ? 0 : chosen.last().first().toInt(); }

    SharedState state;
    QWidget window;
    EffectSelectors selectors;
    QSignalSpy chosen;
};

TEST_F(EffectSelectorsTest, BothLeadToTheSameNumbers) {
    EXPECT_EQ(selectors.lstSFX->ListIndex(), 0);
    EXPECT_EQ(selectors.TBSFX->Key(48), QStringLiteral("keySFX48"));
    state.ImageActive = true;
    for (const Effect& effect : Catalogue()) {
        const int number = effect.number;
        EXPECT_EQ(selectors.lstSFX->Text(number - 1), QString::fromLatin1(effect.listText));
        EXPECT_EQ(selectors.TBSFX->Tip(number), effect.ButtonTip());
        chosen.clear();
        selectors.lstSFX->SetListIndex(number - 1);
        EXPECT_EQ(LastChosen(), number);
        chosen.clear();
        QTest::mouseClick(selectors.TBSFX->Button(number), Qt::LeftButton);
        EXPECT_EQ(LastChosen(), number);
    }
}

TEST_F(EffectSelectorsTest, RefuseWithoutAPictureDuringARenderAndDuringCapture) {
    const struct {
        bool active, busy, allowed;
    } cases[] = {{false, false, false}, {false, true, false}, {true, true, false}, {true, false, true}};
    for (const auto& [active, busy, allowed] : cases) {
        chosen.clear();
        state.ImageActive = active;
        state.CaptureBusy = busy;
        selectors.lstSFX->SetListIndex(5);
        QTest::mouseClick(selectors.TBSFX->Button(7), Qt::LeftButton);
        EXPECT_EQ(chosen.count(), allowed ? 2 : 0);
        QCoreApplication::processEvents();
        EXPECT_EQ(selectors.TBSFX->Current(), allowed ? 7 : 0) << "a refused click leaves no mark";
        EXPECT_EQ(selectors.lstSFX->ListIndex(), allowed ? 5 : 0);
    }
    EXPECT_EQ(LastChosen(), 7);
}

TEST_F(EffectSelectorsTest, TheOverviewClosesWithAChoiceThatTheToolbarShows) {
    selectors.ShowAll();
    auto* const grid = selectors.overview->findChild<Toolbox*>();
    QTest::mouseClick(grid->Button(48), Qt::LeftButton);
    EXPECT_TRUE(chosen.isEmpty() && selectors.overview->isVisible() && grid->Current() == 0) << "no picture is open";
    state.ImageActive = true;
    QTest::keyClick(grid->Button(1), Qt::Key_Escape);
    EXPECT_FALSE(selectors.overview->isVisible());
    QTest::mouseClick(selectors.cmdAllEffects, Qt::LeftButton);
    QTest::mouseClick(grid->Button(48), Qt::LeftButton);
    EXPECT_FALSE(selectors.overview->isVisible());
    EXPECT_EQ(LastChosen(), 48);
    EXPECT_EQ(selectors.TBSFX->Current(), 48);
}

}  // namespace
}  // namespace kelu
