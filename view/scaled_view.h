// The part of a picture that a view shows, at the view's scale, in device pixels: renewed only where something changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

namespace kelu {

/// A window onto the scaled picture. The scaled picture as a whole is never made: at 100 megapixels and 400 percent it
/// would take gigabytes. Each pixel of it depends on its own place alone, so pixels made at different times fit.
class ScaledView {
 public:
    /// The whole picture takes `scaled` device pixels (each side at least 1) and the view shows `window` of it.
    /// Pixels that were shown before at the same scale are kept and moved.
    void Show(const QImage& picture, const QSize& scaled, const QRect& window);
    /// Forgets all pixels: another picture, or all of it changed.
    void Invalidate() { buffer_ = QImage(), window_ = QRect(); }
    /// Renews the pixels that depend on `imagePixels`; what changed, in device pixels of the scaled picture.
    QRect Refresh(const QImage& picture, const QRect& imagePixels);

    /// The pixels of Window(); RGB32 or ARGB32_Premultiplied.
    const QImage& Pixels() const { return buffer_; }
    const QRect& Window() const { return window_; }

 private:
    void Render(const QImage& picture, const QRect& part);

    QImage buffer_;
    QRect window_;
    QSize scaled_;
    QSize pictureSize_;
};

}  // namespace kelu
