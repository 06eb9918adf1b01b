// What the engine benchmark renders.
// SPDX-License-Identifier: MIT
#include "bench/engine_rows.h"

#include "effects/catalogue/catalogue.h"

namespace kelu::bench {
namespace {

Render Of(const Effect& effect, const EffectInputs& inputs) {
    return [render = effect.render, inputs](auto& source, auto& target, auto& run) {
        render(source, target, inputs, run);
    };
}

std::string NameOf(const Effect& effect) { return std::to_string(effect.number) + ' ' + effect.listText; }

// The effect with each of its options, or, without any, once.
template <class Add>
void ForEachOption(const Effect& effect, const Add& add) {
    EffectInputs inputs = effect.Defaults();
    if (effect.choice.kind != EffectChoice::Kind::Options) return add(NameOf(effect), inputs);
    for (const char* option : effect.choice.names) {
        add(NameOf(effect) + ", " + option, inputs);
        ++inputs.choice;
    }
}

bool HasLength(const Effect& effect) {
    // Zoom and spin are no lengths, and yet their cost could grow with them.
    return effect.sliders[0].preview.kind == EffectPreview::Kind::Pixels || effect.number == 9 || effect.number == 10;
}

}  // namespace

std::vector<BenchRow> DefaultRows() {
    std::vector<BenchRow> rows;
    for (const Effect& effect : Catalogue())
        ForEachOption(effect, [&](const std::string& name, const EffectInputs& inputs) {
            rows.push_back({name, Of(effect, inputs)});
        });
    return rows;
}

std::vector<BenchRow> ExtremeRows() {
    std::vector<BenchRow> rows;
    for (const Effect& effect : Catalogue()) {
        std::vector<std::size_t> sliders;
        for (std::size_t i = 0; i < effect.sliders.size(); ++i)
            if (effect.sliders[i].label) sliders.push_back(i);
        if (sliders.empty()) continue;
        ForEachOption(effect, [&](const std::string& name, const EffectInputs& inputs) {
            for (unsigned ends = 0; ends < 1u << sliders.size(); ++ends) {
                BenchRow row{name + ",", {}};
                EffectInputs at = inputs;
                for (std::size_t k = 0; k < sliders.size(); ++k) {
                    const EffectSlider& slider = effect.sliders[sliders[k]];
                    at.slider[sliders[k]] = ends >> k & 1 ? slider.max : slider.min;
                    row.name += ' ' + std::to_string(at.slider[sliders[k]]);
                }
                row.render = Of(effect, at);
                rows.push_back(std::move(row));
            }
        });
    }
    return rows;
}

std::vector<RadiusRow> RadiusRows() {
    std::vector<RadiusRow> rows;
    for (const Effect& effect : Catalogue()) {
        if (!HasLength(effect)) continue;
        ForEachOption(effect, [&](const std::string& name, const EffectInputs& inputs) {
            rows.push_back({name, [&effect, inputs](int radius, auto& source, auto& target, auto& run) {
                                EffectInputs at = inputs;
                                for (std::size_t i = 0; i < at.slider.size(); ++i)
                                    if (i == 0 || effect.sliders[i].preview.kind == EffectPreview::Kind::Pixels)
                                        at.slider[i] = radius;
                                effect.render(source, target, at, run);
                            }});
        });
    }
    return rows;
}

}  // namespace kelu::bench
