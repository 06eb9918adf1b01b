// A window onto the scaled picture.
// SPDX-License-Identifier: MIT
#include "view/scaled_view.h"

#include <algorithm>
#include <cstring>

#include "pictures/area_scaler.h"
#include "pictures/picture.h"

namespace kelu {
namespace {

// Moves the pixels that `from` and `to` (windows on one plane) have in common into the new buffer.
void CopyCommon(const QImage& source, const QRect& from, QImage& target, const QRect& to) {
    const QRect common = from & to;
    for (int y = common.top(); y <= common.bottom(); ++y) {
        std::memcpy(target.scanLine(y - to.top()) + std::ptrdiff_t{common.left() - to.left()} * 4,
                    source.constScanLine(y - from.top()) + std::ptrdiff_t{common.left() - from.left()} * 4,
                    static_cast<std::size_t>(common.width()) * 4);
    }
}

}  // namespace

void ScaledView::Show(const QImage& picture, const QSize& scaled, const QRect& window) {
    const QRect wanted = window & QRect(QPoint(0, 0), scaled);
    if (picture.isNull() || wanted.isEmpty()) {
        Invalidate();
        return;
    }
    const QImage::Format format =
        picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    const bool keeps =
        !buffer_.isNull() && scaled == scaled_ && picture.size() == pictureSize_ && format == buffer_.format();
    if (keeps && wanted == window_) return;
    QImage buffer = MakePicture(wanted.width(), wanted.height(), format);
    QRegion missing(wanted);
    if (keeps) {
        CopyCommon(buffer_, window_, buffer, wanted);
        missing -= window_;
    }
    coarse_ = keeps ? coarse_ & wanted : QRegion();
    buffer_ = std::move(buffer);
    window_ = wanted;
    scaled_ = scaled;
    pictureSize_ = picture.size();
    for (const QRect& part : missing) Render(picture, part);
}

QRect ScaledView::Refresh(const QImage& picture, const QRect& imagePixels) {
    if (buffer_.isNull() || imagePixels.isEmpty()) return {};
    const PixelRange x = DependentPixels(imagePixels.left(), imagePixels.right() + 1, picture.width(), scaled_.width());
    const PixelRange y =
        DependentPixels(imagePixels.top(), imagePixels.bottom() + 1, picture.height(), scaled_.height());
    const QRect part = QRect(x.begin, y.begin, x.end - x.begin, y.end - y.begin) & window_;
    Render(picture, part);
    return part;
}

double ScaledView::Share() const {
    return static_cast<double>(pictureSize_.width()) * pictureSize_.height() /
           (static_cast<double>(scaled_.width()) * scaled_.height());
}

QRect ScaledView::Refine(const QImage& picture) {
    if (coarse_.isEmpty()) return {};
    QRect part = *coarse_.begin();
    part.setHeight(std::clamp(static_cast<int>(kAtOnce / (part.width() * Share())), 1, part.height()));
    Render(picture, part);
    return part;
}

void ScaledView::Render(const QImage& picture, const QRect& part) {
    const QPoint at = part.topLeft() - window_.topLeft();
    if (part.height() > 1 && static_cast<double>(part.width()) * part.height() * Share() > kAtOnce) {
        SampleArea(picture, scaled_, part, buffer_, at);
        coarse_ += part;
    } else {
        ScaleArea(picture, scaled_, part, buffer_, at);
        coarse_ -= part;
    }
}

}  // namespace kelu
