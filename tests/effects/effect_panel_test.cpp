// The settings panel and both selectors: what shows for each effect, what stays from one to the next, what is refused.
// SPDX-License-Identifier: MIT
#include "effects/effect_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "controls/color_picker/color_picker.h"
#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/slider/ls_slider.h"
#include "controls/tool_button/tool_button.h"
#include "controls/toolbox/toolbox.h"
#include "effects/catalogue/catalogue.h"
#include "effects/coordinate_box.h"
#include "effects/effect_selectors.h"
#include "effects/panel_label.h"
#include "platform/units.h"

namespace kelu {
namespace {

class EffectPanelTest : public testing::Test {
 protected:
    EffectPanelTest() : panel(state) { panel.show(); }

    int Top(const QWidget* control) const { return PixelsToTwips(control->y()); }

    // What shows besides the controls that every effect shows: s sliders, c coordinates, p pickers, o options, d
    // direction, l list.
    std::string Shown() const {
        std::string shown;
        for (const LsSlider* slider : panel.sldValue) shown += slider->isVisible() ? "s" : "";
        shown +=
            panel.txtXCoord->isVisible() && panel.txtYCoord->isVisible() && panel.lblCoords->isVisible() ? "c" : "";
        for (const ColorPicker* picker : panel.CPicker) shown += picker->isVisible() ? "p" : "";
        shown += panel.OptGS[0]->isVisible() && panel.OptGS[1]->isVisible() && panel.lblGS[0]->isVisible() &&
                         panel.lblGS[1]->isVisible()
                     ? "o"
                     : "";
        shown += panel.PagerCompass->isVisible() ? "d" : "";
        shown += panel.lstValue->isVisible() ? "l" : "";
        return shown;
    }

