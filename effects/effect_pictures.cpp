// Button pictures: the small photograph, the render, the drawing, the worker.
// SPDX-License-Identifier: MIT
#include "effects/effect_pictures.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "canvas/surface.h"
#include "controls/theme/theme.h"
#include "document/shared_state.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "pictures/picture_file.h"
#include "platform/error.h"
#include "platform/pool_job.h"

namespace kelu {
namespace {

constexpr int kRim = 2;  // device-independent pixels round the photograph
constexpr QSize kPhotoSize{115, 77};
constexpr int kNameGap = 3;

// How far apart two steps of painting may lie to count as one, and what a new picture leaves to its first paint;
// milliseconds.
constexpr int kAfterStroke = 600;
constexpr int kAfterOpening = 30;

// Samples along a side of a pixel's square. More show no difference at this size.
constexpr int kSamples = 4;

// The mean of a grid of samples for each pixel; `left`, `top` and `step` in pixels of the picture.
QImage Sampled(const QImage& picture, const QSize& size, double left, double top, double step) {
    QImage result(size, QImage::Format_RGB32);
    const auto at = [](double from, double place, int most) {
        return std::clamp(static_cast<int>(from + place), 0, most - 1);
    };
    for (int y = 0; y < size.height(); ++y) {
        auto* const out = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            int red = 0, green = 0, blue = 0;
            for (int j = 0; j < kSamples; ++j) {
                const auto* const row = reinterpret_cast<const QRgb*>(
                    picture.constScanLine(at(top, (y + (j + 0.5) / kSamples) * step, picture.height())));
                for (int i = 0; i < kSamples; ++i) {
                    const QRgb pixel = row[at(left, (x + (i + 0.5) / kSamples) * step, picture.width())];
                    red += qRed(pixel), green += qGreen(pixel), blue += qBlue(pixel);
                }
            }
            constexpr int kAll = kSamples * kSamples;
            out[x] = qRgb((red + kAll / 2) / kAll, (green + kAll / 2) / kAll, (blue + kAll / 2) / kAll);
        }
    }
    return result;
}

QImage WithEffect(const Effect& effect, const PreviewPhoto& photo, qreal ratio) {
    engine::Run run;
    run.threads = 1;  // too small to be worth waking other threads
    return RenderOnto(effect, PreviewInputs(effect, photo.pixels.size(), ratio, photo.scale), photo.pixels, run);
}

void DrawName(QPainter& painter, const QString& name, const QRectF& box) {
    QFont font = theme::ListFont();
    // The strip below the photograph is as high as it is, however large the letters.
    const qreal part = box.height() / QFontMetricsF(font).height();
    if (part < 1) font.setPointSizeF(font.pointSizeF() * part);
    painter.setFont(theme::Narrowed(font, name, box.width()));
    painter.setPen(theme::kText);
    painter.drawText(box, Qt::AlignCenter, name);
}

}  // namespace

PreviewPhoto TakePreview(const QImage& picture, qreal ratio) {
    if (picture.isNull()) return {};
    const QSize size = (QSizeF(kPhotoSize) * ratio).toSize();
    const double scale = std::max(static_cast<double>(size.width()) / picture.width(),
                                  static_cast<double>(size.height()) / picture.height());
    const double left = (picture.width() - size.width() / scale) / 2;
    const double top = (picture.height() - size.height() / scale) / 2;
    // A small one is scaled better than by samples, and quickly enough.
    if (scale * kSamples < 1 && picture.depth() == 32) return {Sampled(picture, size, left, top, 1 / scale), scale};
    const QImage covering = picture.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    const QPoint corner((covering.width() - size.width()) / 2, (covering.height() - size.height()) / 2);
    return {covering.copy(QRect(corner, size)).convertToFormat(QImage::Format_RGB32), scale};
}

QImage DrawEffectPicture(const Effect& effect, const PreviewPhoto& photo, qreal ratio) {
    QImage picture((QSizeF(kEffectPictureSize) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(theme::kSunken);
    const QRectF photoBox(QPointF(kRim, kRim), kPhotoSize);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!photo.pixels.isNull()) {
        QImage shown = WithEffect(effect, photo, ratio);
        shown.setDevicePixelRatio(1);
        QBrush brush(shown);
        brush.setTransform(QTransform(1 / ratio, 0, 0, 1 / ratio, kRim, kRim));
        QPainterPath outline;
        outline.addRoundedRect(photoBox, theme::kCorner - 1, theme::kCorner - 1);
        painter.fillPath(outline, brush);
    }
    const qreal nameTop = photoBox.bottom() + kNameGap;
    DrawName(painter, effect.ListText(),
             QRectF(kRim, nameTop, kPhotoSize.width(), kEffectPictureSize.height() - kNameGap - nameTop));
    return picture;
}

EffectPictures::EffectPictures(QObject* parent) : QObject(parent) {
    pool_.setMaxThreadCount(1);
    moment_.setSingleShot(true);
    connect(&moment_, &QTimer::timeout, this, &EffectPictures::TakeCanvas);
}

EffectPictures::~EffectPictures() {
    ++run_;
    WaitForJobs(pool_);
}

void EffectPictures::Start(const QString& path, qreal ratio) {
    ratio_ = ratio;
    if (state_ && !state_->CurrentFileName.isEmpty()) return TakeCanvas();
    const int run = ++run_;
    StartJob(pool_, [this, path, ratio, run] {
        QImage sample;
        // Twice the picture's size: enough to cover it whatever the photograph's proportions, short of a panorama.
        Attempt([&] { sample = ReadThumbnail(path, (QSizeF(kPhotoSize) * ratio * 2).toSize()); });
        PreviewPhoto photo = TakePreview(sample, ratio);
        photo.scale = 0;
        Draw(photo, ratio, run);
    });
}

void EffectPictures::Follow(const Surface& canvas, const SharedState& state) {
    canvas_ = &canvas;
    state_ = &state;
    connect(&canvas, &Surface::PictureReplaced, this, [this] { moment_.start(kAfterOpening); });
    connect(&canvas, &Surface::PictureChanged, this, [this] { moment_.start(kAfterStroke); });
}

void EffectPictures::TakeCanvas() {
    if (ratio_ == 0 || state_->CurrentFileName.isEmpty()) return;
    // On this thread: were the picture shared with another, the next stroke would have to copy it.
    const PreviewPhoto photo = TakePreview(canvas_->Picture(), ratio_);
    const int run = ++run_;
    StartJob(pool_, [this, photo, run, ratio = ratio_] { Draw(photo, ratio, run); });
}

void EffectPictures::Draw(const PreviewPhoto& photo, qreal ratio, int run) {
    for (const Effect& effect : Catalogue()) {
        if (run_ != run) return;
        // Without memory the button keeps the picture that it has.
        Attempt([&] {
            const QImage picture = DrawEffectPicture(effect, photo, ratio);
            HandBack(this, [this, run, number = effect.number, picture] {
                if (run_ == run) Q_EMIT PictureReady(number, picture);
            });
        });
    }
}

}  // namespace kelu
