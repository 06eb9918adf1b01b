// kelu-cli effects: the catalogue with numbers, names, inputs, ranges and defaults, as a table or as JSON.
// SPDX-License-Identifier: MIT
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "cli/apply_options.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "effects/catalogue/catalogue.h"

namespace kelu::cli {

namespace {

QString ColorText(qint32 color) {
    const ColorBytes bytes = SplitColor(color);
    return QStringLiteral("#%1%2%3")
        .arg(bytes.red, 2, 16, QLatin1Char('0'))
        .arg(bytes.green, 2, 16, QLatin1Char('0'))
        .arg(bytes.blue, 2, 16, QLatin1Char('0'));
}

/// Every input of the effect as an object with its option, what it sets, its range and default.
QJsonArray Inputs(const Effect& effect) {
    QJsonArray inputs;
    for (std::size_t i = 0; i < effect.sliders.size(); ++i) {
        const EffectSlider& slider = effect.sliders[i];
        if (slider.label)
            inputs.append(QJsonObject{{"option", QStringLiteral("s%1").arg(i + 1)},
                                      {"label", slider.label},
                                      {"min", slider.min},
                                      {"max", slider.max},
                                      {"default", slider.value}});
    }
    if (effect.ShowsCoordinates()) {
        const EffectInputs defaults = effect.Defaults();
        inputs.append(
            QJsonObject{{"option", "x"}, {"min", -kFarthestPoint}, {"max", kFarthestPoint}, {"default", defaults.x}});
        inputs.append(
            QJsonObject{{"option", "y"}, {"min", -kFarthestPoint}, {"max", kFarthestPoint}, {"default", defaults.y}});
    }
    const auto addColor = [&inputs](const char* option, const EffectColor& color) {
        if (color.label)
            inputs.append(QJsonObject{{"option", option}, {"label", color.label}, {"default", ColorText(color.value)}});
    };
    addColor("color1", effect.color1);
    addColor("color2", effect.color2);
    if (effect.choice.kind != EffectChoice::Kind::None) {
        QJsonArray names;
        for (const char* name : effect.choice.names) names.append(ShownCaption(QString::fromLatin1(name)));
        inputs.append(QJsonObject{{"option", ChoiceOption(effect.choice.kind)},
                                  {"values", names},
                                  {"min", 1},
                                  {"max", static_cast<int>(effect.choice.names.size())},
                                  {"default", effect.choice.initial}});
    }
    return inputs;
}

QString InputText(const QJsonObject& input) {
    QString text = QStringLiteral("--") + input["option"].toString();
    if (input.contains("min"))
        text += QStringLiteral(" %1..%2 (%3)")
                    .arg(input["min"].toInt())
                    .arg(input["max"].toInt())
                    .arg(input["default"].toInt());
    else
        text += QStringLiteral(" (%1)").arg(input["default"].toString());
    if (input.contains("label")) text += QStringLiteral(" ") + input["label"].toString();
    return text;
}

}  // namespace

int EffectsCommand(const QStringList& words) {
    const Arguments arguments = Parse(words, {}, {QStringLiteral("json"), QStringLiteral("names")});
    if (!arguments.words.isEmpty()) throw UsageError(QStringLiteral("effects takes no names"));
    if (arguments.Has(QStringLiteral("names"))) {
        for (const Effect& effect : Catalogue()) PrintLine(QString::fromLatin1(effect.listText));
        return kDone;
    }
    QJsonArray all;
    for (const Effect& effect : Catalogue()) {
        const QJsonArray inputs = Inputs(effect);
        all.append(QJsonObject{{"number", effect.number}, {"name", effect.listText}, {"inputs", inputs}});
        if (arguments.Has(QStringLiteral("json"))) continue;
        QStringList texts;
        for (const QJsonValue& input : inputs) texts += InputText(input.toObject());
        PrintLine(QStringLiteral("%1  %2 %3")
                      .arg(effect.number, 2)
                      .arg(QString::fromLatin1(effect.listText), -18)
                      .arg(texts.join(QStringLiteral(", ")))
                      .trimmed());
    }
    if (arguments.Has(QStringLiteral("json")))
        PrintLine(QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Indented).trimmed()));
    return kDone;
}

}  // namespace kelu::cli
