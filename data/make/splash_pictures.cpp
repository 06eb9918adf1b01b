// Recipes and drawing of the splash pictures.
// SPDX-License-Identifier: MIT
#include "data/make/splash_pictures.h"

#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <random>

#include "controls/theme/theme.h"
#include "data/make/look.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr QSize kSize(1200, 900);  // shown at 800 x 600; finer screens see the difference
constexpr int kFooterHeight = 72;
constexpr int kFadeHeight = 230;

// A patch brushed to and fro, as one does with the mouse.
struct Scribble {
    QRectF area;   // parts of the picture's width and height
    double angle;  // of the single passes, degrees clockwise from level
    int passes;
    double width;  // of the brush, in pixels of the splash picture
};

struct Recipe {
    const char* photo;
    double left;  // where the 4:3 cut begins, as a part of the room there is
    int effect;
    std::function<void(EffectInputs&)> set;
    Scribble scribble;
};

void Nothing(EffectInputs&) {}

// clang-format off
const std::array<Recipe, kSplashPictures>& Recipes() {
    static const std::array<Recipe, kSplashPictures> recipes{{
        {"pier.jpg", 0.5, 33, [](EffectInputs& in) { in.slider[0] = 16; },
         {{-0.02, 0.34, 1.04, 0.56}, -6, 4, 170}},
        {"canyon.jpg", 0.4, 48, Nothing, {{0.50, -0.02, 0.46, 0.92}, 68, 4, 170}},
        {"dandelion.jpg", 0.5, 41, Nothing, {{0.01, 0.03, 0.42, 0.58}, -24, 5, 130}},
        {"capsule.jpg", 0.5, 31, [](EffectInputs& in) { in.slider[0] = in.slider[1] = 24; },
         {{0.30, 0.40, 0.68, 0.46}, -14, 4, 140}},
        {"canyon.jpg", 0.6, 1, [](EffectInputs& in) { in.choice = 2; }, {{0.02, -0.02, 0.44, 0.94}, 76, 4, 150}},
        {"pier.jpg", 0.5, 14, [](EffectInputs& in) { in.slider[0] = 90, in.x = 760, in.y = 300; },
         {{0.34, 0.02, 0.66, 0.56}, -12, 4, 170}},
        {"dandelion.jpg", 0.5, 7, [](EffectInputs& in) { in.slider[0] = 26, in.slider[1] = 20; },
         {{0.53, 0.03, 0.44, 0.84}, -28, 6, 150}},
        {"capsule.jpg", 0.5, 18,
         [](EffectInputs& in) { in.color1 = {60, 20, 70}, in.color2 = {255, 190, 90}; },
         {{0.26, 0.26, 0.50, 0.56}, 24, 4, 150}},
    }};
    return recipes;
}
// clang-format on

