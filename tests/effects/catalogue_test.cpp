// Properties of every row, the bytes that each gives, and the engine as the program sees it: shared sources, refusals,
// progress.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/catalogue.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QSignalSpy>
#include <functional>
#include <limits>
#include <set>

#include "effects/catalogue/pix_twix.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"
#include "tests/effects/sample_picture.h"
#include "tests/support/engine_pictures.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

class EveryRow : public testing::TestWithParam<Effect> {
 protected:
    const Effect& effect = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Catalogue, EveryRow, testing::ValuesIn(Catalogue().begin(), Catalogue().end()),
                         [](const auto& info) { return "Effect" + std::to_string(info.param.number); });

TEST(Catalogue, NumbersCountFromOneAndNamesAndPagesAreTheEffectsOwn) {
    std::set<std::string> names, pages;
    int number = 0;
    for (const Effect& effect : Catalogue()) {
        EXPECT_EQ(effect.number, ++number);
        EXPECT_EQ(FindEffect(number)->listText, effect.listText);
        EXPECT_TRUE(names.insert(effect.listText).second && pages.insert(effect.helpPage).second) << effect.listText;
    }
    for (int none : {-1, 0, number + 1, 99}) EXPECT_EQ(FindEffect(none), nullptr);
}

// Every input there could be, with the values that a test moves it to.
struct Input {
    std::string name;
    bool taken;
    std::function<void(EffectInputs&, bool other)> set;
};

std::vector<Input> InputsOf(const Effect& effect) {
    std::vector<Input> inputs;
    for (std::size_t i = 0; i < 3; ++i) {
        const EffectSlider& slider = effect.sliders[i];
        const int low = slider.label ? slider.min + (slider.max - slider.min) / 4 : 20;
        const int high = slider.label ? slider.max - (slider.max - slider.min) / 4 : 70;
        inputs.push_back({"slider " + std::to_string(i + 1), slider.label != nullptr,
                          [=](EffectInputs& in, bool other) { in.slider[i] = other ? high : low; }});
    }
    inputs.push_back({"x", effect.ShowsCoordinates(), [](EffectInputs& in, bool other) { in.x = other ? 40 : 80; }});
    inputs.push_back({"y", effect.ShowsCoordinates(), [](EffectInputs& in, bool other) { in.y = other ? 30 : 70; }});
    for (int ColorBytes::*byte : {&ColorBytes::red, &ColorBytes::green, &ColorBytes::blue}) {
        inputs.push_back({"color 1", effect.color1.label != nullptr,
                          [=](EffectInputs& in, bool other) { in.color1.*byte = other ? 90 : 30; }});
        inputs.push_back({"color 2", effect.color2.label != nullptr,
                          [=](EffectInputs& in, bool other) { in.color2.*byte = other ? 150 : 220; }});
    }
    return inputs;
}

TEST_P(EveryRow, EachInputMovesThePictureAndNoOtherDoes) {
    const QImage picture = SamplePicture(161, 127);
    EffectInputs base;
    base.choice = effect.choice.initial;
    for (const Input& input : InputsOf(effect)) input.set(base, false);
    const QImage before = RenderOnto(effect, base, picture);
    EXPECT_NE(before, picture);
    EXPECT_EQ(before.size(), picture.size());
    for (const Input& input : InputsOf(effect)) {
        EffectInputs moved = base;
        input.set(moved, true);
        EXPECT_EQ(RenderOnto(effect, moved, picture) != before, input.taken) << effect.listText << ", " << input.name;
    }
}

TEST_P(EveryRow, EachChoiceIsAPictureOfItsOwnAndAnyOtherIsRefused) {
    const QImage picture = SamplePicture(61, 47);
    const int choices = static_cast<int>(effect.choice.names.size());
    EffectInputs inputs = effect.Defaults();
    std::set<QByteArray> seen;
    for (inputs.choice = 1; inputs.choice <= choices; ++inputs.choice) {
        const QImage result = RenderOnto(effect, inputs, picture);
        EXPECT_TRUE(
            seen.insert(QByteArray(reinterpret_cast<const char*>(result.constBits()), result.sizeInBytes())).second)
            << effect.listText << ' ' << inputs.choice;
    }
    if (choices == 0) return;
    for (int outside : {0, choices + 1}) {
        inputs.choice = outside;
        EXPECT_THROW(RenderOnto(effect, inputs, picture), Error) << effect.listText << ' ' << outside;
    }
}

