// SPDX-License-Identifier: MIT
#include "document/film.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "pictures/area_scaler.h"
#include "pictures/gif/animation_encoder.h"
#include "pictures/palette.h"
#include "pictures/picture.h"

namespace kelu {
namespace {

constexpr int kWidest = 640;  // film pixels
constexpr int kHighest = 960;
constexpr int kFirstHeld = 1000;  // ms
constexpr int kLastHeld = 2500;
constexpr int kFrameTime = 80;
constexpr int kMostFrames = (12000 - kFirstHeld - kLastHeld) / kFrameTime;
constexpr double kPace = 12;         // film pixels of stroke that a frame grows by, where the time allows it
constexpr double kPressLength = 1;   // image pixels that a press counts
constexpr double kAllLength = 1000;  // and all at once
constexpr int kColors = 255;         // and one that leaves what is there
constexpr int kUnchanged = 255;

/// Which presses and lines are still there at the end: what undo took and redo did not give back is not.
std::vector<bool> Surviving(const std::vector<Recipe::Step>& steps) {
    using Level = std::vector<std::size_t>;
    std::vector<Level> levels;
    std::vector<Level> undone;
    bool open = false;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Recipe::Kind kind = steps[i].kind;
        const auto begin = [&] {
            undone.clear();
            levels.emplace_back();
            open = true;
        };
        const auto move = [&](std::vector<Level>& from, std::vector<Level>& to) {
            if (from.empty()) return;
            to.push_back(std::move(from.back()));
            from.pop_back();
            open = false;
        };
        const bool paints = kind == Recipe::Kind::Press || kind == Recipe::Kind::Line || kind == Recipe::Kind::All;
        if (paints && !(kind == Recipe::Kind::Line && open)) begin();
        if (paints) levels.back().push_back(i);
        if (kind == Recipe::Kind::All) open = false;
        if (kind == Recipe::Kind::Undo) move(levels, undone);
        if (kind == Recipe::Kind::Redo) move(undone, levels);
    }
    std::vector<bool> survives(steps.size(), false);
    for (const Level& level : levels)
        for (const std::size_t i : level) survives[i] = true;
    return survives;
}

double LengthOf(const Recipe::Step& step) {
    if (step.kind == Recipe::Kind::Press) return kPressLength;
    if (step.kind == Recipe::Kind::All) return kAllLength;
    return std::hypot(step.to.x() - step.from.x(), step.to.y() - step.from.y());
}

/// The canvas at the film's size, renewed where it changed.
class Screen : public QObject {
 public:
    explicit Screen(const Surface& canvas) : canvas_(canvas) {
        size_ = canvas.Picture().size();
        if (size_.width() > kWidest || size_.height() > kHighest)
            size_ = size_.scaled(kWidest, kHighest, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
        picture_ = QImage(size_, QImage::Format_RGB32);
        Renew(QRect(QPoint(), size_));
        connect(&canvas, &Surface::PictureChanged, this, [this](const QRect& pixels) { changed_ |= pixels; });
    }

    const QImage& Picture() const { return picture_; }
    double Scale() const { return static_cast<double>(size_.width()) / canvas_.ImageWidth(); }

    /// Brings the film's picture up to date and answers where it may differ from the last time.
    QRect Update() {
        const QRect pixels = std::exchange(changed_, {}) & QRect(QPoint(), canvas_.Picture().size());
        if (pixels.isEmpty()) return {};
        const PixelRange x = DependentPixels(pixels.left(), pixels.right() + 1, canvas_.ImageWidth(), size_.width());
        const PixelRange y = DependentPixels(pixels.top(), pixels.bottom() + 1, canvas_.ImageHeight(), size_.height());
        const QRect part(x.begin, y.begin, x.end - x.begin, y.end - y.begin);
        Renew(part);
        return part;
    }

 private:
    void Renew(const QRect& part) {
        const QImage canvas = canvas_.Picture();
        if (!canvas.hasAlphaChannel()) return ScaleArea(canvas, size_, part, picture_, part.topLeft());
        QImage seen(part.size(), QImage::Format_ARGB32_Premultiplied);
        ScaleArea(canvas, size_, part, seen, {});
        QPainter painter(&picture_);
        painter.fillRect(part, Qt::white);
        painter.drawImage(part.topLeft(), seen);
    }

    const Surface& canvas_;
    QSize size_;
    QImage picture_;
    QRect changed_;
};

/// What one frame shows anew: the pixels of a rectangle, alpha 0 where they stay.
struct Frame {
    QPoint at;
    QImage pixels;
};

/// The pixels of `part` in which `now` differs from `before`, as the smallest rectangle; then `before` is as `now`.
Frame Difference(QImage& before, const QImage& now, const QRect& part) {
    QImage pixels = now.copy(part).convertToFormat(QImage::Format_ARGB32);
    QRect changed;
    for (int y = 0; y < part.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(pixels.scanLine(y));
        auto* old = reinterpret_cast<QRgb*>(before.scanLine(part.top() + y)) + part.left();
        for (int x = 0; x < part.width(); ++x) {
            row[x] |= 0xff000000u;
            if (row[x] == (old[x] | 0xff000000u)) {
                row[x] = 0;
                continue;
            }
            old[x] = row[x];
            changed |= QRect(x, y, 1, 1);
        }
    }
    if (changed.isEmpty()) return {};
    return {part.topLeft() + changed.topLeft(), pixels.copy(changed)};
}

QImage Indexed(const QImage& pixels, const QPoint& at, const PatternDither& dither) {
    QImage indices(pixels.size(), QImage::Format_Indexed8);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        uchar* out = indices.scanLine(y);
        for (int x = 0; x < pixels.width(); ++x)
            out[x] = qAlpha(row[x]) == 0 ? kUnchanged : dither.IndexOf(row[x], at.x() + x, at.y() + y);
    }
    return indices;
}

QByteArray Encode(const QImage& first, const QImage& last, const std::vector<Frame>& frames) {
    // One table for the whole film: of its first and its last picture, which between them have nearly all colours.
    QImage both(first.width(), first.height() * 2, QImage::Format_RGB32);
    QPainter painter(&both);
    painter.drawImage(0, 0, first);
    painter.drawImage(0, first.height(), last);
    painter.end();
    const std::vector<QRgb> colors = ChooseColors(both, kColors);
    const PatternDither dither(colors);
    ColourTable table;
    for (const QRgb color : colors) table.push_back(color & 0xffffffu);

    AnimationEncoder encoder(first.size(), table, 0);
    encoder.Add(Indexed(first.convertToFormat(QImage::Format_ARGB32), {}, dither), {}, kFirstHeld, -1);
    for (std::size_t i = 0; i < frames.size(); ++i)
        encoder.Add(Indexed(frames[i].pixels, frames[i].at, dither), frames[i].at,
                    i + 1 == frames.size() ? kLastHeld : kFrameTime, kUnchanged);
    return encoder.Finish();
}

}  // namespace

