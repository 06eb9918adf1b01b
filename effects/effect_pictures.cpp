// Button pictures: inputs that suit a small picture, the render, the drawing, the worker.
// SPDX-License-Identifier: MIT
#include "effects/effect_pictures.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include "canvas/surface.h"
#include "controls/theme/theme.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/pix_twix.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr int kRim = 2;  // device-independent pixels round the photograph
constexpr QSize kPhotoSize{115, 77};
constexpr int kNameGap = 3;

// Inputs made for a photograph of thousands of pixels that would leave nothing of 115, or would not show at all.
struct SmallInputs {
    int number;
    int first;
    int second = 0;
    bool pixels = true;  // lengths in device-independent pixels of the button picture
};
constexpr SmallInputs kSmallInputs[] = {
    {2, 40, 0, false}, {3, 110, 0, false}, {7, 5, 4}, {8, 3},
    {9, 40, 0, false}, {10, 40, 0, false}, {21, 16},  {22, 40, 0, false},
    {23, 16},          {26, 60, 0, false}, {27, 12},  {28, 3},
    {29, 3},           {31, 6, 6},         {33, 3},   {42, 5},
    {47, 28, -10},
};
constexpr int kSmallSquare = 16;  // side of Scramble's and Tile's squares, whose second input is a share

EffectInputs SampleInputs(const Effect& effect, const QSize& size, qreal ratio) {
    EffectInputs inputs = effect.Defaults();
    inputs.x = size.width() / 2;
    inputs.y = size.height() / 2;
    for (const SmallInputs& small : kSmallInputs) {
        if (small.number != effect.number) continue;
        inputs.slider[0] = small.pixels ? qRound(small.first * ratio) : small.first;
        inputs.slider[1] = small.pixels ? qRound(small.second * ratio) : small.second;
    }
    if (effect.number == 38 || effect.number == 44) inputs.slider[0] = qRound(kSmallSquare * ratio);
    return inputs;
}

QImage MiddleOf(const QImage& photograph, const QSize& size) {
    const QImage covering = photograph.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    const QPoint corner((covering.width() - size.width()) / 2, (covering.height() - size.height()) / 2);
    return covering.copy(QRect(corner, size)).convertToFormat(QImage::Format_RGB32);
}

QImage WithEffect(const Effect& effect, const QImage& plain, qreal ratio) {
    if (effect.number == kNeon) {
        Surface pen;
        pen.SetPicture(plain);
        pen.NeonFilter();
        return pen.Picture();
    }
    PixTwix engine(1);  // too small to be worth waking other threads
    engine.SetPicture(plain);
    RenderEffect(effect, SampleInputs(effect, plain.size(), ratio), engine);
    return engine.Picture();
}

void DrawName(QPainter& painter, const QString& name, const QRectF& box) {
    QFont font = theme::ListFont();
    const int needed = QFontMetrics(font).horizontalAdvance(name);
    if (needed > box.width()) font.setStretch(qMax(50, static_cast<int>(100 * box.width() / (needed + 1))));
    painter.setFont(font);
    painter.setPen(theme::kText);
    painter.drawText(box, Qt::AlignCenter, name);
}

}  // namespace

QImage DrawEffectPicture(const Effect& effect, const QImage& photograph, qreal ratio) {
    QImage picture((QSizeF(kEffectPictureSize) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(theme::kSunken);
    const QRectF photoBox(QPointF(kRim, kRim), kPhotoSize);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!photograph.isNull()) {
        QImage shown = WithEffect(effect, MiddleOf(photograph, (QSizeF(kPhotoSize) * ratio).toSize()), ratio);
        shown.setDevicePixelRatio(1);
        QBrush brush(shown);
        brush.setTransform(QTransform(1 / ratio, 0, 0, 1 / ratio, kRim, kRim));
        QPainterPath outline;
        outline.addRoundedRect(photoBox, theme::kCorner - 1, theme::kCorner - 1);
        painter.fillPath(outline, brush);
    }
    const qreal nameTop = photoBox.bottom() + kNameGap;
    DrawName(painter, QString::fromLatin1(effect.listText),
             QRectF(kRim, nameTop, kPhotoSize.width(), kEffectPictureSize.height() - kNameGap - nameTop));
    return picture;
}

EffectPictures::EffectPictures(QObject* parent) : QObject(parent) { pool_.setMaxThreadCount(1); }

EffectPictures::~EffectPictures() {
    ++run_;
    pool_.waitForDone();
}

void EffectPictures::Start(const QString& path, qreal ratio) {
    const int run = ++run_;
    pool_.start([this, path, ratio, run] { Draw(path, ratio, run); });
}

void EffectPictures::Draw(const QString& path, qreal ratio, int run) {
    QImage photograph;
    // Twice the picture's size: enough to cover it whatever the photograph's proportions, short of a panorama.
    Attempt([&] { photograph = ReadThumbnail(path, (QSizeF(kPhotoSize) * ratio * 2).toSize()); });
    for (const Effect& effect : Catalogue()) {
        if (run_ != run) return;
        const QImage picture = DrawEffectPicture(effect, photograph, ratio);
        QMetaObject::invokeMethod(
            this,
            [this, run, number = effect.number, picture] {
                if (run_ == run) Q_EMIT PictureReady(number, picture);
            },
            Qt::QueuedConnection);
    }
}

}  // namespace kelu