    SharedState state;
    EffectPanel panel;
};

TEST_F(EffectPanelTest, NothingShowsBeforeTheFirstSelection) {
    for (const QWidget* control : panel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        EXPECT_FALSE(control->isVisible()) << control->objectName().toStdString();
    panel.SetUp(0);
    panel.SetUp(99);
    EXPECT_FALSE(panel.cmdApply->isVisible());
    EXPECT_EQ(state.CurrentSFX, 0);
}

TEST_F(EffectPanelTest, EachEffectShowsItsOwnControls) {
    const char* const expected[] = {"o",  "s",  "s",  "s",   "s",  "",    "ss", "s",  "sc",  "sc",   //  1 to 10
                                    "s",  "sc", "s",  "sc",  "pp", "d",   "p",  "pp", "",    "ssd",  // 11 to 20
                                    "sp", "sc", "sp", "p",   "l",  "scp", "sp", "so", "so",  "",     // 21 to 30
                                    "ss", "",   "s",  "sss", "",   "s",   "sc", "ss", "sss", "sl",   // 31 to 40
                                    "",   "s",  "l",  "ss",  "p",  "",    "ss", ""};                 // 41 to 48
    // Up and down, so that each is chosen after two different neighbours.
    for (int step = 0; step < 96; ++step) {
        const int number = step < 48 ? step + 1 : 96 - step;
        panel.SetUp(number);
        EXPECT_EQ(Shown(), expected[number - 1]) << "effect " << number;
        EXPECT_TRUE(panel.lblBS->isVisible() && panel.sldBrushSize->isVisible() && panel.lblDesc->isVisible() &&
                    panel.cmdApply->isVisible());
        EXPECT_EQ(state.CurrentSFX, number);
        const bool nothingToSet =
            panel.lblDesc->text().endsWith(QStringLiteral("No Settings. Click on 'Apply' button."));
        EXPECT_EQ(nothingToSet, Shown().empty()) << "effect " << number;
    }
}

TEST_F(EffectPanelTest, SlidersTakeRangeAndDefaultAgainAtEachSelection) {
    using Range = std::array<int, 3>;
    const struct {
        int number;
        std::vector<Range> sliders;
    } cases[] = {{2, {{0, 100, 30}}},
                 {3, {{0, 255, 160}}},
                 {5, {{2, 100, 50}}},
                 {7, {{1, 100, 10}, {1, 100, 6}}},
                 {12, {{-100, 100, -100}}},
                 {20, {{1, 10, 2}, {0, 255, 127}}},
                 {27, {{0, 200, 20}}},
                 {34, {{1, 8, 2}, {1, 8, 2}, {1, 8, 2}}},
                 {38, {{0, 100, 100}, {0, 100, 50}}},
                 {39, {{0, 255, 140}, {0, 255, 140}, {0, 255, 140}}},
                 {42, {{2, 100, 15}}},
                 {44, {{1, 100, 100}, {1, 100, 40}}},
                 {47, {{-100, 100, 25}, {-100, 100, -10}}}};
    for (int round = 0; round < 2; ++round)
        for (const auto& [number, sliders] : cases) {
            panel.SetUp(number);
            for (std::size_t i = 0; i < sliders.size(); ++i) {
                LsSlider& slider = *panel.sldValue[i];
                EXPECT_THAT((Range{slider.Min(), slider.Max(), slider.Value()}), sliders[i]) << "effect " << number;
                slider.SetValue(slider.Max());  // what the user set is lost
            }
        }
}

TEST_F(EffectPanelTest, ColorsAreThoseOfTheEffect) {
    const struct {
        int number;
        qint32 color1, color2;
    } cases[] = {{15, 0x2f2f2f, 0xf3ffff}, {17, 0x0000ff, -1}, {18, 0x001414, 0x3264c8},
                 {24, 0xffffff, -1},       {26, 0x000000, -1}, {45, 0xff64ff, -1}};
    for (const auto& [number, color1, color2] : cases) {
        panel.SetUp(number);
        EXPECT_EQ(panel.PickerValue(1), color1) << "effect " << number;
        if (color2 >= 0) {
            EXPECT_EQ(panel.PickerValue(2), color2) << "effect " << number;
        }
    }
}

TEST_F(EffectPanelTest, MovedSliderAndPickerStayWhereTheLastEffectPutThem) {
    panel.SetUp(9);
    EXPECT_EQ(panel.sldValue[0]->y(), TwipsToPixels(1200));
    panel.SetUp(26);
    EXPECT_EQ(panel.sldValue[0]->y(), TwipsToPixels(1000));
    EXPECT_EQ(panel.CPicker[0]->y(), TwipsToPixels(1400));
    panel.SetUp(9);
    EXPECT_EQ(panel.sldValue[0]->y(), TwipsToPixels(1000));
    panel.SetUp(15);
    EXPECT_EQ(panel.CPicker[0]->y(), TwipsToPixels(1400));
    EXPECT_EQ(panel.CPicker[1]->y(), TwipsToPixels(1560));
}

TEST_F(EffectPanelTest, TopsThatEffectsWrite) {
    panel.SetUp(16);
    EXPECT_EQ(panel.PagerCompass->y(), TwipsToPixels(1200));
    panel.SetUp(20);
    EXPECT_EQ(panel.PagerCompass->y(), TwipsToPixels(2130));
    panel.SetUp(40);
    EXPECT_EQ(panel.lstValue->y(), TwipsToPixels(1500));
    panel.SetUp(43);
    EXPECT_EQ(panel.lstValue->y(), TwipsToPixels(1200));
    panel.SetUp(29);
    EXPECT_EQ(panel.OptGS[0]->y(), TwipsToPixels(1720));
    EXPECT_EQ(panel.lblGS[1]->y(), TwipsToPixels(2040));
    panel.SetUp(1);
    EXPECT_EQ(panel.OptGS[1]->y(), TwipsToPixels(1440));
    EXPECT_EQ(panel.lblGS[0]->y(), TwipsToPixels(1215));
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

TEST_F(EffectPanelTest, ListsFileTheirRowUnderTheCurrentEffect) {
    panel.SetUp(40);
    EXPECT_EQ(panel.lstValue->Count(), 17);
    EXPECT_EQ(panel.lstValue->Text(panel.lstValue->ListIndex()), QStringLiteral("Laplace 1"));
    EXPECT_EQ(state.SPFilterSelect, 5) << "without any click";
    panel.lstValue->SetListIndex(16);
    EXPECT_EQ(state.SPFilterSelect, 17);

    panel.SetUp(25);
    EXPECT_EQ(state.HighPassSelect, 1);
    EXPECT_EQ(state.SPFilterSelect, 17);
    panel.lstValue->SetListIndex(2);
    panel.SetUp(25);
    EXPECT_EQ(panel.lstValue->ListIndex(), 0);
    EXPECT_EQ(state.HighPassSelect, 1);

    panel.SetUp(43);
    EXPECT_EQ(panel.lstValue->Text(2), QStringLiteral("Green - Blue"));
    panel.lstValue->SetListIndex(1);
    EXPECT_EQ(state.SwapChannelsSelect, 2);
    state.CurrentSFX = 99;
    panel.lstValue->SetListIndex(2);
    EXPECT_EQ(state.SwapChannelsSelect, 2);
}

TEST_F(EffectPanelTest, CompassKeepsItsDirectionAcrossSelections) {
    EXPECT_EQ(panel.TBCompass->Current(), 3);
    panel.SetUp(16);
    EXPECT_EQ(state.CompassDirection, 3);
    QTest::mouseClick(panel.TBCompass->Button(2), Qt::LeftButton);
    EXPECT_EQ(state.CompassDirection, 2);
    panel.SetUp(8);
    panel.SetUp(20);
    EXPECT_EQ(state.CompassDirection, 2);
    EXPECT_EQ(panel.TBCompass->Current(), 2);
    panel.LoadTips();
    EXPECT_EQ(panel.TBCompass->Tip(3), QStringLiteral("North Est"));
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

TEST_F(EffectPanelTest, SlidersSayWhatTheySet) {
    panel.SetUp(34);
    EXPECT_EQ(panel.sldValue[1]->accessibleName(), QStringLiteral("Green Bits"));
    panel.sldValue[1]->SetValue(6);
    EXPECT_EQ(panel.sldValue[1]->toolTip(), QStringLiteral("Green Bits: 6"));
    EXPECT_EQ(panel.sldBrushSize->Value(), 50);
    panel.sldBrushSize->SetValue(12);
    panel.SetUp(2);
    EXPECT_EQ(panel.sldBrushSize->Value(), 12);
    EXPECT_EQ(panel.sldValue[0]->toolTip(), QStringLiteral("Strength: 30"));
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
    EXPECT_EQ(selectors.lstSFX->Count(), 48);
    EXPECT_EQ(selectors.lstSFX->ListIndex(), 0);
    EXPECT_EQ(selectors.lstSFX->Text(3), QStringLiteral("B&W Dithered"));
    EXPECT_EQ(selectors.TBSFX->Key(48), QStringLiteral("keySFX48"));
    state.ImageActive = true;
    for (int number : {1, 2, 24, 48, 48}) {
        chosen.clear();
        selectors.lstSFX->SetListIndex(number - 1);
        EXPECT_EQ(LastChosen(), number);
        chosen.clear();
        QTest::mouseClick(selectors.TBSFX->Button(number), Qt::LeftButton);
        EXPECT_EQ(LastChosen(), number);
    }
    EXPECT_EQ(selectors.TBSFX->Tip(29), QStringLiteral("Minmum"));
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
        EXPECT_EQ(selectors.TBSFX->Current(), allowed ? 7 : 0) << "a refused click leaves no mark";
    }
    EXPECT_EQ(LastChosen(), 7);
}

}  // namespace
}  // namespace kelu
