// Makes pictures and films out of any bytes, writes them as GIF files and reads them again: a picture of up to 256
// colours and every frame of a film must come back pixel for pixel. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <cstdlib>
#include <cstring>

#include "pictures/gif/animation_encoder.h"
#include "pictures/gif/frame_composer.h"
#include "pictures/gif/frame_encoder.h"
#include "pictures/picture_encoders.h"

namespace {

using namespace kelu;

/// Bytes of the input one after the other, for ever.
class Bytes {
 public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    int Next() { return size_ == 0 ? 0 : data_[at_++ % size_]; }

 private:
    const std::uint8_t* data_;
    std::size_t size_, at_ = 0;
};

QImage Indexes(const QSize& size, Bytes& bytes) {
    QImage picture(size, QImage::Format_Indexed8);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) picture.scanLine(y)[x] = static_cast<uchar>(bytes.Next());
    return picture;
}

QSize SizeFrom(Bytes& bytes) {
    const int width = 1 + bytes.Next(), height = 1 + bytes.Next() % 16;
    return {width, height};
}

void WriteFilm(Bytes& bytes) {
    ColourTable colours(static_cast<std::size_t>(1 + bytes.Next()));
    for (std::uint32_t& colour : colours) colour = static_cast<std::uint32_t>(bytes.Next() * 0x010203) & 0xffffff;
    const QSize screen = SizeFrom(bytes);
    AnimationEncoder encoder(screen, colours, bytes.Next());
    std::vector<QImage> frames{Indexes(screen, bytes)};
    encoder.Add(frames[0], {0, 0}, bytes.Next() * 10, -1);
    for (int more = bytes.Next() % 4; more > 0; --more) {
        const QPoint at(bytes.Next() % screen.width(), bytes.Next() % screen.height());
        frames.push_back(Indexes(screen - QSize(at.x(), at.y()), bytes));
        encoder.Add(frames.back(), at, bytes.Next() * 10, bytes.Next() - 1);
    }
    FrameStrip strip;
    if (strip.Load(encoder.Finish()) != static_cast<int>(frames.size())) std::abort();
    strip.LoadRest();
    if (QSize(strip.ScreenWidth(), strip.ScreenHeight()) != screen) std::abort();
    FrameComposer composer(strip);
    for (int i = 0; i < strip.FrameCount(); ++i) {
        const QImage& back = strip.Indices(i + 1);
        const QImage& frame = frames[static_cast<std::size_t>(i)];
        if (back.size() != frame.size()) std::abort();
        for (int y = 0; y < frame.height(); ++y)
            if (std::memcmp(back.constScanLine(y), frame.constScanLine(y), static_cast<std::size_t>(frame.width())) !=
                0)
                std::abort();
        if (composer.Compose(i + 1).size() != screen) std::abort();
    }
}

void WritePictureOf(Bytes& bytes) {
    QImage picture(SizeFrom(bytes), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, 0xff000000u | (static_cast<QRgb>(bytes.Next()) * 0x010307u & 0xffffffu));
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::WriteOnly);
    EncodeGif(picture, {}, device);
    const QImage back = PictureFromBytes(file);
    if (back.size() != picture.size() || back.convertToFormat(QImage::Format_RGB32) != picture) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes(data, size);
    bytes.Next() % 2 ? WriteFilm(bytes) : WritePictureOf(bytes);
    return 0;
}