// Inputs far outside their ranges: clamped, the whole picture written and nothing else. The sanitizer build runs the
// same and finds what overflows.
TEST_P(EveryRow, AnyInputGivesAWholePicture) {
    using engine_test::Noise, engine_test::Picture;
    constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
    for (const int a : {kLeast, -1000, 0, 1, 999, kMost})
        for (const int b : {kLeast, -7, 50, kMost})
            for (const auto& [width, height] : {std::pair{1, 1}, {37, 29}, {150, 3}}) {
                SCOPED_TRACE(std::to_string(a) + ", " + std::to_string(b));
                const EffectInputs inputs{{a, b, a}, a, b, {a, b, a}, {b, a, b}, effect.choice.initial};
                const Picture source = Noise(width, height);
                Picture overZero(width, height), overNoise = Noise(width, height, 60);
                effect.render(source.View(), overZero.Target(), inputs, {2, {}});
                effect.render(source.View(), overNoise.Target(), inputs, {1, {}});
                EXPECT_EQ(Difference(overNoise, overZero, 0), "") << "something was left as it was";
                EXPECT_TRUE(overZero.GuardIntact() && overNoise.GuardIntact());
            }
}

// Recipes and journals tell effects and inputs alone: the same ones must give the same bytes for ever. After a change
// on purpose raise kEffectDefinitions and put the sums that this test tells in sums.tsv.
TEST(Catalogue, EveryEffectGivesTheBytesThatRecipesWereMadeWith) {
    const QImage picture = SamplePicture(161, 127);
    QByteArray sums;
    for (const Effect& effect : Catalogue()) {
        QCryptographicHash sum(QCryptographicHash::Sha1);
        for (const bool moved : {false, true}) {
            EffectInputs inputs = effect.Defaults();
            for (const Input& input : InputsOf(effect))
                if (moved && input.taken) input.set(inputs, true);
            const QImage result = RenderOnto(effect, inputs, picture);
            sum.addData(QByteArrayView(result.constBits(), result.sizeInBytes()));
        }
        sums += QByteArray(effect.listText) + '\t' + sum.result().toHex() + '\n';
    }
    EXPECT_EQ(sums.toStdString(), ReadBytes(KELU_SOURCE_DIR "/tests/effects/sums.tsv").toStdString())
        << sums.constData();
}

// A side of this many pixels times the width of a strip is more than 31 bits hold.
TEST(Catalogue, ALineOfMillionsOfPixelsIsRendered) {
    const Effect& maximum = *FindEffect(28);
    EffectInputs inputs = maximum.Defaults();
    inputs.slider[0] = 1;
    inputs.choice = 2;
    QImage line(1, 4'194'309, QImage::Format_RGB32);
    line.fill(0x406080);
    line.setPixel(0, 4'194'307, qRgb(255, 200, 255));
    EXPECT_EQ(RenderOnto(maximum, inputs, line).pixel(0, 4'194'308), qRgb(255, 200, 255));
}

