// The part of a picture that a view shows, at the view's scale, in device pixels: renewed only where something changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

namespace kelu {

/// A window onto the scaled picture. The scaled picture as a whole is never made: at 100 megapixels and 400 percent it
/// would take gigabytes. Each pixel of it depends on its own place alone, so pixels made at different times fit. Where
/// making them would hold the caller, as for all of a large picture, they are coarse at first, one sample each.
class ScaledView {
 public:
    /// The whole picture takes `scaled` device pixels (each side at least 1) and the view shows `window` of it.
    /// Pixels that were shown before at the same scale are kept and moved.
    void Show(const QImage& picture, const QSize& scaled, const QRect& window);
    /// Forgets all pixels: another picture, or all of it changed.
    void Invalidate() { *this = ScaledView(); }
    /// Renews the pixels that depend on `imagePixels`; what changed, in device pixels of the scaled picture.
    QRect Refresh(const QImage& picture, const QRect& imagePixels);
    bool IsCoarse() const { return !coarse_.isEmpty(); }
    /// Makes some of the coarse pixels as they are to be; which, in device pixels of the scaled picture.
    QRect Refine(const QImage& picture);

    /// Image pixels behind what is made at once: some milliseconds.
    static constexpr double kAtOnce = 12 << 20;

    /// The pixels of Window(); RGB32 or ARGB32_Premultiplied.
    const QImage& Pixels() const { return buffer_; }
    const QRect& Window() const { return window_; }

 private:
    void Render(const QImage& picture, const QRect& part);

    /// Image pixels to a device pixel.
    double Share() const;

    QImage buffer_;
    QRect window_;
    QRegion coarse_;
    QSize scaled_;
    QSize pictureSize_;
};

}  // namespace kelu
