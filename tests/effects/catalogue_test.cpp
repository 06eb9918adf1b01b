// Each row of the catalogue against the engine call that it has to make, written out by hand.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/catalogue.h"

#include <gtest/gtest.h>

#include <functional>

#include "effects/catalogue/pix_twix.h"
#include "tests/effects/sample_picture.h"

namespace kelu {
namespace {

// Inputs that are all different, so that an exchanged pair of arguments shows.
EffectInputs DistinctInputs(int choice) {
    EffectInputs inputs;
    inputs.slider = {7, 8, 5};
    inputs.x = 22;
    inputs.y = 13;
    inputs.color1 = {20, 60, 110};
    inputs.color2 = {230, 170, 140};
    inputs.choice = choice;
    return inputs;
}

struct ExpectedCall {
    int number;
    int choice;
    std::function<bool(PixTwix&)> call;
};

const ExpectedCall kCalls[] = {
    {1, 1, [](PixTwix& e) { return e.FxGrayscale(0, false); }},
    {1, 2, [](PixTwix& e) { return e.FxGrayscale(1, false); }},
    {2, 0, [](PixTwix& e) { return e.FxSepia(7, false); }},
    {3, 0, [](PixTwix& e) { return e.FxBlackWhite(7, false); }},
    {4, 0, [](PixTwix& e) { return e.FxBlackWhiteDither(7, false); }},
    {5, 0, [](PixTwix& e) { return e.FxNoise(7, true, false); }},
    {6, 0, [](PixTwix& e) { return e.FxAntialias(false); }},
    {7, 0, [](PixTwix& e) { return e.FxBlobs(7, 8, false); }},
    {8, 0, [](PixTwix& e) { return e.FxBlur1(7, false); }},
    {9, 0, [](PixTwix& e) { return e.FxBlur2(22, 13, 7, false); }},
    {10, 0, [](PixTwix& e) { return e.FxBlur3(22, 13, 7, false); }},
    {11, 0, [](PixTwix& e) { return e.FxBrightness1(7, false); }},
    {12, 0, [](PixTwix& e) { return e.FxBrightness2(5, 13, 7, false); }},
    {13, 0, [](PixTwix& e) { return e.FxContrast(7, false); }},
    {14, 0, [](PixTwix& e) { return e.FxColorGradient(22, 13, 7, false); }},
    {15, 0, [](PixTwix& e) { return e.FxColorCorrection(20, 60, 110, 230, 170, 140, false); }},
    {16, 1, [](PixTwix& e) { return e.FxColorEmboss(7, false); }},
    {16, 2, [](PixTwix& e) { return e.FxColorEmboss(0, false); }},
    {16, 3, [](PixTwix& e) { return e.FxColorEmboss(1, false); }},
    {16, 4, [](PixTwix& e) { return e.FxColorEmboss(6, false); }},
    {16, 5, [](PixTwix& e) { return e.FxColorEmboss(2, false); }},
    {16, 6, [](PixTwix& e) { return e.FxColorEmboss(5, false); }},
    {16, 7, [](PixTwix& e) { return e.FxColorEmboss(4, false); }},
    {16, 8, [](PixTwix& e) { return e.FxColorEmboss(3, false); }},
    {17, 0, [](PixTwix& e) { return e.FxColorize(20, 60, 110, false); }},
    {18, 0, [](PixTwix& e) { return e.FxFalseColor(20, 60, 110, 230, 140, 170, false); }},
    {19, 0, [](PixTwix& e) { return e.FxEnhanceEdges(false); }},
    {20, 3, [](PixTwix& e) { return e.FxEmboss(1, 7, 8, false, false); }},
    {20, 4, [](PixTwix& e) { return e.FxEmboss(6, 7, 8, false, false); }},
    {21, 0, [](PixTwix& e) { return e.FxErodeBorder(7, 20, 60, 110); }},
    {22, 0, [](PixTwix& e) { return e.FxExplode(22, 13, 7); }},
    {23, 0, [](PixTwix& e) { return e.FxFadeBorders(7, 20, 60, 110); }},
    {24, 0, [](PixTwix& e) { return e.FxFishEye(20, 60, 110); }},
    {25, 1, [](PixTwix& e) { return e.FxHighPass(0, false); }},
    {25, 3, [](PixTwix& e) { return e.FxHighPass(2, false); }},
    {26, 0, [](PixTwix& e) { return e.FxImplode(22, 13, 7, 20, 60, 110); }},
    {27, 0, [](PixTwix& e) { return e.FxIrregularBorders(7, 20, 60, 110); }},
    {28, 1, [](PixTwix& e) { return e.FxMaximum(0, 7, false); }},
    {28, 2, [](PixTwix& e) { return e.FxMaximum(1, 7, false); }},
    {29, 1, [](PixTwix& e) { return e.FxMinimum(0, 7, false); }},
    {29, 2, [](PixTwix& e) { return e.FxMinimum(1, 7, false); }},
    {30, 0, [](PixTwix& e) { return e.FxMelt(false); }},
    {31, 0, [](PixTwix& e) { return e.FxMosaic(7, 8, false); }},
    {32, 0, [](PixTwix& e) { return e.FxNegative(true, true, true, false); }},
    {33, 0, [](PixTwix& e) { return e.FxOilPainting(7, false); }},
    {34, 0, [](PixTwix& e) { return e.FxPosterize(7, 8, 5, false); }},
    {35, 0, [](PixTwix& e) { return e.FxReverse(); }},
    {36, 0, [](PixTwix& e) { return e.FxSaturation1(7, false); }},
    {37, 0, [](PixTwix& e) { return e.FxSaturation2(22, 13, 7, false); }},
    {38, 0, [](PixTwix& e) { return e.FxScramble(7, 8); }},
    {39, 0, [](PixTwix& e) { return e.FxSolarize(7, 8, 5, true, false); }},
    {40, 1, [](PixTwix& e) { return e.FxSpecialFilter(0, 7, false); }},
    {40, 5, [](PixTwix& e) { return e.FxSpecialFilter(4, 7, false); }},
    {40, 17, [](PixTwix& e) { return e.FxSpecialFilter(16, 7, false); }},
    {41, 0, [](PixTwix& e) { return e.FxSketch(); }},
    {42, 0, [](PixTwix& e) { return e.FxSpray(7, false); }},
    {43, 1, [](PixTwix& e) { return e.FxSwapColors(2, false); }},
    {43, 2, [](PixTwix& e) { return e.FxSwapColors(1, false); }},
    {43, 3, [](PixTwix& e) { return e.FxSwapColors(0, false); }},
    {44, 0, [](PixTwix& e) { return e.FxTile(7, 8); }},
    {45, 0, [](PixTwix& e) { return e.FxTint(20, 60, 110, false); }},
    {46, 0, [](PixTwix& e) { return e.FxFreeze(1, 1, 1, 1, -7, 1, 1, 1, 1, 1, 0, false); }},
    {47, 0, [](PixTwix& e) { return e.FxWind(7, 8.0f, false); }},
};

class CatalogueCall : public testing::TestWithParam<ExpectedCall> {};

TEST_P(CatalogueCall, PassesTheInputsInTheEnginesOrder) {
    const ExpectedCall& expected = GetParam();
    const Effect* effect = FindEffect(expected.number);
    ASSERT_NE(effect, nullptr);

    const QImage picture = SamplePicture(161, 127);
    PixTwix byRow, byHand;
    byRow.SetPicture(picture);
    byHand.SetPicture(picture);
    ASSERT_TRUE(expected.call(byHand));
    ASSERT_TRUE(RenderEffect(*effect, DistinctInputs(expected.choice), byRow));
    EXPECT_EQ(byRow.Picture(), byHand.Picture());
    EXPECT_NE(byRow.Picture(), picture) << "these inputs are not neutral";
}

INSTANTIATE_TEST_SUITE_P(AllRows, CatalogueCall, testing::ValuesIn(kCalls), [](const auto& info) {
    return "Effect" + std::to_string(info.param.number) + "Choice" + std::to_string(info.param.choice);
});

TEST(Catalogue, RowsStandInOrderOfTheirNumbers) {
    ASSERT_EQ(Catalogue().size(), 48u);
    for (int number = 1; number <= 48; ++number) EXPECT_EQ(FindEffect(number)->number, number);
    for (int number : {-1, 0, 49, 99}) EXPECT_EQ(FindEffect(number), nullptr);
}

TEST(Catalogue, EveryEffectRendersAndChangesThePictureAtItsDefaults) {
    const QImage picture = SamplePicture(300, 200);
    for (const Effect& effect : Catalogue()) {
        if (effect.number == kNeon) continue;
        PixTwix engine;
        engine.SetPicture(picture);
        EXPECT_TRUE(RenderEffect(effect, effect.Defaults(), engine)) << effect.listText;
        EXPECT_NE(engine.Picture(), picture) << effect.listText;
        EXPECT_EQ(engine.Picture().size(), picture.size()) << effect.listText;
    }
}

// The arguments of two neighbours must not be taken for one another in the engine's picture.
TEST(Catalogue, FalseColorEndsInTheColorsThatWereChosen) {
    QImage ends(2, 1, QImage::Format_RGB32);
    ends.setPixel(0, 0, qRgb(0, 0, 0));
    ends.setPixel(1, 0, qRgb(255, 255, 255));
    PixTwix engine;
    engine.SetPicture(ends);
    const Effect& falseColor = *FindEffect(18);
    ASSERT_TRUE(RenderEffect(falseColor, falseColor.Defaults(), engine));
    EXPECT_EQ(engine.Picture().pixel(0, 0), qRgb(20, 20, 0));
    EXPECT_EQ(engine.Picture().pixel(1, 0), qRgb(200, 100, 50));
}

TEST(Catalogue, RefusesAChoiceOutsideTheEffectsOwn) {
    PixTwix engine;
    engine.SetPicture(SamplePicture(8, 8));
    const struct {
        int number, choice;
    } refused[] = {{1, 0},  {1, 3},  {16, 0}, {16, 9}, {20, 0}, {20, 9},  {25, 0}, {25, 4},
                   {28, 0}, {28, 3}, {29, 0}, {29, 3}, {40, 0}, {40, 18}, {43, 0}, {43, 4}};
    for (const auto& [number, choice] : refused)
        EXPECT_FALSE(RenderEffect(*FindEffect(number), DistinctInputs(choice), engine)) << number << ' ' << choice;
    EXPECT_FALSE(RenderEffect(*FindEffect(kNeon), {}, engine)) << "the pen surface renders this one";
}

TEST(Catalogue, TextsThatDifferFromPlaceToPlace) {
    const struct {
        int number;
        const char *list, *tip, *caption, *help;
    } rows[] = {
        {1, "Grayscale", "Grayscale", "Grayscale", "grayscale.html"},
        {3, "Black & White", "Black && White", "Black && White", "bw.html"},
        {4, "B&W Dithered", "Black && White Dithered", "Black && White Dithered", "bwd.html"},
        {15, "Color Correction", "Color Correction", "Color Correction\r\nSelect Colors", "colorcorrection.html"},
        {19, "Enhance Edges", "Enhance Edges", "Enhance Edge\r\n\r\nNo Settings. Click on 'Apply' button.",
         "enhanceedge.html"},
        {20, "Emboss", "Emboss", "Emboss\r\nDirection && Intensity", "emboss.html"},
        {21, "Erode Border", "Erode Borders", "Eroded Borders", "erodeborder.html"},
        {23, "Fade Borders", "Fade Borders", "Faded Borders", "fadeborder.html"},
        {24, "Fish Eye", "Fish Eye", "Fish Eye", "fisheye.html"},
        {27, "Irregular Borders", "Irregular Borders", "Irregular Borders", "irrborders.html"},
        {29, "Minimum", "Minmum", "Minimum", "minimum.html"},
        {40, "Special Filter", "Special Filter", "Special Filter", "spfilter.html"},
        {45, "Tint", "Tint", "Tint\r\nSelect a Color", "tint.html"},
        {48, "Neon", "Neon", "Neon\r\n\r\nNo Settings. Click on 'Apply' button.", "neon.html"},
    };
    for (const auto& row : rows) {
        const Effect& effect = *FindEffect(row.number);
        EXPECT_STREQ(effect.listText, row.list);
        EXPECT_EQ(effect.ButtonTip().toStdString(), row.tip);
        EXPECT_EQ(effect.PanelCaption().toStdString(), row.caption);
        EXPECT_STREQ(effect.helpPage, row.help);
    }
}

TEST(Catalogue, NegativePickerColorsCountAsBlack) {
    EXPECT_EQ(SplitColor(PickerColor(200, 100, 50)), (ColorBytes{200, 100, 50}));
    EXPECT_EQ(SplitColor(-1), (ColorBytes{0, 0, 0}));
}

}  // namespace
}  // namespace kelu
