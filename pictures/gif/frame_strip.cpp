// Decoding of frames and their places on the screen.
// SPDX-License-Identifier: MIT
#include "pictures/gif/frame_strip.h"

#include <algorithm>
#include <cstring>

#include "pictures/gif/lzw_decoder.h"

namespace kelu {
namespace {

std::span<const std::uint8_t> AsSpan(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

// The order in which the rows of an image stand in the file: four passes when it is interlaced.
std::vector<int> RowOrder(int height, bool interlaced) {
    struct Pass {
        int first, step;
    };
    constexpr Pass kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    constexpr Pass kPlain[] = {{0, 1}};
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(height));
    for (const Pass& pass : interlaced ? std::span<const Pass>(kInterlaced) : std::span<const Pass>(kPlain)) {
        for (int row = pass.first; row < height; row += pass.step) order.push_back(row);
    }
    return order;
}

}  // namespace

QImage DecodeFrame(std::span<const std::uint8_t> imageSpan) {
    GifReader reader(imageSpan);
    reader.SetReadPos(5);  // behind separator, left and top
    const int width = reader.ReadWord();
    const int height = reader.ReadWord();
    const int packed = reader.ReadByte();
    if (packed & 0x80) reader.ReadColourTable(packed & 7);
    const int minCodeSize = reader.ReadByte();

    QImage picture(width, height, QImage::Format_Indexed8);
    if (picture.isNull()) return picture;
    picture.fill(0);
    const bool interlaced = packed & 0x40;
    const auto data = imageSpan.subspan(reader.ReadPos());
    const auto rowLength = static_cast<std::size_t>(width);
    const std::span<std::uint8_t> bits(picture.bits(), static_cast<std::size_t>(picture.sizeInBytes()));
    if (!interlaced && static_cast<std::size_t>(picture.bytesPerLine()) == rowLength) {
        DecodeLzw(data, minCodeSize, bits);
        return picture;
    }
    std::vector<std::uint8_t> indices(rowLength * static_cast<std::size_t>(height));
    DecodeLzw(data, minCodeSize, indices);
    const std::uint8_t* from = indices.data();
    for (const int row : RowOrder(height, interlaced)) {
        std::memcpy(picture.scanLine(row), from, rowLength);
        from += rowLength;
    }
    return picture;
}

int FrameStrip::Load(const QByteArray& gifBytes) {
    Clear();
    stream_ = ParseGifStream(AsSpan(gifBytes));
    if (std::int64_t{stream_.ScreenWidth} * stream_.ScreenHeight > kMaxCanvasPixels) stream_ = GifStream();
    if (FrameCount() == 0) return 0;
    gifBytes_ = gifBytes;
    pictures_.resize(stream_.Frames.size());
    LoadFrame(1);
    if (FrameCount() == 1) LoadRest();
    return FrameCount();
}

void FrameStrip::LoadRest() {
    if (IsComplete()) return;
    for (int frame = 2; frame <= FrameCount(); ++frame) LoadFrame(frame);
    gifBytes_.clear();
}

void FrameStrip::LoadFrame(int frame) {
    const GifFrame& description = Frame(frame);
    stripPixels_ += std::int64_t{description.Width} * description.Height;
    if (stripPixels_ > kMaxStripPixels) return;
    const FrameSpan& span = stream_.FrameSpans[static_cast<std::size_t>(frame) - 1];
    QImage& picture = pictures_[static_cast<std::size_t>(frame) - 1];
    picture = DecodeFrame(AsSpan(gifBytes_).subspan(span.SpanStart, span.SpanLength));
    if (mirroredX_ || mirroredY_) picture = picture.mirrored(mirroredX_, mirroredY_);
}

const ColourTable& FrameStrip::Colours(int frame) const {
    return stream_.ColourTables[static_cast<std::size_t>(Frame(frame).TableNumber)];
}

std::array<QRgb, 256> FrameStrip::DrawingColours(int frame) const {
    std::array<QRgb, 256> colours;
    colours.fill(0xFF000000);
    std::size_t index = 0;
    for (const std::uint32_t colour : Colours(frame)) colours[index++] = 0xFF000000 | colour;
    if (Frame(frame).HasTransparency) colours[Frame(frame).TransparentIndex] = 0;
    return colours;
}

bool FrameStrip::NeedMask() const {
    if (FrameCount() == 0) return false;
    const GifFrame& first = stream_.Frames[0];
    const bool firstCovers =
        first.Left == 0 && first.Top == 0 && first.Width == ScreenWidth() && first.Height == ScreenHeight();
    if (FrameCount() == 1 || first.HasTransparency) return true;
    return std::any_of(stream_.Frames.begin(), stream_.Frames.end(), [&](const GifFrame& frame) {
        return frame.Disposal >= 2 || (frame.HasTransparency && !firstCovers);
    });
}

void FrameStrip::Mirror(bool horizontally, bool vertically) {
    mirroredX_ ^= horizontally;
    mirroredY_ ^= vertically;
    for (QImage& picture : pictures_) {
        if (!picture.isNull() && (horizontally || vertically)) picture = picture.mirrored(horizontally, vertically);
    }
    for (GifFrame& frame : stream_.Frames) {
        if (horizontally) frame.Left = ScreenWidth() - (frame.Left + frame.Width);
        if (vertically) frame.Top = ScreenHeight() - (frame.Top + frame.Height);
    }
}

}  // namespace kelu
