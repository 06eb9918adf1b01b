// Feeds any bytes to the GIF reader, decoder, composer and encoder. Each must end soon, within bounds, without a crash.
// Built for libFuzzer (the target brings LLVMFuzzerTestOneInput alone).
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <cstring>

#include "pictures/gif/frame_composer.h"
#include "pictures/gif/frame_encoder.h"

namespace {

// Keeps one round short; larger screens differ in nothing but size.
constexpr qint64 kMaxPixels = 1 << 17;
constexpr int kMaxFrames = 40;

qint64 PixelsToDecode(const kelu::GifStream& stream) {
    qint64 pixels = qint64{stream.ScreenWidth} * stream.ScreenHeight;
    for (const kelu::GifFrame& frame : stream.Frames) pixels += qint64{frame.Width} * frame.Height;
    return pixels;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const kelu::GifStream stream = kelu::ParseGifStream({data, size});
    for (const kelu::FrameSpan& span : stream.FrameSpans) {
        if (span.SpanStart + span.SpanLength > size) std::abort();
    }
    if (PixelsToDecode(stream) > kMaxPixels) return 0;
    kelu::FrameStrip strip;
    const int frames =
        std::min(strip.Load(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))), kMaxFrames);
    if (frames == 0) return 0;
    strip.LoadRest();
    strip.Mirror(data[size - 1] & 1, data[size - 1] & 2);
    kelu::FrameComposer composer(strip);
    for (int frame = 1; frame <= frames; ++frame) {
        composer.Compose(frame);
        const QImage& indices = strip.Indices(frame);
        const QImage back = kelu::EncodeFrameAsPicture(strip, frame);
        if (back.size() != indices.size()) std::abort();
        for (int row = 0; row < back.height(); ++row) {
            if (std::memcmp(back.constScanLine(row), indices.constScanLine(row),
                            static_cast<std::size_t>(back.width())) != 0)
                std::abort();
        }
    }
    return 0;
}
