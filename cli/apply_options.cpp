// SPDX-License-Identifier: MIT
#include "cli/apply_options.h"

#include <QColor>

namespace kelu::cli {

namespace {

/// Letters and digits in lower case, so that "oil painting", "OilPainting" and "Oil-Painting" are one name.
QString PlainName(const QString& text) {
    QString plain;
    for (const QChar c : text)
        if (c.isLetterOrNumber()) plain += c.toLower();
    return plain;
}

ColorBytes ColorOf(const QString& option, const QString& text) {
    const QColor color(text);
    // An effect's colour has no transparency: what looks like one would be dropped without a word.
    if (!color.isValid() || color.alpha() != 255)
        throw UsageError(QStringLiteral("--%1 takes a colour such as #ff8000").arg(option));
    return {color.red(), color.green(), color.blue()};
}

}  // namespace

QString ChoiceOption(EffectChoice::Kind kind) {
    switch (kind) {
        case EffectChoice::Kind::Options:
            return QStringLiteral("option");
        case EffectChoice::Kind::List:
            return QStringLiteral("row");
        case EffectChoice::Kind::Compass:
            return QStringLiteral("direction");
        case EffectChoice::Kind::None:
            break;
    }
    return {};
}

const Effect& EffectByName(const QString& text) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (const Effect* effect = isNumber ? FindEffect(number) : nullptr) return *effect;
    for (const Effect& effect : Catalogue())
        if (PlainName(QString::fromLatin1(effect.listText)) == PlainName(text)) return effect;
    QStringList names;
    for (const Effect& effect : Catalogue()) names += QString::fromLatin1(effect.listText);
    throw UsageError(
        QStringLiteral("no such effect: %1%2; kelu-cli effects lists them").arg(text, DidYouMean(text, names)));
}

QStringList InputOptions() { return {"s1", "s2", "s3", "x", "y", "color1", "color2", "direction", "row", "option"}; }

EffectInputs EffectInputsOf(const Effect& effect, const Arguments& arguments) {
    EffectInputs inputs = effect.Defaults();
    QStringList taken;
    for (std::size_t i = 0; i < effect.sliders.size(); ++i) {
        const QString option = QStringLiteral("s%1").arg(i + 1);
        if (!effect.sliders[i].label) continue;
        taken += option;
        if (arguments.Has(option))
            inputs.slider[i] = arguments.Integer(option, effect.sliders[i].min, effect.sliders[i].max);
    }
    if (effect.ShowsCoordinates()) {
        taken += {"x", "y"};
        // A script knows its picture's size, so points beyond the window's boxes are welcome here.
        if (arguments.Has("x")) inputs.x = arguments.Integer("x", -kFarthestPoint, kFarthestPoint);
        if (arguments.Has("y")) inputs.y = arguments.Integer("y", -kFarthestPoint, kFarthestPoint);
    }
    if (effect.color1.label) {
        taken += "color1";
        if (arguments.Has("color1")) inputs.color1 = ColorOf("color1", arguments.options["color1"]);
    }
    if (effect.color2.label) {
        taken += "color2";
        if (arguments.Has("color2")) inputs.color2 = ColorOf("color2", arguments.options["color2"]);
    }
    if (const QString option = ChoiceOption(effect.choice.kind); !option.isEmpty()) {
        taken += option;
        if (arguments.Has(option))
            inputs.choice = arguments.Integer(option, 1, static_cast<int>(effect.choice.names.size()));
    }
    for (const QString& option : InputOptions())
        if (arguments.Has(option) && !taken.contains(option))
            throw UsageError(QStringLiteral("%1 takes no --%2").arg(QString::fromLatin1(effect.listText), option));
    return inputs;
}

}  // namespace kelu::cli
