// The words of "kelu-cli apply" that choose an effect and its inputs, held against the catalogue.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "cli/command_line.h"
#include "effects/catalogue/catalogue.h"

namespace kelu::cli {

/// The effect of a number or a name (case, blanks and punctuation don't count). Throws UsageError.
const Effect& EffectByName(const QString& text);

/// The option that sets a choice of this kind: "option", "row" or "direction"; empty for none.
QString ChoiceOption(EffectChoice::Kind kind);

/// Names of the options that EffectInputsOf reads; all take a value.
QStringList InputOptions();

/// The effect's defaults with what the options change. Throws UsageError for a value out of range and for an input
/// that the effect does not take.
EffectInputs EffectInputsOf(const Effect& effect, const Arguments& arguments);

}  // namespace kelu::cli
