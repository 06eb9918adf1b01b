// kelu-cli apply: renders an effect on pictures, all over or along strokes, by the same road as the window: document,
// pen, engine, brush.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

#include "cli/apply_options.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/strokes.h"
#include "document/document.h"
#include "document/picture_file.h"
#include "effects/effect_application.h"
#include "effects/pix_twix.h"
#include "platform/error.h"

namespace kelu::cli {

namespace {

std::vector<Stroke> ReadStrokesFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Error(kFileError, file.errorString());
    return ReadStrokes(file.readAll());
}

/// Where the result of `in` goes inside `folder`: the same name, as PNG where its format can't be written.
QString NameInFolder(const QString& in, const QString& folder) {
    const QFileInfo name(in);
    const QString file = CanWrite(in) ? name.fileName() : name.completeBaseName() + QStringLiteral(".png");
    return QDir(folder).filePath(file);
}

void ApplyTo(const QString& in, const QString& out, const Effect& effect, const EffectInputs& inputs,
             const std::optional<std::vector<Stroke>>& strokes) {
    SharedState state;
    Surfaces surfaces;
    NullView view;
    Document document(surfaces, view, view, state);
    document.Open(in, Document::Source::Browse);

    PixTwix engine;
    const auto progress = [&in](int percent) { ShowProgress(in, percent); };
    QObject::connect(&engine, &PixTwix::FxProgress, progress);
    QObject::connect(&document.Pen(), &Surface::Progress, progress);
    if (!RenderOnPen(effect, inputs, document.Canvas(), document.Pen(), engine))
        throw Error(kOutOfMemory, QStringLiteral("the effect could not be rendered"));

    if (strokes)
        PaintStrokes(*strokes, document.Pen(), document.Canvas());
    else
        document.Canvas().SetPicture(document.Pen().Picture());
    document.Canvas().SaveFile(out);
}

}  // namespace

int ApplyCommand(const QStringList& words) {
    const Arguments arguments = Parse(words, InputOptions() + QStringList{"strokes", "out-dir"}, {});
    QStringList files = arguments.words.mid(1);
    const bool toFolder = arguments.Has("out-dir");
    if (arguments.words.isEmpty() || files.size() < (toFolder ? 1 : 2))
        throw UsageError(QStringLiteral("apply takes an effect, pictures, and a name for the result or --out-dir"));
    if (!toFolder && files.size() > 2) throw UsageError(QStringLiteral("several pictures need --out-dir"));
    const Effect& effect = EffectByName(arguments.words[0]);
    const EffectInputs inputs = EffectInputsOf(effect, arguments);

    std::optional<std::vector<Stroke>> strokes;
    if (arguments.Has("strokes")) {
        const QString path = arguments.options["strokes"];
        if (!RunForFile(path, [&] { strokes = ReadStrokesFile(path); })) return kFailed;
    }

    QString out;
    if (toFolder) {
        out = arguments.options["out-dir"];
        if (!QDir().mkpath(out)) {
            PrintFailure(out, QStringLiteral("the folder could not be made"));
            return kFailed;
        }
    } else {
        out = files.takeLast();
        if (!CanWrite(out)) {
            PrintFailure(out, QStringLiteral("no format that can be written"));
            return kFailed;
        }
    }
    bool allDone = true;
    for (const QString& in : files)
        allDone &= RunForFile(in, [&] { ApplyTo(in, toFolder ? NameInFolder(in, out) : out, effect, inputs, strokes); });
    return allDone ? kDone : kFailed;
}

}  // namespace kelu::cli
