// The 48 effects as rows of one table: number, texts, inputs, what the panel places elsewhere, help page and engine
// call. Everything that differs from effect to effect stands here; selectors, panel, application and command line read
// it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <span>

#include "document/effect_inputs.h"
#include "document/shared_state.h"

namespace kelu {

class PixTwix;

inline constexpr int kEffectCount = 48;
inline constexpr int kNeon = 48;                  ///< the one effect that the pen surface renders itself
inline constexpr int kCoordinateMax = 999;        ///< largest number that a coordinate box takes
inline constexpr int kFarthestPoint = 1'000'000;  ///< largest coordinate, to either side, that a script may give
inline constexpr int kDefaultX = 250;             ///< the point that most effects with coordinates start from
inline constexpr int kDefaultY = 100;
inline constexpr int kDefaultDirection = 3;  ///< compass button at program start

struct EffectSlider {
    const char* label = nullptr;  ///< what it sets, for accessible names, tips and the command line; null: not used
    int min = 0;
    int max = 0;
    int value = 0;  ///< taken each time the effect is selected
};

struct EffectColor {
    const char* label = nullptr;  ///< what it colours; null: not used
    qint32 value = 0;             ///< taken each time the effect is selected
};

/// One value picked out of several by option buttons, a list or the compass.
struct EffectChoice {
    enum class Kind { None, Options, List, Compass };
    Kind kind = Kind::None;
    std::span<const char* const> names;             ///< captions, rows or tips, in order
    int initial = 0;                                ///< counted from 1; the compass only starts with it
    std::int16_t SharedState::*variable = nullptr;  ///< where the picked number is kept, counted from 1
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
    /// Runs the engine's operation; true when its picture holds the render. Null for Neon.
    bool (*call)(PixTwix& engine, const EffectInputs& inputs) = nullptr;

    /// Captions: a doubled ampersand stands for one on the screen.
    QString ButtonTip() const { return QString::fromLatin1(buttonTip ? buttonTip : listText); }
    QString PanelTitle() const { return QString::fromLatin1(panelTitle ? panelTitle : listText); }
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

/// All rows, in the order of their numbers.
std::span<const Effect> Catalogue();
/// The row of `number`, 1 to 48; null for any other number.
const Effect* FindEffect(int number);

/// Tips of the compass buttons 1 to 8.
std::span<const char* const> CompassTips();

/// Renders the engine's picture with the given inputs. False when the choice lies outside the effect's own (no
/// engine call then), when the engine refuses, and for Neon, which the engine doesn't know.
bool RenderEffect(const Effect& effect, const EffectInputs& inputs, PixTwix& engine);

/// A caption as it is read on the screen.
QString ShownCaption(QString caption);

}  // namespace kelu
