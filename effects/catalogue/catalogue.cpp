// The families put together, and the few questions that can be asked of a row.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/catalogue.h"

#include <QCoreApplication>
#include <algorithm>
#include <vector>

#include "effects/catalogue/family.h"

namespace kelu {

namespace {

constexpr const char* kNothingToSet = "No Settings. Click on 'Apply' button.";

}  // namespace

QString EffectText(const char* text) { return QCoreApplication::translate("Effects", text); }

QString Effect::PanelCaption() const {
    if (!HasInputs()) return PanelTitle() + QStringLiteral("\r\n\r\n") + EffectText(kNothingToSet);
    return hint ? PanelTitle() + QStringLiteral("\r\n") + EffectText(hint) : PanelTitle();
}

bool Effect::HasInputs() const {
    return sliders[0].label || ShowsCoordinates() || color1.label || choice.kind != EffectChoice::Kind::None;
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

std::span<const EffectFamily> Families() {
    static const EffectFamily families[] = {Colors(),   LightAndGrain(), Blur(),   EdgesAndRelief(),
                                            Painting(), Shapes(),        Borders()};
    return families;
}

std::span<const Effect> Catalogue() {
    static const std::vector<Effect> rows = [] {
        std::vector<Effect> all;
        for (const EffectFamily& family : Families()) all.insert(all.end(), family.rows.begin(), family.rows.end());
        std::sort(all.begin(), all.end(), [](const Effect& a, const Effect& b) { return a.number < b.number; });
        return all;
    }();
    return rows;
}

const Effect* FindEffect(int number) {
    const std::span<const Effect> all = Catalogue();
    return number >= 1 && number <= static_cast<int>(all.size()) ? &all[static_cast<std::size_t>(number - 1)] : nullptr;
}

QString ShownCaption(QString caption) { return caption.replace(QStringLiteral("&&"), QStringLiteral("&")); }

}  // namespace kelu