QByteArray MakeFilm(const Recipe& recipe, const QImage& picture, const EffectRenderer& render, bool fit,
                    const std::function<bool(int percent)>& progress) {
    Surfaces surfaces;
    Replay replay(recipe, surfaces, render);
    replay.Open({picture}, fit);
    Screen screen(surfaces.picCanvas);
    const QImage first = screen.Picture().copy();
    QImage shown = first;

    const std::vector<Recipe::Step>& steps = replay.Steps();
    const std::vector<bool> survives = Surviving(steps);
    double length = 0;
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (survives[i]) length += LengthOf(steps[i]);
    const double wanted = std::ceil(length * screen.Scale() / kPace);
    const int count = static_cast<int>(std::clamp(wanted, 1.0, double{kMostFrames}));

    std::vector<Frame> frames;
    const auto shoot = [&] {
        const QRect part = screen.Update();
        if (part.isEmpty()) return;
        Frame frame = Difference(shown, screen.Picture(), part);
        if (!frame.pixels.isNull()) frames.push_back(std::move(frame));
    };
    double grown = 0;
    int shot = 0;
    int told = -1;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        replay.DoNext();
        if (survives[i]) grown += LengthOf(steps[i]);
        if (survives[i] && shot + 1 < count && grown >= length * (shot + 1) / count) {
            shot = static_cast<int>(grown * count / length);
            shoot();
        }
        const int percent = static_cast<int>(90 * (i + 1) / steps.size());
        if (progress && percent != std::exchange(told, percent) && !progress(percent)) return {};
    }
    shoot();
    QByteArray film = Encode(first, shown, frames);
    if (progress) progress(100);
    return film;
}

}  // namespace kelu
