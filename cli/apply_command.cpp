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
#include "effects/catalogue/pix_twix.h"
#include "effects/effect_application.h"
#include "effects/effect_controls.h"
#include "effects/render_window.h"
#include "pictures/picture_file.h"
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
    const QString file = CanWritePicture(in) ? name.fileName() : name.completeBaseName() + QStringLiteral(".png");
    return QDir(folder).filePath(file);
}

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

bool Apply(const QString& in, const QString& out, const Effect& effect, const EffectInputs& inputs,
           const std::optional<std::vector<Stroke>>& strokes) {
    Surfaces surfaces;
    return RunForFile(in, [&] { PaintEffect(in, effect, inputs, strokes, surfaces); }) &&
           RunForFile(out, [&] { surfaces.picCanvas.SaveFile(out); });
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
        if (!CanWritePicture(out)) {
            PrintFailure(out, QStringLiteral("no format that can be written"));
            return kFailed;
        }
    }
    bool allDone = true;
    for (const QString& in : files)
        allDone &= Apply(in, toFolder ? NameInFolder(in, out) : out, effect, inputs, strokes);
    return allDone ? kDone : kFailed;
}

}  // namespace kelu::cli
