// Recipes and drawing of the splash pictures.
// SPDX-License-Identifier: MIT
#include "data/make/splash_pictures.h"

#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>
#include <functional>
#include <random>
#include <vector>

#include "controls/theme/icons.h"
#include "controls/theme/theme.h"
#include "data/make/look.h"
#include "document/surface.h"
#include "effects/catalogue.h"
#include "effects/pix_twix.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr QSize kSize(1200, 900);  // shown at 800 x 600; finer screens see the difference
constexpr int kFooterHeight = 72;

struct Stroke {
    double width;
    std::vector<QPointF> points;  // parts of the picture's width and height
};

struct Recipe {
    const char* photo;
    double left;  // where the 4:3 cut begins, as a part of the room there is
    int effect;
    std::function<void(EffectInputs&)> set;
    std::vector<Stroke> strokes;
    bool titleAtTop;
};

void Nothing(EffectInputs&) {}

const std::array<Recipe, kSplashPictures>& Recipes() {
    static const std::array<Recipe, kSplashPictures> recipes{{
        {"pier.jpg",
         0.5,
         33,
         [](EffectInputs& in) { in.slider[0] = 9; },
         {{190, {{-0.05, 0.30}, {0.5, 0.22}, {1.05, 0.36}}}, {200, {{1.05, 0.55}, {0.5, 0.48}, {-0.05, 0.58}}}},
         true},
        {"canyon.jpg",
         0.4,
         48,
         Nothing,
         {{260, {{0.95, -0.05}, {0.70, 0.35}, {0.86, 0.98}}}, {240, {{0.72, 1.0}, {0.52, 0.55}, {0.66, -0.05}}}},
         false},
        {"dandelion.jpg",
         0.5,
         41,
         Nothing,
         {{300, {{-0.05, 0.15}, {0.3, 0.35}, {0.42, 1.02}}}, {280, {{0.1, 1.0}, {0.2, 0.5}, {0.0, 0.3}}}},
         false},
        {"capsule.jpg",
         0.5,
         31,
         [](EffectInputs& in) { in.slider[0] = in.slider[1] = 24; },
         {{230, {{-0.05, 0.75}, {0.5, 0.62}, {1.05, 0.8}}}, {210, {{1.05, 0.55}, {0.75, 0.5}, {0.55, 0.52}}}},
         true},
        {"canyon.jpg",
         0.6,
         1,
         [](EffectInputs& in) { in.choice = 2; },
         {{330, {{0.2, -0.05}, {0.22, 0.5}, {0.12, 1.05}}}, {300, {{0.42, 1.05}, {0.4, 0.5}, {0.46, -0.05}}}},
         false},
        {"pier.jpg",
         0.5,
         14,
         [](EffectInputs& in) { in.slider[0] = 90, in.x = 600, in.y = 380; },
         {{240, {{-0.05, 0.12}, {0.5, 0.22}, {1.05, 0.08}}}, {250, {{1.05, 0.34}, {0.5, 0.42}, {-0.05, 0.36}}}},
         false},
        {"dandelion.jpg",
         0.5,
         7,
         [](EffectInputs& in) { in.slider[0] = 26, in.slider[1] = 20; },
         {{300, {{1.05, 0.05}, {0.75, 0.45}, {0.9, 1.05}}}, {260, {{0.66, 1.02}, {0.6, 0.6}, {0.72, -0.05}}}},
         false},
        {"capsule.jpg",
         0.5,
         34,
         [](EffectInputs& in) {
             in.slider = {2, 2, 2};
         },
         {{300, {{-0.05, 0.2}, {0.4, 0.5}, {0.55, 1.05}}}, {300, {{0.05, 1.0}, {0.2, 0.7}, {0.0, 0.5}}}},
         false},
    }};
    return recipes;
}

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
    if (recipe.effect == kNeon) {
        Surface surface;
        surface.SetPicture(photo);
        surface.NeonFilter();
        return surface.Picture();
    }
    const Effect* effect = FindEffect(recipe.effect);
    EffectInputs inputs = effect->Defaults();
    recipe.set(inputs);
    PixTwix engine;
    engine.SetPicture(photo);
    if (!RenderEffect(*effect, inputs, engine))
        throw Error(kInvalidPicture, QString::fromLatin1(effect->listText) + QStringLiteral(" did not render"));
    return engine.Picture();
}

