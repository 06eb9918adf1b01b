// SPDX-License-Identifier: MIT
#include "effects/catalogue/render_onto.h"

#include <algorithm>
#include <cmath>

#include "canvas/render_picture.h"
#include "effects/catalogue/catalogue.h"
#include "platform/error.h"
#include "platform/units.h"

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

QImage RenderOnto(const Effect& effect, const EffectInputs& inputs, const QImage& picture, const engine::Run& run) {
    const int choices = static_cast<int>(effect.choice.names.size());
    if (choices > 0 && (inputs.choice < 1 || inputs.choice > choices))
        throw Error(kInvalidProperty, QStringLiteral("%1 has no such choice").arg(QLatin1String(effect.listText)));
    return RenderPicture(
        picture, [&](auto& source, auto& target, auto& how) { effect.render(source, target, inputs, how); }, run);
}

QImage RenderEffectOn(const QImage& picture, int number, const EffectInputs& inputs) {
    const Effect* effect = FindEffect(number);
    if (!effect)
        throw Error(kInvalidProperty, QStringLiteral("There is no effect %1").arg(number),
                    QStringLiteral("RenderEffectOn"));
    CheckInputs(*effect, inputs);
    return RenderOnto(*effect, inputs, picture);
}

EffectInputs PreviewInputs(const Effect& effect, const QSize& size, double ratio, double scale) {
    EffectInputs inputs = effect.Defaults();
    inputs.x = size.width() / 2;
    inputs.y = size.height() / 2;
    for (std::size_t i = 0; i < effect.sliders.size(); ++i) {
        const EffectPreview& preview = effect.sliders[i].preview;
        if (preview.kind == EffectPreview::Kind::Plain) inputs.slider[i] = preview.value;
        if (preview.kind != EffectPreview::Kind::Pixels) continue;
        const double most = std::min(size.width(), size.height()) / 3.0;  // three squares side by side still show
        const double least = preview.value * ratio;
        const double promised = std::clamp(effect.sliders[i].value * scale, -most, most);
        inputs.slider[i] = RoundToEven(std::abs(promised) > std::abs(least) ? promised : least);
    }
    return inputs;
}

}  // namespace kelu
