// The effects as rows: number, texts, inputs, what the panel places elsewhere, help page and render. Everything that
// differs from effect to effect stands in its row; selectors, panel, application, command line, help and tests walk the
// rows. They lie beside this file, a file for each family.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <span>

#include "document/effect_inputs.h"
#include "document/shared_state.h"

namespace kelu {

namespace engine {
struct ImageView;
struct MutableImageView;
struct Run;
}  // namespace engine

inline constexpr int kCoordinateMax = 999;        ///< largest number that a coordinate box takes
inline constexpr int kFarthestPoint = 1'000'000;  ///< largest coordinate, to either side, that a script may give
inline constexpr int kDefaultX = 250;             ///< the point that most effects with coordinates start from
inline constexpr int kDefaultY = 100;
inline constexpr int kDefaultDirection = 3;  ///< compass button at program start
/// Tips of the compass buttons 1 to 8.
inline constexpr const char* kCompassTips[] = {"North West", "North",      "North Est", "West",
                                               "East",       "South West", "South",     "South East"};

/// What a slider stands at in a small picture that shows what the effect does, where its own start would not show.
struct EffectPreview {
    enum class Kind { AsOnPanel, Plain, Pixels };
    Kind kind = Kind::AsOnPanel;
    int value = 0;
};

struct EffectSlider {
    const char* label = nullptr;  ///< what it sets, for accessible names, tips and the command line; null: not used
    int min = 0;
    int max = 0;
    int value = 0;  ///< taken each time the effect is selected
    EffectPreview preview{};
};

struct EffectColor {
    const char* label = nullptr;  ///< what it colours; null: not used
    qint32 value = 0;             ///< taken each time the effect is selected
};

/// One value picked out of several by option buttons, a list or the compass.
struct EffectChoice {
    enum class Kind { None, Options, List, Compass };
    Kind kind = Kind::None;
    std::span<const char* const> names;  ///< captions, rows or tips, in order
    int initial = 0;                     ///< counted from 1; the compass only starts with it
    /// Where the picked number is kept, counted from 1. Options and lists are set anew with their effect, so that
    /// effects may share one.
    std::int16_t SharedState::*variable = nullptr;
};

enum class Coordinates {
    None,
    Shown,           ///< boxes shown, texts left as they stand
    ShownAndReset,   ///< boxes shown, texts set to the default point
    HiddenAndReset,  ///< boxes hidden, texts set all the same
};

/// Tops in twips that a row writes on selection; 0 leaves the control where it is.
struct PanelTops {
    int sldValue1 = 0;
    int cPicker1 = 0;
    int pagerCompass = 0;
    int lstValue = 0;
    int optGS1 = 0;
    int optGS2 = 0;
    int lblGS0 = 0;
    int lblGS1 = 0;
};

/// Whose picture Apply renders: that of the engine, which the pen then takes over, or the pen's own, in place.
enum class Fills { Engine, Pen };

/// A text of a row as it is read in the window: in the language in use. What a row says is also its name in scripts,
/// which is English always.
QString EffectText(const char* text);

struct Effect {
    int number = 0;
    const char* listText = nullptr;
    const char* buttonTip = nullptr;   ///< null: as in the list
    const char* panelTitle = nullptr;  ///< null: as in the list
    const char* hint = nullptr;        ///< second line of the panel's title
    const char* helpPage = nullptr;
    std::array<EffectSlider, 3> sliders{};
    Coordinates coordinates = Coordinates::None;
    EffectColor color1{};
    EffectColor color2{};
    EffectChoice choice{};
    PanelTops tops{};
    Fills fills = Fills::Engine;
    /// Renders into a target of the source's size. The choice lies within the effect's own; see RenderOnto.
    void (*render)(const engine::ImageView& source, const engine::MutableImageView& target, const EffectInputs& inputs,
                   const engine::Run& run) = nullptr;

    /// Captions: a doubled ampersand stands for one on the screen.
    QString ListText() const { return EffectText(listText); }
    QString ButtonTip() const { return EffectText(buttonTip ? buttonTip : listText); }
    QString PanelTitle() const { return EffectText(panelTitle ? panelTitle : listText); }
    /// Title, then the hint or, for an effect without any input, the note that there is nothing to set.
    QString PanelCaption() const;
    bool ShowsCoordinates() const {
        return coordinates == Coordinates::Shown || coordinates == Coordinates::ShownAndReset;
    }
    bool ResetsCoordinates() const {
        return coordinates == Coordinates::ShownAndReset || coordinates == Coordinates::HiddenAndReset;
    }
    bool HasInputs() const;
    /// The values that the panel shows after the effect was chosen in a fresh program.
    EffectInputs Defaults() const;
};

/// The rows of one kind, under the heading that the help gives them.
struct EffectFamily {
    const char* heading = nullptr;
    std::span<const Effect> rows;
};

/// All families, in the order of the help's index.
std::span<const EffectFamily> Families();
/// All rows, in the order of their numbers, which count from 1.
std::span<const Effect> Catalogue();
/// The row of `number`; null for a number that no effect has.
const Effect* FindEffect(int number);

/// A caption as it is read on the screen.
QString ShownCaption(QString caption);

}  // namespace kelu