QPainterPath SmoothPath(const std::vector<QPointF>& parts) {
    const auto at = [&](std::size_t i) { return QPointF(parts[i].x() * kSize.width(), parts[i].y() * kSize.height()); };
    QPainterPath path(at(0));
    path.quadTo(at(1) * 2 - (at(0) + at(2)) / 2, at(2));  // through the middle point
    return path;
}

// Where the effect was brushed: bristles with ragged ends.
QImage StrokeMask(const std::vector<Stroke>& strokes) {
    QImage mask(kSize, QImage::Format_ARGB32_Premultiplied);
    mask.fill(Qt::transparent);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> part(-0.5, 0.5);
    for (const Stroke& stroke : strokes) {
        const QPainterPath path = SmoothPath(stroke.points);
        painter.strokePath(path, QPen(Qt::black, stroke.width * 0.9, Qt::SolidLine, Qt::FlatCap));
        for (int bristle = 0; bristle < 60; ++bristle) {
            const double across = 2 * part(random);
            const QPointF shift(part(random) * 24, across * stroke.width / 2 + part(random) * 8);
            QColor colour(Qt::black);
            colour.setAlphaF(0.55F);
            painter.strokePath(path.translated(shift.y() * 0.55, shift.y() * 0.8),
                               QPen(colour, 4 + 5 * std::abs(part(random)), Qt::SolidLine, Qt::RoundCap));
        }
    }
    return mask;
}

void DrawTitle(QPainter& painter, bool atTop) {
    const QRect band(0, atTop ? 0 : kSize.height() - kFooterHeight - 330, kSize.width(), 330);
    QLinearGradient shade(band.topLeft(), band.bottomLeft());
    shade.setColorAt(atTop ? 0 : 1, QColor(0, 0, 0, 175));
    shade.setColorAt(atTop ? 1 : 0, QColor(0, 0, 0, 0));
    painter.fillRect(band, shade);
    const int baseline = atTop ? 168 : kSize.height() - kFooterHeight - 108;
    QFont name = DisplayFont(150, QFont::Black);
    name.setLetterSpacing(QFont::PercentageSpacing, 98);
    painter.setFont(name);
    painter.setPen(QColor(0, 0, 0, 120));
    painter.drawText(QPoint(64, baseline + 4), QStringLiteral("Kelu"));
    painter.setPen(Qt::white);
    painter.drawText(QPoint(60, baseline), QStringLiteral("Kelu"));
    painter.setFont(DisplayFont(38, QFont::Medium));
    painter.setPen(theme::kAccentHover);
    painter.drawText(QPoint(68, baseline + 62), QStringLiteral("Have Fun With Effects"));
}

void DrawFooter(QPainter& painter, const QString& effect) {
    const QRect foot(0, kSize.height() - kFooterHeight, kSize.width(), kFooterHeight);
    painter.fillRect(foot, kSplashFooter);
    const int logo = 42;
    painter.drawPixmap(60, foot.top() + (kFooterHeight - logo) / 2,
                       theme::IconPixmap(QStringLiteral("logo"), logo, 1, theme::kText));
    painter.setFont(DisplayFont(24, QFont::Normal));
    painter.setPen(theme::kMutedText);
    painter.drawText(foot.adjusted(0, 0, -60, 0), Qt::AlignRight | Qt::AlignVCenter, effect);
}

}  // namespace

QImage MakeSplashPicture(int number, const QString& gallery) {
    const Recipe& recipe = Recipes()[static_cast<std::size_t>(number - 1)];
    const QImage photo = Photo(QDir(gallery).filePath(QString::fromLatin1(recipe.photo)), recipe.left);
    QImage painted = Render(photo, recipe).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    {
        QPainter painter(&painted);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, StrokeMask(recipe.strokes));
    }
    QImage picture = photo;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(0, 0, painted);
    DrawTitle(painter, recipe.titleAtTop);
    DrawFooter(painter, QString::fromLatin1(FindEffect(recipe.effect)->listText));
    return picture;
}

}  // namespace kelu
