// Feeds any words to the command line of "kelu-cli apply", a line each. What is refused says why; what is taken lies
// within the effect's ranges, and is the same when the words are read again. No file is opened. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <cstdlib>
#include <cstring>

#include "cli/apply_options.h"
#include "cli/batch.h"

namespace {

using namespace kelu;
using namespace kelu::cli;

void Require(bool condition) {
    if (!condition) std::abort();
}

EffectInputs Read(const QStringList& words) {
    const Arguments arguments =
        Parse(words, InputOptions() + Batch::Options() + QStringList{"strokes"}, Batch::Flags());
    const Effect& effect = EffectByName(arguments.words.value(0));
    const EffectInputs inputs = EffectInputsOf(effect, arguments);
    for (std::size_t i = 0; i < effect.sliders.size(); ++i)
        if (const EffectSlider& slider = effect.sliders[i]; slider.label)
            Require(inputs.slider[i] >= slider.min && inputs.slider[i] <= slider.max);
    if (!ChoiceOption(effect.choice.kind).isEmpty())
        Require(inputs.choice >= 1 && inputs.choice <= static_cast<int>(effect.choice.names.size()));
    if (!arguments.Has("list")) Batch(arguments, arguments.words.mid(1));
    return inputs;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QStringList words =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)).split(u'\n');
    try {
        Require(Read(words) == Read(words));
    } catch (const UsageError& error) {
        Require(std::strlen(error.what()) > 0);
    }
    return 0;
}
