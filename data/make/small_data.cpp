// Drawing of the small made things.
// SPDX-License-Identifier: MIT
#include "data/make/small_data.h"

#include <QPainter>
#include <QPainterPath>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <random>

#include "controls/theme/icons.h"
#include "controls/theme/theme.h"
#include "data/make/gif_writer.h"
#include "data/make/look.h"

namespace kelu {
namespace {

// The stroke animation.
constexpr int kWidth = 126, kHeight = 22, kFrames = 36, kDelayMs = 50;
constexpr int kHues = 40, kLevels = 6;

QColor HueAt(float part) { return QColor::fromHsvF(std::fmod(0.08F + 0.75F * part, 1.0F), 0.62F, 1.0F); }

ColourTable StrokeColours() {
    ColourTable colours{kSplashFooter.rgb() & 0xFFFFFF};
    for (int hue = 0; hue < kHues; ++hue) {
        const QColor full = HueAt(static_cast<float>(hue) / kHues);
        for (int level = 1; level <= kLevels; ++level) {
            const double part = static_cast<double>(level) / kLevels;
            const auto mix = [&](int ground, int paint) {
                return static_cast<int>(std::lround(ground + (paint - ground) * part));
            };
            colours.push_back(QColor(mix(kSplashFooter.red(), full.red()), mix(kSplashFooter.green(), full.green()),
                                     mix(kSplashFooter.blue(), full.blue()))
                                  .rgb() &
                              0xFFFFFF);
        }
    }
    return colours;
}

// Coverage of the stroke, 0 to 1, at a pixel of a stroke that reaches from `tail` to `head`: fine bristles, a round
// tip.
double Coverage(double x, double y, double tail, double head) {
    constexpr double kMiddle = kHeight / 2.0, kRadius = 6.5;
    const double wave = 1.6 * std::sin(x / 11.0);
    const double across = std::abs(y + 0.5 - kMiddle - wave);
    const double ends = std::min(x - tail, head - x);
    const double radius =
        ends < kRadius ? std::sqrt(std::max(0.0, kRadius * kRadius - (kRadius - ends) * (kRadius - ends))) : kRadius;
    const double edge = std::clamp(radius - across + 0.5, 0.0, 1.0);
    const double bristle = 0.78 + 0.22 * std::sin(y * 2.6 + 0.9 * std::sin(x / 6.0));
    // The colour is thick at the tip and dries towards the tail.
    const double dry = std::clamp(1.0 - 0.55 * (head - x) / kWidth, 0.3, 1.0);
    return ends <= 0 ? 0 : edge * bristle * dry;
}

// The placeholder.
constexpr QSize kPlaceholderSize(1000, 700);  // of the drawing
constexpr double kPlaceholderScale = 1.5;     // pixels to a unit of it: sharp in the smallest window at ratio 2

void DrawPhotoCard(QPainter& painter, double angle, const QPointF& at, bool front) {
    painter.save();
    painter.translate(at);
    painter.rotate(angle);
    const QRectF card(-130, -98, 260, 196);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 70));
    painter.drawRoundedRect(card.translated(5, 9), 10, 10);
    painter.setBrush(QColor(front ? 0xEE : 0x8C, front ? 0xEA : 0x8A, front ? 0xE2 : 0x86));
    painter.drawRoundedRect(card, 10, 10);
    const QRectF inside = card.adjusted(12, 12, -12, -12);
    QPainterPath clip;
    clip.addRoundedRect(inside, 4, 4);
    painter.setClipPath(clip);
    QLinearGradient sky(inside.topLeft(), inside.bottomLeft());
    sky.setColorAt(0, front ? QColor(0x3D, 0x5A, 0x80) : QColor(0x4A, 0x4E, 0x55));
    sky.setColorAt(0.62, front ? QColor(0xF2, 0xA5, 0x41) : QColor(0x77, 0x76, 0x74));
    sky.setColorAt(1, front ? QColor(0xF6, 0xD0, 0x8A) : QColor(0x88, 0x86, 0x82));
    painter.fillRect(inside, sky);
    painter.setBrush(front ? QColor(0xFF, 0xEC, 0xC0) : QColor(0xA0, 0x9E, 0x9A));
    painter.drawEllipse(QPointF(58, -8), 22, 22);
    const auto hill = [&](double left, double top, double right, const QColor& colour) {
        QPainterPath path(QPointF(inside.left(), inside.bottom()));
        path.lineTo(inside.left(), left);
        path.cubicTo(-60, top, 20, top, inside.right(), right);
        path.lineTo(inside.right(), inside.bottom());
        painter.fillPath(path, colour);
    };
    hill(10, 0, 62, front ? QColor(0x5B, 0x4B, 0x6B) : QColor(0x5C, 0x5A, 0x5C));
    hill(70, 40, 20, front ? QColor(0x33, 0x2E, 0x45) : QColor(0x44, 0x43, 0x45));
    painter.restore();
}

