// Walks the blocks of a GIF file and lists its images: where each lies, its delay, disposal, colours.
// Nothing is decoded here.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kelu {

/// One image of the file, as its descriptor and the graphic control block before it tell. Lengths in GIF pixels.
struct GifFrame {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    int DelayMs = 0;      ///< as the file says; 0 where it says nothing
    int TableNumber = 0;  ///< row of GifStream::ColourTables
    std::uint8_t TransparentIndex = 0;
    bool HasTransparency = false;
    std::uint8_t Disposal = 0;  ///< 0 and 1 leave the frame, 2 clears its rectangle, 3 restores what was there before
};

/// Where an image lies in the file: from its image separator up to and with its block terminator.
struct FrameSpan {
    std::size_t SpanStart = 0;
    std::size_t SpanLength = 0;
};

/// Up to 256 colours, 0x00RRGGBB.
using ColourTable = std::vector<std::uint32_t>;

struct GifStream {
    std::vector<GifFrame> Frames;
    std::vector<FrameSpan> FrameSpans;      ///< one per frame
    std::vector<ColourTable> ColourTables;  ///< row 0 global (empty if the file has none), then the local ones
    /// Right and bottom end of the frames that reach farthest. The size that the file's header gives is not used.
    int ScreenWidth = 0;
    int ScreenHeight = 0;
    int Loops = 0;  ///< passes wanted; 0 for ever
};

inline constexpr std::size_t kMaxGifFrames = 32767;

/// Lists the complete images of `gifBytes`. A file that is cut short, or goes on with garbage, gives the images before
/// that place. No frames: not a GIF, no image, or an image that has no colour table at all. Never throws for bad data.
GifStream ParseGifStream(std::span<const std::uint8_t> gifBytes);

/// A cursor over the bytes of a GIF file.
class GifReader {
 public:
    explicit GifReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::size_t ReadPos() const { return readPos_; }
    void SetReadPos(std::size_t position) { readPos_ = position; }

    /// These throw Error 53, "End of File", source "ReadGifFile", when the bytes do not suffice.
    std::uint8_t ReadByte();
    int ReadWord();
    ColourTable ReadColourTable(int sizeExponent);  ///< 2 to the power sizeExponent + 1 entries

    /// Empty, and the position stays, when fewer than `count` bytes are left.
    std::span<const std::uint8_t> ReadBytes(std::size_t count);

    /// Passes a chain of sub-blocks with its terminator. False when the bytes end before the terminator.
    bool SkipSubBlocks();

 private:
    std::span<const std::uint8_t> bytes_;
    std::size_t readPos_ = 0;
};

}  // namespace kelu
