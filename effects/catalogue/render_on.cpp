// SPDX-License-Identifier: MIT
#include "effects/catalogue/render_on.h"

#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"

namespace kelu {
namespace {

void CheckInputs(const Effect& effect, const EffectInputs& inputs) {
    const auto check = [&](bool good) {
        if (!good)
            throw Error(kInvalidProperty,
                        QStringLiteral("%1 doesn't take such inputs").arg(QString::fromLatin1(effect.listText)),
                        QStringLiteral("RenderEffectOn"));
    };
    for (std::size_t i = 0; i < effect.sliders.size(); ++i)
        if (const EffectSlider& slider = effect.sliders[i]; slider.label)
            check(inputs.slider[i] >= slider.min && inputs.slider[i] <= slider.max);
    const int choices = static_cast<int>(effect.choice.names.size());
    check(choices == 0 || (inputs.choice >= 1 && inputs.choice <= choices));
}

}  // namespace

QImage RenderEffectOn(const QImage& picture, int number, const EffectInputs& inputs) {
    const Effect* effect = FindEffect(number);
    if (!effect)
        throw Error(kInvalidProperty, QStringLiteral("There is no effect %1").arg(number),
                    QStringLiteral("RenderEffectOn"));
    CheckInputs(*effect, inputs);
    return RenderOnto(*effect, inputs, picture);
}

}  // namespace kelu