// One thick brush stroke in the accent, under the cards.
void DrawStroke(QPainter& painter) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> part(0, 1);
    for (int bristle = 0; bristle < 90; ++bristle) {
        const double offset = (part(random) - 0.5) * 130;
        QPainterPath path(QPointF(190 + part(random) * 60, 400 + offset));
        path.cubicTo(380, 300 + offset, 600, 470 + offset * 0.9, 780 + part(random) * 60, 330 + offset * 0.8);
        QColor colour = theme::kAccent;
        colour.setAlphaF(0.10F + 0.16F * static_cast<float>(part(random)));
        painter.strokePath(path, QPen(colour, 3 + 5 * part(random), Qt::SolidLine, Qt::RoundCap));
    }
}

}  // namespace

QByteArray MakeStrokeAnimation() {
    std::vector<QImage> frames;
    for (int number = 0; number < kFrames; ++number) {
        QImage frame(kWidth, kHeight, QImage::Format_Indexed8);
        // The head runs ahead, the tail follows when the stroke is long; both leave at the right.
        const double time = static_cast<double>(number) / kFrames;
        const double head = -4 + (kWidth + 90) * time;
        const double tail = head - 14 - 76 * std::sin(3.14159 * time);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const int level = static_cast<int>(std::lround(kLevels * Coverage(x, y, tail, head)));
                const int hue = std::min(kHues - 1, x * kHues / kWidth);
                frame.scanLine(y)[x] = static_cast<uchar>(level == 0 ? 0 : hue * kLevels + level);
            }
        }
        frames.push_back(frame);
    }
    return WriteAnimation(frames, StrokeColours(), kDelayMs);
}

QImage MakePlaceholder() {
    // A card: round it, and round its corners, the canvas shows its own ground at whatever size.
    QImage picture((QSizeF(kPlaceholderSize) * kPlaceholderScale).toSize(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(kPlaceholderScale, kPlaceholderScale);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x6A, 0x6A, 0x6A), 3, Qt::CustomDashLine, Qt::RoundCap));
    QPen dashes = painter.pen();
    dashes.setDashPattern({5, 6});
    painter.setPen(dashes);
    painter.setBrush(QColor(0x2D, 0x2D, 0x2D));
    painter.drawRoundedRect(QRectF(40, 40, 920, 620), 28, 28);
    DrawStroke(painter);
    DrawPhotoCard(painter, -11, {415, 262}, false);
    DrawPhotoCard(painter, 6, {545, 272}, true);
    // Below, the program writes its invitation, in its language and letters.
    return picture;
}

QByteArray MakeShutterSound() {
    constexpr int kRate = 44100, kSamples = kRate * 32 / 100;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> noise(-1, 1);
    double smooth = 0;
    QByteArray samples;
    for (int i = 0; i < kSamples; ++i) {
        const double ms = 1000.0 * i / kRate;
        // Mirror up, curtain, mirror down: three clicks of noise with a short ring.
        double value = 0;
        smooth += 0.35 * (noise(random) - smooth);
        for (const auto& [start, loudness, decay, ring] :
             {std::tuple{4.0, 0.55, 5.0, 1900.0}, {62.0, 0.8, 7.0, 1300.0}, {150.0, 0.6, 9.0, 950.0}}) {
            if (ms < start) continue;
            const double since = ms - start;
            const double envelope = loudness * std::exp(-since / decay) * std::min(1.0, since / 0.4);
            value += envelope * (0.75 * smooth * 1.6 + 0.25 * std::sin(6.28318 * ring * since / 1000));
        }
        const auto sample = qToLittleEndian(static_cast<qint16>(std::clamp(value, -1.0, 1.0) * 30000));
        samples.append(reinterpret_cast<const char*>(&sample), 2);
    }
    const auto number = [](quint32 value) {
        value = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&value), 4);
    };
    const auto size = static_cast<quint32>(samples.size());
    return "RIFF" + number(36 + size) + "WAVEfmt " + number(16) + number(1U | 1U << 16)  // PCM, one channel
           + number(kRate) + number(kRate * 2) + number(2U | 16U << 16)                  // 2 bytes a frame, 16 bits
           + "data" + number(size) + samples;
}

}  // namespace kelu
