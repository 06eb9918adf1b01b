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
#include "effects/catalogue/pix_twix.h"
#include "effects/effect_application.h"
#include "effects/effect_controls.h"
#include "effects/render_window.h"
#include "platform/error.h"

namespace kelu::cli {

namespace {

/// The inputs of one render in the place of the window's panel.
class GivenControls : public EffectControls {
 public:
    explicit GivenControls(const EffectInputs& inputs) : inputs_(inputs) {}
    int XCoordinate() const override { return inputs_.x; }
    int YCoordinate() const override { return inputs_.y; }
    qint32 PickerValue(int picker) const override {
        const ColorBytes& color = picker == 1 ? inputs_.color1 : inputs_.color2;
        return PickerColor(color.red, color.green, color.blue);
    }
    int SliderValue(int slider) const override { return inputs_.slider[static_cast<std::size_t>(slider - 1)]; }

 private:
    const EffectInputs& inputs_;
};

/// The terminal in the place of the window.
class TerminalWindow : public RenderWindow {
 public:
    explicit TerminalWindow(const QString& file) : file_(file) {}
    void SetFormEnabled(bool) override {}
    void SetProgressVisible(bool visible) override {
        if (!visible) ShowProgress(file_, 100);
    }
    void SetProgress(int percent) override { ShowProgress(file_, percent); }
    void RunEventLoopOnce() override {}

 private:
    QString file_;
};

/// Opens `in` and renders and paints the effect onto its canvas.
void PaintEffect(const QString& in, const Effect& effect, const EffectInputs& inputs,
                 const std::optional<std::vector<Stroke>>& strokes, Surfaces& surfaces) {
    SharedState state;
    NullView view;
    Document document(surfaces, view, view, state);
    document.Open(in, Document::Source::Browse);

    state.CurrentSFX = static_cast<std::int16_t>(effect.number);
    if (effect.choice.variable) state.*effect.choice.variable = static_cast<std::int16_t>(inputs.choice);
    PixTwix engine;
    const GivenControls controls(inputs);
    TerminalWindow window(in);
    EffectApplication application(document.Canvas(), document.Pen(), engine, state, controls, window, {[] {}, [] {}});
    application.ApplyClick();
    if (effect.number != kNeon && !application.EffectResult())
        throw Error(kOutOfMemory, QStringLiteral("the effect could not be rendered"));

    if (strokes)
        PaintStrokes(*strokes, document.Pen(), document.Canvas());
    else
        document.Canvas().SetPicture(document.Pen().Picture());
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
