// The table of the 48 effects and the few questions that can be asked of a row.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/catalogue.h"

#include "effects/catalogue/pix_twix.h"

namespace kelu {
namespace {

constexpr const char* kGrayNames[] = {"Proportional", "Weighted"};
constexpr const char* kWindowNames[] = {"Circle", "Square"};
constexpr const char* kHighPassNames[] = {"High Pass 1", "High Pass 2", "High Pass 3"};
constexpr const char* kSpecialFilterNames[] = {"Gradient East",
                                               "Gradient North",
                                               "Gradient South",
                                               "Gradient West",
                                               "Laplace 1",
                                               "Laplace 2",
                                               "Laplace 3",
                                               "Laplace Diagonal",
                                               "Laplace Horizontal",
                                               "Laplace Vertical",
                                               "Prewitt Horizontal",
                                               "Prewitt Vertical",
                                               "Shift & Difference Diagonal",
                                               "Shift & Difference Horizontal",
                                               "Shift & Difference Vertical",
                                               "Sobel Horizontal",
                                               "Sobel Vertical"};
constexpr const char* kSwapNames[] = {"Red - Green", "Red - Blue", "Green - Blue"};
constexpr const char* kCompassNames[] = {"North West", "North",      "North Est", "West",
                                         "East",       "South West", "South",     "South East"};

// The buttons are numbered by rows from north-west, the engine counts clockwise from north.
constexpr int kCompassEngineValue[] = {7, 0, 1, 6, 2, 5, 4, 3};
int EngineDirection(const EffectInputs& inputs) { return kCompassEngineValue[inputs.choice - 1]; }

using Kind = EffectChoice::Kind;
constexpr EffectChoice kGray{Kind::Options, kGrayNames, 1, &SharedState::GraySelect};
constexpr EffectChoice kMaximumWindow{Kind::Options, kWindowNames, 1, &SharedState::MaximumSelect};
constexpr EffectChoice kMinimumWindow{Kind::Options, kWindowNames, 1, &SharedState::MinimumSelect};
constexpr EffectChoice kHighPass{Kind::List, kHighPassNames, 1, &SharedState::HighPassSelect};
constexpr EffectChoice kSpecialFilter{Kind::List, kSpecialFilterNames, 5, &SharedState::SPFilterSelect};
constexpr EffectChoice kSwapChannels{Kind::List, kSwapNames, 1, &SharedState::SwapChannelsSelect};
constexpr EffectChoice kCompass{Kind::Compass, kCompassNames, kDefaultDirection, &SharedState::CompassDirection};

constexpr PanelTops kGrayTops{.optGS1 = 1200, .optGS2 = 1440, .lblGS0 = 1215, .lblGS1 = 1470};
constexpr PanelTops kWindowTops{.optGS1 = 1720, .optGS2 = 2000, .lblGS0 = 1770, .lblGS1 = 2040};
// Slider and picker move up to make room for the coordinates, and stay there for whatever is chosen next.
constexpr PanelTops kRaisedTops{.sldValue1 = 1000, .cPicker1 = 1400};

constexpr auto kPoint = Coordinates::ShownAndReset;

using E = PixTwix&;
using In = const EffectInputs&;

// clang-format off
constexpr std::array<Effect, kEffectCount> kEffects{{
    {.number = 1, .listText = "Grayscale", .helpPage = "grayscale.html",
     .choice = kGray, .tops = kGrayTops,
     .call = [](E e, In in) { return e.FxGrayscale(in.choice - 1, false); }},
    {.number = 2, .listText = "Sepia", .helpPage = "sepia.html",
     .sliders = {{{"Strength", 0, 100, 30}}},
     .call = [](E e, In in) { return e.FxSepia(in.slider[0], false); }},
    {.number = 3, .listText = "Black & White", .buttonTip = "Black && White", .panelTitle = "Black && White",
     .helpPage = "bw.html",
     .sliders = {{{"Threshold", 0, 255, 160}}},
     .call = [](E e, In in) { return e.FxBlackWhite(in.slider[0], false); }},
    {.number = 4, .listText = "B&W Dithered", .buttonTip = "Black && White Dithered",
     .panelTitle = "Black && White Dithered", .helpPage = "bwd.html",
     .sliders = {{{"Hardness", 0, 100, 0}}},
     .call = [](E e, In in) { return e.FxBlackWhiteDither(in.slider[0], false); }},
    {.number = 5, .listText = "Noise", .helpPage = "noise.html",
     .sliders = {{{"Amount", 2, 100, 50}}},
     .call = [](E e, In in) { return e.FxNoise(in.slider[0], true, false); }},
    {.number = 6, .listText = "Antialias", .helpPage = "antialias.html",
     .call = [](E e, In) { return e.FxAntialias(false); }},
    {.number = 7, .listText = "Blobs", .helpPage = "blobs.html",
     .sliders = {{{"Radius", 1, 100, 10}, {"Spacing", 1, 100, 6}}},
     .call = [](E e, In in) { return e.FxBlobs(in.slider[0], in.slider[1], false); }},
    {.number = 8, .listText = "Blur 1", .helpPage = "blur1.html",
     .sliders = {{{"Radius", 1, 100, 4}}},
     .call = [](E e, In in) { return e.FxBlur1(in.slider[0], false); }},
    {.number = 9, .listText = "Blur 2", .helpPage = "blur2.html",
     .sliders = {{{"Length", 1, 100, 4}}}, .coordinates = kPoint,
     .call = [](E e, In in) { return e.FxBlur2(in.x, in.y, in.slider[0], false); }},
    {.number = 10, .listText = "Blur 3", .helpPage = "blur3.html",
     .sliders = {{{"Angle", 1, 100, 4}}}, .coordinates = kPoint,
     .call = [](E e, In in) { return e.FxBlur3(in.x, in.y, in.slider[0], false); }},
    {.number = 11, .listText = "Brightness 1", .helpPage = "brightness1.html",
     .sliders = {{{"Brightness", -100, 100, 35}}},
     .call = [](E e, In in) { return e.FxBrightness1(in.slider[0], false); }},
    // The engine's horizontal unit is four pixels here, and here only.
    {.number = 12, .listText = "Brightness 2", .helpPage = "brightness2.html",
     .sliders = {{{"Brightness", -100, 100, -100}}}, .coordinates = kPoint,
     .call = [](E e, In in) { return e.FxBrightness2(in.x / 4, in.y, in.slider[0], false); }},
    {.number = 13, .listText = "Contrast", .helpPage = "contrast.html",
     .sliders = {{{"Contrast", -100, 100, 100}}},
     .call = [](E e, In in) { return e.FxContrast(in.slider[0], false); }},
    {.number = 14, .listText = "Color Gradient", .helpPage = "colorgradient.html",
     .sliders = {{{"Strength", -100, 100, -100}}}, .coordinates = kPoint,
     .call = [](E e, In in) { return e.FxColorGradient(in.x, in.y, in.slider[0], false); }},
    {.number = 15, .listText = "Color Correction", .hint = "Select Colors", .helpPage = "colorcorrection.html",
     .coordinates = Coordinates::HiddenAndReset,
     .color1 = {"Black Point", PickerColor(47, 47, 47)}, .color2 = {"White Point", PickerColor(255, 255, 243)},
     .call = [](E e, In in) { return e.FxColorCorrection(in.color1.red, in.color1.green, in.color1.blue,
                                                               in.color2.red, in.color2.green, in.color2.blue, false); }},
    {.number = 16, .listText = "Color Emboss", .helpPage = "coloremboss.html",
     .choice = kCompass, .tops = {.pagerCompass = 1200},
     .call = [](E e, In in) { return e.FxColorEmboss(EngineDirection(in), false); }},
    {.number = 17, .listText = "Colorize", .hint = "Select Colors", .helpPage = "colorize.html",
     .coordinates = Coordinates::HiddenAndReset,
     .color1 = {"Color", PickerColor(255, 0, 0)},
     .call = [](E e, In in) { return e.FxColorize(in.color1.red, in.color1.green, in.color1.blue, false); }},
    // The engine takes the second colour as red, blue, green.
    {.number = 18, .listText = "False Color", .hint = "Select Colors", .helpPage = "falsecolor.html",
     .coordinates = Coordinates::HiddenAndReset,
     .color1 = {"Dark Color", PickerColor(20, 20, 0)}, .color2 = {"Light Color", PickerColor(200, 100, 50)},
     .call = [](E e, In in) { return e.FxFalseColor(in.color1.red, in.color1.green, in.color1.blue,
                                                          in.color2.red, in.color2.blue, in.color2.green, false); }},
    {.number = 19, .listText = "Enhance Edges", .panelTitle = "Enhance Edge", .helpPage = "enhanceedge.html",
     .call = [](E e, In) { return e.FxEnhanceEdges(false); }},
    {.number = 20, .listText = "Emboss", .hint = "Direction && Intensity", .helpPage = "emboss.html",
     .sliders = {{{"Intensity", 1, 10, 2}, {"Gray Level", 0, 255, 127}}},
     .choice = kCompass, .tops = {.pagerCompass = 2130},
     .call = [](E e, In in) { return e.FxEmboss(EngineDirection(in), in.slider[0], in.slider[1], false, false); }},
    {.number = 21, .listText = "Erode Border", .buttonTip = "Erode Borders", .panelTitle = "Eroded Borders",
     .helpPage = "erodeborder.html",
     .sliders = {{{"Depth", 0, 255, 20}}}, .color1 = {"Border Color", PickerColor(255, 255, 255)},
     .call = [](E e, In in) { return e.FxErodeBorder(in.slider[0], in.color1.red, in.color1.green, in.color1.blue); }},
    {.number = 22, .listText = "Explode", .helpPage = "explode.html",
     .sliders = {{{"Amount", 1, 100, 10}}}, .coordinates = kPoint,
     .call = [](E e, In in) { return e.FxExplode(in.x, in.y, in.slider[0]); }},
    {.number = 23, .listText = "Fade Borders", .panelTitle = "Faded Borders", .helpPage = "fadeborder.html",
     .sliders = {{{"Width", 0, 255, 30}}}, .color1 = {"Border Color", PickerColor(255, 255, 255)},
     .call = [](E e, In in) { return e.FxFadeBorders(in.slider[0], in.color1.red, in.color1.green, in.color1.blue); }},
    {.number = 24, .listText = "Fish Eye", .helpPage = "fisheye.html",
     .color1 = {"Background Color", PickerColor(255, 255, 255)},
     .call = [](E e, In in) { return e.FxFishEye(in.color1.red, in.color1.green, in.color1.blue); }},
    {.number = 25, .listText = "High Pass", .helpPage = "highpass.html",
     .choice = kHighPass, .tops = {.lstValue = 1200},
     .call = [](E e, In in) { return e.FxHighPass(in.choice - 1, false); }},
    {.number = 26, .listText = "Implode", .helpPage = "implode.html",
     .sliders = {{{"Amount", 1, 100, 10}}}, .coordinates = Coordinates::Shown,
     .color1 = {"Background Color", PickerColor(0, 0, 0)}, .tops = kRaisedTops,
     .call = [](E e, In in) { return e.FxImplode(in.x, in.y, in.slider[0],
                                                       in.color1.red, in.color1.green, in.color1.blue); }},
    {.number = 27, .listText = "Irregular Borders", .helpPage = "irrborders.html",
     .sliders = {{{"Width", 0, 200, 20}}}, .color1 = {"Border Color", PickerColor(255, 255, 255)}, .tops = kRaisedTops,
     .call = [](E e, In in) { return e.FxIrregularBorders(in.slider[0],
                                                                in.color1.red, in.color1.green, in.color1.blue); }},
    {.number = 28, .listText = "Maximum", .helpPage = "maximum.html",
     .sliders = {{{"Radius", 1, 100, 30}}}, .choice = kMaximumWindow, .tops = kWindowTops,
     .call = [](E e, In in) { return e.FxMaximum(in.choice - 1, in.slider[0], false); }},
    {.number = 29, .listText = "Minimum", .buttonTip = "Minmum", .helpPage = "minimum.html",
     .sliders = {{{"Radius", 1, 100, 30}}}, .choice = kMinimumWindow, .tops = kWindowTops,
     .call = [](E e, In in) { return e.FxMinimum(in.choice - 1, in.slider[0], false); }},
    {.number = 30, .listText = "Melt", .helpPage = "melt.html",
     .call = [](E e, In) { return e.FxMelt(false); }},
    {.number = 31, .listText = "Mosaic", .helpPage = "mosaic.html",
     .sliders = {{{"Block Width", 1, 100, 10}, {"Block Height", 1, 100, 10}}},
     .call = [](E e, In in) { return e.FxMosaic(in.slider[0], in.slider[1], false); }},
    {.number = 32, .listText = "Negative", .helpPage = "negative.html",
     .call = [](E e, In) { return e.FxNegative(true, true, true, false); }},
    {.number = 33, .listText = "Oil Painting", .helpPage = "oilpainting.html",
     .sliders = {{{"Radius", 1, 100, 5}}},
     .call = [](E e, In in) { return e.FxOilPainting(in.slider[0], false); }},
    {.number = 34, .listText = "Posterize", .helpPage = "posterize.html",
     .sliders = {{{"Red Bits", 1, 8, 2}, {"Green Bits", 1, 8, 2}, {"Blue Bits", 1, 8, 2}}},
     .call = [](E e, In in) { return e.FxPosterize(in.slider[0], in.slider[1], in.slider[2], false); }},
    {.number = 35, .listText = "Reverse", .helpPage = "reverse.html",
     .call = [](E e, In) { return e.FxReverse(); }},
    {.number = 36, .listText = "Saturation 1", .helpPage = "saturation1.html",
     .sliders = {{{"Saturation", -100, 100, 100}}},
     .call = [](E e, In in) { return e.FxSaturation1(in.slider[0], false); }},
    {.number = 37, .listText = "Saturation 2", .helpPage = "saturation2.html",
     .sliders = {{{"Saturation", -100, 100, -100}}}, .coordinates = kPoint,
     .call = [](E e, In in) { return e.FxSaturation2(in.x, in.y, in.slider[0], false); }},
    {.number = 38, .listText = "Scramble", .helpPage = "scramble.html",
     .sliders = {{{"Square Size", 0, 100, 100}, {"Share Moved", 0, 100, 50}}},
     .call = [](E e, In in) { return e.FxScramble(in.slider[0], in.slider[1]); }},
    {.number = 39, .listText = "Solarize", .helpPage = "solarize.html",
     .sliders = {{{"Red Threshold", 0, 255, 140}, {"Green Threshold", 0, 255, 140}, {"Blue Threshold", 0, 255, 140}}},
     .call = [](E e, In in) { return e.FxSolarize(in.slider[0], in.slider[1], in.slider[2], true, false); }},
    {.number = 40, .listText = "Special Filter", .helpPage = "spfilter.html",
     .sliders = {{{"Base Level", 0, 255, 127}}}, .choice = kSpecialFilter,
     .tops = {.sldValue1 = 1000, .lstValue = 1500},
     .call = [](E e, In in) { return e.FxSpecialFilter(in.choice - 1, in.slider[0], false); }},
    {.number = 41, .listText = "Sketch", .helpPage = "sketch.html",
     .call = [](E e, In) { return e.FxSketch(); }},
    {.number = 42, .listText = "Spray", .helpPage = "spray.html",
     .sliders = {{{"Radius", 2, 100, 15}}},
     .call = [](E e, In in) { return e.FxSpray(in.slider[0], false); }},
    // The engine numbers the pairs the other way round.
    {.number = 43, .listText = "Swap Colors", .helpPage = "swapcolors.html",
     .choice = kSwapChannels, .tops = {.lstValue = 1200},
     .call = [](E e, In in) { return e.FxSwapColors(3 - in.choice, false); }},
    {.number = 44, .listText = "Tile", .helpPage = "tile.html",
     .sliders = {{{"Tile Size", 1, 100, 100}, {"Displacement", 1, 100, 40}}},
     .call = [](E e, In in) { return e.FxTile(in.slider[0], in.slider[1]); }},
    {.number = 45, .listText = "Tint", .hint = "Select a Color", .helpPage = "tint.html",
     .coordinates = Coordinates::HiddenAndReset, .color1 = {"Tint Color", PickerColor(255, 100, 255)},
     .call = [](E e, In in) { return e.FxTint(in.color1.red, in.color1.green, in.color1.blue, false); }},
    // Nine weights row by row, their divisor, an offset.
    {.number = 46, .listText = "Freeze", .helpPage = "freeze.html",
     .call = [](E e, In) { return e.FxFreeze(1, 1, 1, 1, -7, 1, 1, 1, 1, 1, 0, false); }},
    {.number = 47, .listText = "Wind", .helpPage = "wind.html",
     .sliders = {{{"Wind to the Right", -100, 100, 25}, {"Wind Downward", -100, 100, -10}}},
     .call = [](E e, In in) { return e.FxWind(in.slider[0], static_cast<float>(in.slider[1]), false); }},
    {.number = kNeon, .listText = "Neon", .helpPage = "neon.html"},
}};
// clang-format on

}  // namespace

QString Effect::PanelCaption() const {
    if (!HasInputs()) return PanelTitle() + QStringLiteral("\r\n\r\nNo Settings. Click on 'Apply' button.");
    return hint ? PanelTitle() + QStringLiteral("\r\n") + QString::fromLatin1(hint) : PanelTitle();
}

bool Effect::HasInputs() const {
    return sliders[0].label || ShowsCoordinates() || color1.label || choice.kind != Kind::None;
}

EffectInputs Effect::Defaults() const {
    EffectInputs inputs;
    for (std::size_t i = 0; i < sliders.size(); ++i) inputs.slider[i] = sliders[i].value;
    inputs.x = kDefaultX;
    inputs.y = kDefaultY;
    inputs.color1 = SplitColor(color1.value);
    inputs.color2 = SplitColor(color2.value);
    inputs.choice = choice.initial;
    return inputs;
}

std::span<const Effect> Catalogue() { return kEffects; }

const Effect* FindEffect(int number) {
    return number >= 1 && number <= kEffectCount ? &kEffects[static_cast<std::size_t>(number - 1)] : nullptr;
}

std::span<const char* const> CompassTips() { return kCompassNames; }

bool RenderEffect(const Effect& effect, const EffectInputs& inputs, PixTwix& engine) {
    if (!effect.call) return false;
    const int choices = static_cast<int>(effect.choice.names.size());
    if (choices && (inputs.choice < 1 || inputs.choice > choices)) return false;
    return effect.call(engine, inputs);
}

QString ShownCaption(QString caption) { return caption.replace(QStringLiteral("&&"), QStringLiteral("&")); }

}  // namespace kelu