TEST(CatalogueCall, PassesWhatTheEngineExpectsInItsOrder) {
    // Inputs that are all different, so that an exchanged pair of arguments shows.
    const EffectInputs inputs{{7, 8, 5}, 22, 13, {20, 60, 110}, {230, 170, 140}, 0};
    const struct {
        int number, choice;
        std::function<bool(PixTwix&)> call;
    } calls[] = {
        {7, 0, [](auto& e) { return e.FxBlobs(7, 8, false); }},
        {9, 0, [](auto& e) { return e.FxBlur2(22, 13, 7, false); }},
        {12, 0, [](auto& e) { return e.FxBrightness2(5, 13, 7, false); }},
        {15, 0, [](auto& e) { return e.FxColorCorrection(20, 60, 110, 230, 170, 140, false); }},
        {16, 1, [](auto& e) { return e.FxColorEmboss(7, false); }},
        {16, 2, [](auto& e) { return e.FxColorEmboss(0, false); }},
        {16, 3, [](auto& e) { return e.FxColorEmboss(1, false); }},
        {16, 4, [](auto& e) { return e.FxColorEmboss(6, false); }},
        {16, 5, [](auto& e) { return e.FxColorEmboss(2, false); }},
        {16, 6, [](auto& e) { return e.FxColorEmboss(5, false); }},
        {16, 7, [](auto& e) { return e.FxColorEmboss(4, false); }},
        {16, 8, [](auto& e) { return e.FxColorEmboss(3, false); }},
        {18, 0, [](auto& e) { return e.FxFalseColor(20, 60, 110, 230, 140, 170, false); }},
        {20, 4, [](auto& e) { return e.FxEmboss(6, 7, 8, false, false); }},
        {26, 0, [](auto& e) { return e.FxImplode(22, 13, 7, 20, 60, 110); }},
        {28, 2, [](auto& e) { return e.FxMaximum(1, 7, false); }},
        {31, 0, [](auto& e) { return e.FxMosaic(7, 8, false); }},
        {34, 0, [](auto& e) { return e.FxPosterize(7, 8, 5, false); }},
        {38, 0, [](auto& e) { return e.FxScramble(7, 8); }},
        {39, 0, [](auto& e) { return e.FxSolarize(7, 8, 5, true, false); }},
        {40, 17, [](auto& e) { return e.FxSpecialFilter(16, 7, false); }},
        {43, 1, [](auto& e) { return e.FxSwapColors(2, false); }},
        {43, 3, [](auto& e) { return e.FxSwapColors(0, false); }},
        {44, 0, [](auto& e) { return e.FxTile(7, 8); }},
        {47, 0, [](auto& e) { return e.FxWind(7, 8.0f, false); }},
    };
    const QImage picture = SamplePicture(161, 127);
    for (const auto& [number, choice, call] : calls) {
        EffectInputs chosen = inputs;
        chosen.choice = choice;
        PixTwix engine;
        engine.SetPicture(picture);
        ASSERT_TRUE(call(engine));
        EXPECT_EQ(RenderOnto(*FindEffect(number), chosen, picture), engine.Picture()) << number << ' ' << choice;
    }
}

TEST(Catalogue, NegativePickerColorsCountAsBlack) {
    EXPECT_EQ(SplitColor(PickerColor(200, 100, 50)), (ColorBytes{200, 100, 50}));
    EXPECT_EQ(SplitColor(-1), (ColorBytes{0, 0, 0}));
}

TEST(PixTwix, SharesItsSourceAndLeavesItAlone) {
    const QImage source = SamplePicture(40, 30);
    const QImage pixels = source.copy();
    PixTwix engine;
    engine.SetPicture(source);
    EXPECT_EQ(engine.Picture().constBits(), source.constBits());
    ASSERT_TRUE(engine.FxNegative(true, true, true, false));
    EXPECT_EQ(source, pixels);
    EXPECT_EQ(engine.Picture().pixel(3, 2), source.pixel(3, 2) ^ 0xffffff);

    // A second operation works on the first one's render.
    ASSERT_TRUE(engine.FxNegative(true, true, true, false));
    EXPECT_EQ(engine.Picture(), pixels);
}

TEST(PixTwix, KeepsFormatTransparencyAndResolution) {
    QImage source = SamplePicture(40, 30).convertToFormat(QImage::Format_ARGB32);
    source.setPixel(3, 2, qRgba(10, 20, 30, 40));
    source.setDotsPerMeterX(11811);
    source.setDotsPerMeterY(5906);
    PixTwix engine;
    engine.SetPicture(source);
    ASSERT_TRUE(engine.FxNegative(true, true, true, false));
    EXPECT_EQ(engine.Picture().format(), QImage::Format_ARGB32);
    EXPECT_EQ(engine.Picture().pixel(3, 2), qRgba(245, 235, 225, 40));
    EXPECT_EQ(engine.Picture().dotsPerMeterX(), 11811);
    EXPECT_EQ(engine.Picture().dotsPerMeterY(), 5906);

    engine.SetPicture(SamplePicture(6, 4).convertToFormat(QImage::Format_RGB888));
    EXPECT_TRUE(engine.FxNegative(true, true, true, false)) << "any other format is taken too";
}

TEST(PixTwix, RefusesASecondRenderInsideAReportAndEndsWithAHundred) {
    PixTwix engine(1);
    engine.SetPicture(SamplePicture(2000, 1500));
    std::vector<int> reports;
    bool second = false;
    QObject::connect(&engine, &PixTwix::FxProgress, &engine, [&](int percent) {
        reports.push_back(percent);
        second = second || engine.FxReverse();
    });
    ASSERT_TRUE(engine.FxOilPainting(30, false));  // hundreds of milliseconds on one thread
    EXPECT_FALSE(second);
    ASSERT_FALSE(reports.empty());
    EXPECT_LT(reports.front(), 100);
    EXPECT_EQ(reports.back(), 100);
}

}  // namespace
}  // namespace kelu
