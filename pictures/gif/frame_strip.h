// All frames of a GIF as palette indices, with the colours that go with each: what the player draws from.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pictures/gif/gif_reader.h"

namespace kelu {

/// Decodes one image into a Format_Indexed8 picture of its size, without a colour table. `imageSpan` runs from the
/// image separator to the block terminator and must have come out of ParseGifStream. What damaged data does not tell
/// stays 0. A null picture for an image without area, or when memory is short.
QImage DecodeFrame(std::span<const std::uint8_t> imageSpan);

/// Frames are counted from 1. Loading has two steps, so that a control can show the first frame before it decodes the
/// others.
class FrameStrip {
 public:
    /// Limits that keep a hostile file from taking the machine's memory. A larger canvas is no GIF for us; frames
    /// beyond the second limit stay blank.
    static constexpr std::int64_t kMaxCanvasPixels = 64 << 20;
    static constexpr std::int64_t kMaxStripPixels = 512 << 20;

    /// Reads the file's bytes and decodes frame 1. The number of frames; 0 for none, and the strip is empty then.
    int Load(const QByteArray& gifBytes);
    /// Decodes frames 2 to the last and drops the file's bytes.
    void LoadRest();
    bool IsComplete() const { return gifBytes_.isEmpty(); }
    /// The file, as long as frames of it are still to be decoded.
    const QByteArray& GifBytes() const { return gifBytes_; }
    void Clear() { *this = FrameStrip(); }

    int FrameCount() const { return static_cast<int>(stream_.Frames.size()); }
    const GifFrame& Frame(int frame) const { return stream_.Frames[static_cast<std::size_t>(frame) - 1]; }
    /// Null while the frame is not decoded, or where it could not be.
    const QImage& Indices(int frame) const { return pictures_[static_cast<std::size_t>(frame) - 1]; }
    const ColourTable& Colours(int frame) const;
    /// The colours of all 256 indices as opaque QRgb, 0 where the frame lets its ground through. Indices that the
    /// colour table does not reach are black.
    std::array<QRgb, 256> DrawingColours(int frame) const;

    int ScreenWidth() const { return stream_.ScreenWidth; }
    int ScreenHeight() const { return stream_.ScreenHeight; }
    int Loops() const { return stream_.Loops; }

    /// Whether places that no frame has painted let the ground through. If not, they are black.
    bool NeedMask() const;

    /// Turns the frames and their places over within the screen; frames decoded later are turned as well.
    void Mirror(bool horizontally, bool vertically);

 private:
    void LoadFrame(int frame);

    QByteArray gifBytes_;
    GifStream stream_;
    std::vector<QImage> pictures_;
    std::int64_t stripPixels_ = 0;
    bool mirroredX_ = false;
    bool mirroredY_ = false;
};

}  // namespace kelu
