// Parsing and checking of the written texts.
// SPDX-License-Identifier: MIT
#include "help/help_text.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

#include "platform/error.h"

namespace kelu {
namespace {

[[noreturn]] void Refuse(const QString& path, const QString& why) {
    throw Error(kFileError, QFileInfo(path).fileName() + QStringLiteral(": ") + why);
}

QStringList JoinedLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) Refuse(path, file.errorString());
    QStringList lines;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (line.trimmed().isEmpty()) continue;
        if (line.startsWith(QLatin1Char(' ')) && !lines.isEmpty()) {
            lines.last() += QLatin1Char(' ') + line.trimmed();
        } else {
            lines += line.trimmed();
        }
    }
    return lines;
}

}  // namespace

QStringList InputNames(const Effect& effect) {
    QStringList names;
    for (const EffectSlider& slider : effect.sliders) {
        if (slider.label) names += QString::fromLatin1(slider.label);
    }
    if (effect.choice.kind != EffectChoice::Kind::None) names += QStringLiteral("Choice");
    if (effect.ShowsCoordinates()) names += QStringLiteral("Point");
    for (const EffectColor* color : {&effect.color1, &effect.color2}) {
        if (color->label) names += QString::fromLatin1(color->label);
    }
    return names;
}

HelpText ReadHelpText(const QString& path, const Effect& effect) {
    HelpText result;
    for (const QString& line : JoinedLines(path)) {
        const QString keyword = line.section(QLatin1Char(' '), 0, 0);
        const QString rest = line.section(QLatin1Char(' '), 1).trimmed();
        if (keyword == u"photo") {
            result.photo = rest;
        } else if (keyword == u"sliders") {
            for (const QString& value : rest.split(QLatin1Char(' '))) result.sliders += value.toInt();
        } else if (keyword == u"lead") {
            result.lead = rest;
        } else if (keyword == u"text") {
            result.text += rest;
        } else if (keyword == u"input") {
            result.inputs[rest.section(QStringLiteral(": "), 0, 0)] = rest.section(QStringLiteral(": "), 1);
        } else if (keyword == u"hint") {
            result.hints += rest;
        } else if (keyword == u"see") {
            result.see = rest.split(QLatin1Char(' '));
        } else {
            Refuse(path, QStringLiteral("unknown keyword ") + keyword);
        }
    }
    if (result.photo.isEmpty() || result.lead.isEmpty() || result.text.isEmpty() || result.hints.isEmpty()) {
        Refuse(path, QStringLiteral("photo, lead, text or hint is missing"));
    }
    const QStringList told = result.inputs.keys(), wanted = InputNames(effect);
    if (QSet<QString>(told.begin(), told.end()) != QSet<QString>(wanted.begin(), wanted.end())) {
        Refuse(path,
               QStringLiteral("tells of the inputs %1, the effect has %2").arg(told.join(", "), wanted.join(", ")));
    }
    for (qsizetype i = 0; i < result.sliders.size(); ++i) {
        const EffectSlider& slider = effect.sliders[static_cast<std::size_t>(std::min<qsizetype>(i, 2))];
        if (result.sliders[i] < slider.min || result.sliders[i] > slider.max)
            Refuse(path, QStringLiteral("a slider value out of its range"));
    }
    return result;
}

}  // namespace kelu
