// The block structure of GIF87a and GIF89a.
// SPDX-License-Identifier: MIT
#include "pictures/gif/gif_reader.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "platform/error.h"

namespace kelu {
namespace {

constexpr std::uint8_t kExtension = 0x21;
constexpr std::uint8_t kImageSeparator = 0x2C;
constexpr std::uint8_t kGraphicControl = 0xF9;
constexpr std::uint8_t kApplication = 0xFF;

constexpr std::size_t kScreenPackedPos = 10;  // behind signature, width and height
constexpr std::size_t kScreenEnd = 13;

[[noreturn]] void ThrowEndOfFile() { throw Error(kEndOfFile, "End of File", "ReadGifFile"); }

bool EqualsIgnoringCase(std::span<const std::uint8_t> bytes, std::string_view lowerCase) {
    return std::equal(bytes.begin(), bytes.end(), lowerCase.begin(), lowerCase.end(),
                      [](std::uint8_t byte, char letter) { return std::tolower(byte) == letter; });
}

// What the blocks read so far have gathered; the pending frame waits for its image.
class StreamParser {
 public:
    StreamParser(std::span<const std::uint8_t> bytes, GifStream& stream) : reader_(bytes), stream_(stream) {}

    void Parse() {
        const auto signature = reader_.ReadBytes(6);
        if (!EqualsIgnoringCase(signature, "gif89a") && !EqualsIgnoringCase(signature, "gif87a")) return;
        reader_.SetReadPos(kScreenPackedPos);
        const int packed = reader_.ReadByte();
        reader_.SetReadPos(kScreenEnd);
        stream_.ColourTables.emplace_back();
        if (packed & 0x80) stream_.ColourTables[0] = reader_.ReadColourTable(packed & 7);
        while (stream_.Frames.size() < kMaxGifFrames && ReadBlock()) {
        }
    }

 private:
    // False where the images end: at the trailer or at anything that is no block.
    bool ReadBlock() {
        switch (reader_.ReadByte()) {
            case 0:
                return true;
            case kExtension:
                ReadExtension();
                return true;
            case kImageSeparator:
                return ReadImage();
            default:
                return false;
        }
    }

    void ReadExtension() {
        const std::uint8_t label = reader_.ReadByte();
        if (label == kApplication) ReadLoopCount();
        if (label == kGraphicControl) ReadGraphicControl();
        reader_.SkipSubBlocks();
    }

    void ReadLoopCount() {
        const auto name = reader_.ReadBytes(reader_.ReadByte());
        if (!EqualsIgnoringCase(name, "netscape2.0")) return;
        const std::size_t dataStart = reader_.ReadPos();
        if (reader_.ReadByte() == 3) {
            reader_.ReadByte();  // the kind of the sub-block
            stream_.Loops = reader_.ReadWord();
        } else {
            reader_.SetReadPos(dataStart);
        }
    }

    void ReadGraphicControl() {
        reader_.ReadByte();  // block size
        const int packed = reader_.ReadByte();
        pending_.Disposal = (packed >> 2) & 3;
        // Before the first frame there is nothing that could be restored.
        if (pending_.Disposal == 3 && stream_.Frames.empty()) pending_.Disposal = 0;
        pending_.DelayMs = reader_.ReadWord() * 10;
        pending_.HasTransparency = packed & 1;
        pending_.TransparentIndex = reader_.ReadByte();
    }

    bool ReadImage() {
        const std::size_t spanStart = reader_.ReadPos() - 1;
        pending_.Left = reader_.ReadWord();
        pending_.Top = reader_.ReadWord();
        pending_.Width = reader_.ReadWord();
        pending_.Height = reader_.ReadWord();
        const int packed = reader_.ReadByte();
        if (packed & 0x80) {
            pending_.TableNumber = static_cast<int>(stream_.ColourTables.size());
            stream_.ColourTables.push_back(reader_.ReadColourTable(packed & 7));
        } else if (stream_.ColourTables[0].empty()) {
            stream_ = GifStream();
            return false;
        }
        reader_.ReadByte();  // smallest code size
        // An image that is cut is dropped. One that is complete but holds no data counts, as a blank frame.
        if (!reader_.SkipSubBlocks()) return false;
        stream_.Frames.push_back(pending_);
        stream_.FrameSpans.push_back({spanStart, reader_.ReadPos() - spanStart});
        stream_.ScreenWidth = std::max(stream_.ScreenWidth, pending_.Left + pending_.Width);
        stream_.ScreenHeight = std::max(stream_.ScreenHeight, pending_.Top + pending_.Height);
        pending_ = GifFrame();
        return true;
    }

    GifReader reader_;
    GifStream& stream_;
    GifFrame pending_;
};

}  // namespace

std::uint8_t GifReader::ReadByte() {
    if (readPos_ >= bytes_.size()) ThrowEndOfFile();
    return bytes_[readPos_++];
}

int GifReader::ReadWord() {
    const int low = ReadByte();
    return low | (ReadByte() << 8);
}

std::span<const std::uint8_t> GifReader::ReadBytes(std::size_t count) {
    if (readPos_ > bytes_.size() || count > bytes_.size() - readPos_) return {};
    const auto result = bytes_.subspan(readPos_, count);
    readPos_ += count;
    return result;
}

ColourTable GifReader::ReadColourTable(int sizeExponent) {
    const std::size_t entries = std::size_t{2} << sizeExponent;
    const auto triples = ReadBytes(3 * entries);
    if (triples.empty()) ThrowEndOfFile();
    ColourTable table(entries);
    for (std::size_t i = 0; i < entries; ++i) {
        table[i] = static_cast<std::uint32_t>(triples[3 * i] << 16 | triples[3 * i + 1] << 8 | triples[3 * i + 2]);
    }
    return table;
}

bool GifReader::SkipSubBlocks() {
    while (readPos_ < bytes_.size()) {
        const std::size_t length = bytes_[readPos_];
        readPos_ += length + 1;
        if (length == 0) return true;
    }
    return false;
}

GifStream ParseGifStream(std::span<const std::uint8_t> gifBytes) {
    GifStream stream;
    try {
        StreamParser(gifBytes, stream).Parse();
    } catch (const Error&) {
        // A file cut short still gives all the images before the cut.
    }
    return stream;
}

}  // namespace kelu
