// The block reader on hand-made byte streams.
// SPDX-License-Identifier: MIT
#include "pictures/gif/gif_reader.h"

#include <gtest/gtest.h>

#include "tests/pictures/gif/gif_bytes.h"

namespace kelu {
namespace {

using namespace test;

GifStream Parse(const QByteArray& bytes) {
    return ParseGifStream(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

const QByteArray kPixel = Image(0, 0, 1, 1, {1});

struct CountCase {
    const char* name;
    QByteArray bytes;
    std::size_t frames;
};

const QByteArray kNoTable = Bytes({'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0x00, 0, 0});
const QByteArray kFourColours = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});

TEST(GifReader, GivesTheCompleteImages) {
    const CountCase cases[] = {
        {"Empty", "", 0},
        {"SignatureOnly", "GIF89a", 0},
        {"OtherSignature", "GIF88a" + Header(1, 1).mid(6) + kPixel + kTrailer, 0},
        {"SignatureInCapitals", "GIF89A" + Header(1, 1).mid(6) + kPixel + kTrailer, 1},
        {"NoImage", Header(1, 1) + kTrailer, 0},
        {"ThreeImages", Header(1, 1) + kPixel + kPixel + kPixel + kTrailer, 3},
        {"NoTrailer", Header(1, 1) + kPixel + kPixel, 2},
        {"CutInTheThirdImagesData", Header(1, 1) + kPixel + kPixel + kPixel.chopped(2), 2},
        {"CutBeforeTheThirdImagesTerminator", Header(1, 1) + kPixel + kPixel + kPixel.chopped(1), 2},
        {"CutInTheThirdImagesDescriptor", Header(1, 1) + kPixel + kPixel + kPixel.left(5), 2},
        {"CutInALocalTable", Header(1, 1) + kPixel + Image(0, 0, 1, 1, {1}, kFourColours).left(15), 1},
        {"CutInAnExtension", Header(1, 1) + kPixel + Control(0, 5).left(4), 1},
        {"CutInTheGlobalTable", Header(1, 1).chopped(1), 0},
        {"GarbageBehindTheImages", Header(1, 1) + kPixel + kPixel + "\x55garbage" + kPixel, 2},
        {"ImagesBehindTheTrailer", Header(1, 1) + kPixel + kTrailer + kPixel, 1},
        {"ZerosBetweenBlocks", Header(1, 1) + kPixel + Bytes({0, 0, 0}) + kPixel + kTrailer, 2},
        {"CommentAndUnknownExtension",
         Header(1, 1) + Bytes({0x21, 0xFE, 3, 'a', 'b', 'c', 2, 'd', 'e', 0}) + kPixel + Bytes({0x21, 0x77, 1, 9, 0}) +
             kPixel + kTrailer,
         2},
        // The shortest image there is: descriptor, code size, terminator. Without data it is a blank frame.
        {"ImageWithoutData", Header(1, 1) + Bytes({0x2C, 0, 0, 0, 0, 1, 0, 1, 0, 0, 2, 0}) + kPixel + kTrailer, 2},
        {"NoTableAtAll", kNoTable + kPixel + kTrailer, 0},
        {"OnlyLocalTables", kNoTable + Image(0, 0, 1, 1, {1}, kFourColours) + kTrailer, 1},
        {"ALaterImageWithoutAnyTable", kNoTable + Image(0, 0, 1, 1, {1}, kFourColours) + kPixel + kTrailer, 0}};
    for (const CountCase& each : cases) EXPECT_EQ(Parse(each.bytes).Frames.size(), each.frames) << each.name;
}

struct LoopCase {
    const char* name;
    QByteArray extension;
    int loops;
};

const QByteArray kNetscapeStart = Bytes({0x21, 0xFF, 11});

TEST(GifReader, TheNetscapeBlockAloneTellsTheLoops) {
    const LoopCase cases[] = {
        {"None", "", 0},
        {"Seven", Netscape(7), 7},
        {"TwoBytes", Netscape(0x1234), 0x1234},
        {"SmallLetters", kNetscapeStart + "netscape2.0" + Bytes({3, 1, 5, 0, 0}), 5},
        {"FirstSubBlockOfTwo", kNetscapeStart + "NETSCAPE2.0" + Bytes({2, 1, 5, 0}), 0},
        {"NoSubBlock", kNetscapeStart + "NETSCAPE2.0" + Bytes({0}), 0},
        {"OtherApplication", kNetscapeStart + "ANIMEXTS1.0" + Bytes({3, 1, 5, 0, 0}), 0},
        {"MoreSubBlocksBehind", kNetscapeStart + "NETSCAPE2.0" + Bytes({3, 1, 4, 0, 5, 2, 0, 0, 1, 0, 0}), 4}};
    for (const LoopCase& each : cases) {
        const GifStream stream = Parse(Header(1, 1) + each.extension + kPixel + kPixel + kTrailer);
        EXPECT_EQ(stream.Loops, each.loops) << each.name;
        EXPECT_EQ(stream.Frames.size(), 2U) << "reading goes on behind the block";
    }
}

TEST(GifReader, GraphicControlBelongsToTheNextImage) {
    const GifStream stream = Parse(Header(4, 4) + Control(3, 7, 2)         // 3 before any frame: as 0
                                   + kPixel                                //
                                   + kPixel                                // no control: nothing carried over
                                   + Control(1, 3, 1) + Control(3, 300) +  // the second replaces the first
                                   Image(2, 1, 2, 3, {0, 1, 2, 3, 0, 1}, kFourColours)  //
                                   + Control(7, 1) + kPixel      // the disposal's third bit does not count
                                   + Control(2, 9) + kTrailer);  // without an image: dropped
    ASSERT_EQ(stream.Frames.size(), 4U);
    const auto expect = [&](std::size_t at, int delayMs, int disposal, int transparent, int table) {
        const GifFrame& frame = stream.Frames[at];
        EXPECT_EQ(frame.DelayMs, delayMs) << at;
        EXPECT_EQ(frame.Disposal, disposal) << at;
        EXPECT_EQ(frame.HasTransparency ? frame.TransparentIndex : -1, transparent) << at;
        EXPECT_EQ(frame.TableNumber, table) << at;
    };
    expect(0, 70, 0, 2, 0);
    expect(1, 0, 0, -1, 0);
    expect(2, 3000, 3, -1, 1);
    expect(3, 10, 3, -1, 0);
    EXPECT_EQ(stream.ColourTables[1], (ColourTable{0x010203, 0x040506, 0x070809, 0x0A0B0C}));
    EXPECT_EQ(stream.ScreenWidth, 4);
    EXPECT_EQ(stream.ScreenHeight, 4);
}

}  // namespace
}  // namespace kelu