QImage Photo(const QString& path, double left) {
    const QImage whole(path);
    if (whole.isNull()) throw Error(kInvalidPicture, path + QStringLiteral(" cannot be read"));
    const int width = whole.height() * kSize.width() / kSize.height();
    const QRect cut(static_cast<int>((whole.width() - width) * left), 0, width, whole.height());
    return whole.copy(cut)
        .scaled(kSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

QImage Render(const QImage& photo, const Recipe& recipe) {
    const Effect* effect = FindEffect(recipe.effect);
    EffectInputs inputs = effect->Defaults();
    recipe.set(inputs);
    return RenderOnto(*effect, inputs, photo);
}

// The middle line of the strokes: passes to and fro across the area, round at the turns.
QPainterPath MiddleLine(const Scribble& scribble) {
    const QRectF area(scribble.area.left() * kSize.width(), scribble.area.top() * kSize.height(),
                      scribble.area.width() * kSize.width(), scribble.area.height() * kSize.height());
    QTransform turn;
    turn.translate(area.center().x(), area.center().y());
    turn.rotate(scribble.angle);
    // The passes lie level in a rectangle that the turn then lays over the area.
    const bool steep = std::abs(scribble.angle) > 45;
    const double length = steep ? area.height() : area.width();
    const double height = steep ? area.width() : area.height();
    const double step = height / scribble.passes;
    QPainterPath path;
    for (int pass = 0; pass < scribble.passes; ++pass) {
        const double y = -height / 2 + step * (pass + 0.5);
        const double side = pass % 2 == 0 ? -1 : 1;
        const double reach = length / 2 * (0.86 + 0.14 * std::sin(1.7 * pass + 0.6));
        const QPointF from(side * reach, y - step * 0.18), to(-side * reach, y + step * 0.22);
        if (pass == 0) {
            path.moveTo(from);
        } else {
            const QPointF last = path.currentPosition();
            path.cubicTo(last + QPointF(side * step * 0.5, step * 0.1), from + QPointF(side * step * 0.5, -step * 0.1),
                         from);
        }
        path.cubicTo(from + QPointF(-side * reach * 0.7, -step * 0.25), to + QPointF(side * reach * 0.7, step * 0.2),
                     to);
    }
    return turn.map(path);
}

// Where the effect was brushed: bristles side by side that begin and end where they like, the outer ones with gaps.
QImage BrushedMask(const Scribble& scribble) {
    constexpr int kBristles = 46, kSamples = 900;
    QImage mask(kSize, QImage::Format_ARGB32_Premultiplied);
    mask.fill(Qt::transparent);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath middle = MiddleLine(scribble);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> part(0, 1);
    for (int bristle = 0; bristle < kBristles; ++bristle) {
        const double across = 2.0 * bristle / (kBristles - 1) - 1;  // -1 to 1
        const double dry = std::pow(std::abs(across), 3);           // how often the bristle leaves the paper
        const double begin = 0.012 * part(random), end = 1 - 0.02 * part(random);
        const double phase = 6.28 * part(random), pitch = 25 + 30 * part(random);
        QPainterPath path;
        bool down = false;
        for (int i = 0; i <= kSamples; ++i) {
            const double t = static_cast<double>(i) / kSamples;
            const bool touches = t >= begin && t <= end && std::sin(pitch * t * 6.28 + phase) > -1.4 + 1.6 * dry;
            const QPointF along =
                middle.pointAtPercent(std::min(1.0, t + 0.001)) - middle.pointAtPercent(std::max(0.0, t - 0.001));
            const double length = std::max(1e-6, std::hypot(along.x(), along.y()));
            const QPointF normal(-along.y() / length, along.x() / length);
            const QPointF at = middle.pointAtPercent(t) + normal * (across * scribble.width / 2);
            if (touches && down) path.lineTo(at);
            if (touches && !down) path.moveTo(at);
            down = touches;
        }
        painter.strokePath(
            path, QPen(Qt::black, scribble.width / kBristles * 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    return mask;
}

// The window's logo stands in the upper left corner, whatever the photograph is like there.
void ShadeTop(QPainter& painter) {
    const QRect band(0, 0, kSize.width(), 200);
    QLinearGradient shade(band.topLeft(), band.bottomLeft());
    shade.setColorAt(0, QColor(0, 0, 0, 150));
    shade.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(band, shade);
}

// The photograph darkens into the foot, so that no edge shows.
void DrawFooter(QPainter& painter, const QString& effect) {
    const QRect foot(0, kSize.height() - kFooterHeight, kSize.width(), kFooterHeight);
    const QRect fade(0, foot.top() - kFadeHeight, kSize.width(), kFadeHeight);
    QLinearGradient ground(fade.topLeft(), fade.bottomLeft());
    QColor color = kSplashFooter;
    for (const double part : {0.0, 0.25, 0.5, 0.75, 1.0}) {
        color.setAlphaF(static_cast<float>(part * part * (3 - 2 * part)));
        ground.setColorAt(part, color);
    }
    painter.fillRect(fade, ground);
    painter.fillRect(foot, kSplashFooter);
    const QRect line = foot.adjusted(60, 0, -60, 0);
    painter.setFont(DisplayFont(32, QFont::Medium));
    painter.setPen(theme::kAccentHover);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Have Fun With Effects"));
    painter.setFont(DisplayFont(24, QFont::Normal));
    painter.setPen(theme::kMutedText);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, effect);
}

}  // namespace

QImage MakeSplashPicture(int number, const QString& gallery) {
    const Recipe& recipe = Recipes()[static_cast<std::size_t>(number - 1)];
    const QImage photo = Photo(QDir(gallery).filePath(QString::fromLatin1(recipe.photo)), recipe.left);
    QImage painted = Render(photo, recipe).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    {
        QPainter painter(&painted);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, BrushedMask(recipe.scribble));
    }
    QImage picture = photo;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(0, 0, painted);
    ShadeTop(painter);
    DrawFooter(painter, QString::fromLatin1(FindEffect(recipe.effect)->listText));
    return picture;
}

}  // namespace kelu
