// SPDX-License-Identifier: MIT
#include "document/replay.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cmath>

#include "document/journal_file.h"
#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "platform/error.h"
#include "platform/units.h"

namespace kelu {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::Replay)
};

constexpr int kFullStrength = 255;
constexpr double kFarthest = 1e7;  // image pixels
constexpr int kLargestBrush = 10'000;
constexpr int kRenderWork = 400;  // a render counts as much as this many segments

Photograph ReadKept(const Recipe::KeptPicture& kept, const QString& folder) {
    Photograph read = ReadPhotograph(QDir(folder).filePath(kept.name));
    // What is opaque all over is read without transparency.
    if (kept.hasAlpha && !read.picture.hasAlphaChannel()) read.picture.reinterpretAsFormat(QImage::Format_ARGB32);
    return read;
}

QString SizeText(const QSize& size) { return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()); }

int FittedLength(int length, int from, int to) {
    return std::max(1, RoundToEven(static_cast<double>(length) * to / from));
}

}  // namespace

Recipe FittedRecipe(Recipe recipe, const QSize& size) {
    const double scaleX = static_cast<double>(size.width()) / recipe.size.width();
    const double scaleY = static_cast<double>(size.height()) / recipe.size.height();
    // Whole numbers are the middles of pixels.
    const auto fit = [](int at, double scale) {
        return RoundToEven(std::clamp((at + 0.5) * scale - 0.5, -kFarthest, kFarthest));
    };
    const double mean = std::sqrt(scaleX * scaleY);
    for (Recipe::Step& step : recipe.steps) {
        step.from = {fit(step.from.x(), scaleX), fit(step.from.y(), scaleY)};
        step.to = {fit(step.to.x(), scaleX), fit(step.to.y(), scaleY)};
        if (step.kind == Recipe::Kind::Brush && step.number > 0)
            step.number = RoundToEven(std::clamp(step.number * mean, 1.0, double{kLargestBrush}));
    }
    for (Recipe::Render& render : recipe.renders) {
        render.inputs.x = fit(render.inputs.x, scaleX);
        render.inputs.y = fit(render.inputs.y, scaleY);
    }
    recipe.size = size;
    return recipe;
}

void Replay::Open(const Photograph& photograph, bool fit) {
    Surface opened;
    opened.SetPicture(photograph.picture);
    if (recipe_.shrunk) ShrinkLargePicture(opened);
    if (!recipe_.brush.paint.name.isEmpty())
        firstBrush_ = {ReadKept(recipe_.brush.paint, recipe_.folder).picture, recipe_.brush.size,
                       recipe_.brush.softness};
    const QSize size = opened.Picture().size();
    if (const QSize told = recipe_.size; size != told) {
        if (!fit)
            throw Error(kInvalidPicture,
                        Texts::tr("The picture is %1 pixels large, the recipe was made for %2")
                            .arg(SizeText(size), SizeText(told)),
                        QStringLiteral("Replay"));
        recipe_ = FittedRecipe(std::move(recipe_), size);
        QImage& paint = firstBrush_.paint;
        if (!paint.isNull())
            paint = ScalePicture(paint, {FittedLength(paint.width(), told.width(), size.width()),
                                         FittedLength(paint.height(), told.height(), size.height())});
    }
    if (!firstBrush_.paint.isNull()) {
        lastRender_ = firstBrush_;
        surfaces_.picCanvas.SelectBrush(lastRender_);
        effectReady_ = true;
    }
    surfaces_.picCanvas.SetPicture(opened.Picture(), photograph.metadata);
    surfaces_.picPen.SetPicture(opened.Picture());
    surfaces_.picOriginal.SetPicture(opened.Picture(), photograph.metadata);
}

void Replay::DoNext() {
    const Recipe::Step& step = recipe_.steps[next_];
    Surface& canvas = surfaces_.picCanvas;
    Surface& pen = surfaces_.picPen;
    switch (step.kind) {
        case Recipe::Kind::Apply: {
            const Recipe::Render& render = recipe_.renders[static_cast<std::size_t>(step.number)];
            const QImage picture = canvas.Picture();
            pen.SetPicture(render.done ? render_(picture, render.effect, render.inputs) : picture);
            effectReady_ = true;
            break;
        }
        case Recipe::Kind::Brush:
            if (step.number == 0) {
                canvas.SelectBrush({});
                break;
            }
            if (step.source == BrushSource::Pen) lastRender_ = pen.MakeBrush(step.number);
            canvas.SelectBrush(step.source == BrushSource::Original ? surfaces_.picOriginal.MakeBrush(step.number)
                                                                    : lastRender_);
            canvas.SetBrushSize(step.number);
            canvas.SetBrushSoftness(step.softness);
            break;
        case Recipe::Kind::Soft:
            canvas.SetBrushSoftness(step.number);
            break;
        case Recipe::Kind::All:
            canvas.PaintAll();
            break;
        case Recipe::Kind::Press:
            canvas.PushUndo();
            break;
        case Recipe::Kind::Line:
            canvas.DrawBrushLine(step.from.x(), step.from.y(), step.to.x(), step.to.y(), kFullStrength);
            break;
        case Recipe::Kind::Undo:
            canvas.Undo();
            break;
        case Recipe::Kind::Redo:
            canvas.Redo();
            break;
    }
    ++next_;
}

bool Replay::DoAll(const std::function<bool(int percent)>& progress) {
    const auto work = [](const Recipe::Step& step) { return step.kind == Recipe::Kind::Apply ? kRenderWork : 1; };
    qint64 all = 0;
    for (const Recipe::Step& step : recipe_.steps) all += work(step);
    qint64 done = 0;
    int told = -1;
    while (!AtEnd()) {
        done += work(recipe_.steps[next_]);
        DoNext();
        const int percent = static_cast<int>(100 * done / all);
        if (progress && percent != std::exchange(told, percent) && !progress(percent)) return false;
    }
    return true;
}

Photograph ReadJournalPicture(const Recipe& recipe) {
    if (!recipe.kept.name.isEmpty()) return ReadKept(recipe.kept, recipe.folder);
    const QString name = QFileInfo(recipe.file).fileName();
    if (!QFileInfo::exists(recipe.file))
        throw Error(kFileError, Texts::tr("'%1' is not there any more").arg(name), QStringLiteral("Replay"));
    if (!recipe.fileSum.isEmpty() && FileSum(recipe.file) != recipe.fileSum)
        throw Error(kFileError, Texts::tr("'%1' has changed since").arg(name), QStringLiteral("Replay"));
    return ReadPhotograph(recipe.file);
}

}  // namespace kelu
