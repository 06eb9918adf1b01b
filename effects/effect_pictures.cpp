// Button pictures: the render, the drawing, the worker.
// SPDX-License-Identifier: MIT
#include "effects/effect_pictures.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include "controls/theme/theme.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr int kRim = 2;  // device-independent pixels round the photograph
constexpr QSize kPhotoSize{115, 77};
constexpr int kNameGap = 3;

QImage MiddleOf(const QImage& photograph, const QSize& size) {
    const QImage covering = photograph.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    const QPoint corner((covering.width() - size.width()) / 2, (covering.height() - size.height()) / 2);
    return covering.copy(QRect(corner, size)).convertToFormat(QImage::Format_RGB32);
}

QImage WithEffect(const Effect& effect, const QImage& plain, qreal ratio) {
    engine::Run run;
    run.threads = 1;  // too small to be worth waking other threads
    return RenderOnto(effect, PreviewInputs(effect, plain.size(), ratio), plain, run);
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
