// kelu-cli bench: how long the render of an effect takes, without file work, beside a plain copy of the same picture.
// SPDX-License-Identifier: MIT
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstring>
#include <vector>

#include "canvas/surface.h"
#include "cli/apply_options.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "pictures/picture.h"

namespace kelu::cli {

namespace {

// Milliseconds.
struct Times {
    double first = 0;
    double best = 0;  // of the later runs
    double median = 0;
};

double Time(const std::function<void()>& work) {
    QElapsedTimer once;
    once.start();
    work();
    return static_cast<double>(once.nsecsElapsed()) / 1e6;
}

/// Runs the work once, which is slower for what is made at a first run, and then until half a second has gone, three
/// times at least and fifteen at most.
Times Measure(const std::function<void()>& work) {
    const double first = Time(work);
    std::vector<double> times;
    QElapsedTimer whole;
    whole.start();
    while (times.size() < 3 || (times.size() < 15 && whole.elapsed() < 500)) times.push_back(Time(work));
    std::sort(times.begin(), times.end());
    return {first, times.front(), times[times.size() / 2]};
}

Times MeasureCopy(const QImage& picture) {
    QImage target = MakePicture(picture.width(), picture.height(), picture.format());
    return Measure(
        [&] { std::memcpy(target.bits(), picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes())); });
}

Times MeasureEffect(const Effect& effect, const QImage& picture) {
    const EffectInputs inputs = effect.Defaults();
    return Measure([&] { RenderOnto(effect, inputs, picture); });
}

}  // namespace

int BenchCommand(const QStringList& words) {
    const Arguments arguments = Parse(words, {}, {QStringLiteral("json")});
    if (arguments.words.size() != 2) throw UsageError(QStringLiteral("bench takes an effect, or all, and a picture"));
    std::vector<const Effect*> effects;
    if (arguments.words[0] == u"all")
        for (const Effect& effect : Catalogue()) effects.push_back(&effect);
    else
        effects.push_back(&EffectByName(arguments.words[0]));

    const QString in = arguments.words[1];
    const bool json = arguments.Has(QStringLiteral("json"));
    const bool done = RunForFile(in, [&] {
        Surface surface;
        surface.LoadFile(in);
        const QImage picture = surface.Picture();
        const double pixels = static_cast<double>(picture.width()) * picture.height();
        QJsonArray rows;
        if (!json) {
            PrintLine(QStringLiteral("%1 x %2 pixels; milliseconds: the first run, best and median of several more")
                          .arg(picture.width())
                          .arg(picture.height()));
            PrintLine(QStringLiteral("No. Effect              first     best   median  ns/pixel  copy ms  x copy"));
        }
        for (const Effect* effect : effects) {
            const Times copy = MeasureCopy(picture);
            const Times render = MeasureEffect(*effect, picture);
            rows.append(QJsonObject{{"number", effect->number},
                                    {"name", effect->listText},
                                    {"first_ms", render.first},
                                    {"ms", render.best},
                                    {"median_ms", render.median},
                                    {"ns_per_pixel", render.best * 1e6 / pixels},
                                    {"copy_ms", copy.best},
                                    {"ratio_to_copy", render.best / copy.best}});
            if (!json)
                PrintLine(QStringLiteral("%1  %2 %3 %4 %5 %6 %7 %8")
                              .arg(effect->number, 2)
                              .arg(QString::fromLatin1(effect->listText), -18)
                              .arg(render.first, 7, 'f', 2)
                              .arg(render.best, 8, 'f', 2)
                              .arg(render.median, 8, 'f', 2)
                              .arg(render.best * 1e6 / pixels, 9, 'f', 3)
                              .arg(copy.best, 8, 'f', 2)
                              .arg(render.best / copy.best, 7, 'f', 2));
        }
        if (json)
            PrintLine(QString::fromUtf8(
                QJsonDocument(QJsonObject{{"width", picture.width()}, {"height", picture.height()}, {"effects", rows}})
                    .toJson()
                    .trimmed()));
    });
    return done ? kDone : kFailed;
}

}  // namespace kelu::cli
