// kelu-cli apply: renders an effect on pictures, all over or along strokes, by the same road as the window: document,
// pen, engine, brush.
// SPDX-License-Identifier: MIT
#include <QFile>
#include <optional>

#include "cli/apply_options.h"
#include "cli/batch.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/strokes.h"
#include "document/document.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"

namespace kelu::cli {

namespace {

/// Opens `in` and renders and paints the effect onto its canvas.
void PaintEffect(const QString& in, const Effect& effect, const EffectInputs& inputs,
                 const std::optional<std::vector<Stroke>>& strokes, Surfaces& surfaces) {
    SharedState state;
    NullView view;
    Document document(surfaces, view, view, state);
    document.Open(in, Document::Source::Browse);

    engine::Run run;
    run.progress = [&](int percent) { ShowProgress(in, percent); };
    document.Pen().SetPicture(RenderOnto(effect, inputs, document.Canvas().Picture(), run));

    if (strokes)
        PaintStrokes(*strokes, document.Pen(), document.Canvas());
    else
        document.Canvas().SetPicture(document.Pen().Picture(), document.Canvas().Told());
}

/// All that decides a result beside its input.
QByteArray RecipeOf(const Effect& effect, const EffectInputs& inputs, const QByteArray& strokes) {
    QStringList parts{QString::number(effect.number)};
    for (const int value : inputs.slider) parts += QString::number(value);
    for (const int value : {inputs.x, inputs.y, inputs.choice}) parts += QString::number(value);
    for (const ColorBytes& color : {inputs.color1, inputs.color2})
        parts += QString::number(PickerColor(color.red, color.green, color.blue));
    return "apply " + parts.join(u' ').toLatin1() + ' ' + strokes;
}

QByteArray ReadStrokesFile(const QString& path) {
    QFile file(path);
    const bool opened = path == u"-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened) throw Error(kFileError, file.errorString());
    return file.readAll();
}

}  // namespace

int ApplyCommand(const QStringList& words) {
    const Arguments arguments =
        Parse(words, InputOptions() + Batch::Options() + QStringList{"strokes"}, Batch::Flags());
    if (arguments.words.isEmpty())
        throw UsageError(QStringLiteral("apply takes an effect, pictures, and a name for the result or --out-dir"));
    const Effect& effect = EffectByName(arguments.words[0]);
    const EffectInputs inputs = EffectInputsOf(effect, arguments);
    Batch batch(arguments, arguments.words.mid(1));

    QByteArray json;
    std::optional<std::vector<Stroke>> strokes;
    if (arguments.Has("strokes")) {
        const QString path = arguments.options["strokes"];
        if (!RunForFile(path, [&] { strokes = ReadStrokes(json = ReadStrokesFile(path)); })) return kFailed;
    }
    return batch.Run(RecipeOf(effect, inputs, json),
                     [&](const QString& in, Surfaces& made) { PaintEffect(in, effect, inputs, strokes, made); });
}

}  // namespace kelu::cli
