// Writing of one-image GIF files.
// SPDX-License-Identifier: MIT
#include "pictures/gif/frame_encoder.h"

#include "pictures/gif/animation_encoder.h"

namespace kelu {
QByteArray EncodeGif(const QImage& indices, const ColourTable& colours, int transparentIndex) {
    AnimationEncoder encoder(indices.size(), colours, std::nullopt);
    encoder.Add(indices, {}, 0, transparentIndex);
    return encoder.Finish();
}

QImage PictureFromBytes(const QByteArray& gifBytes) {
    FrameStrip strip;
    if (strip.Load(gifBytes) == 0) return QImage();
    QImage picture = strip.Indices(1);
    if (picture.isNull()) return picture;
    const auto colours = strip.DrawingColours(1);
    picture.setColorTable(QList<QRgb>(colours.begin(), colours.end()));
    return picture;
}

QImage EncodeFrameAsPicture(const FrameStrip& strip, int frame) {
    if (frame < 1 || frame > strip.FrameCount() || strip.Indices(frame).isNull()) return QImage();
    const GifFrame& description = strip.Frame(frame);
    return PictureFromBytes(EncodeGif(strip.Indices(frame), strip.Colours(frame),
                                      description.HasTransparency ? description.TransparentIndex : -1));
}

}  // namespace kelu
