// The LZW decoder against a plain encoder in every legal style, and the encoder against the decoder.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <random>

#include "pictures/gif/frame_encoder.h"
#include "pictures/gif/lzw_decoder.h"
#include "pictures/gif/lzw_encoder.h"
#include "tests/pictures/gif/gif_bytes.h"

namespace kelu {
namespace {

using namespace test;
using Indices = std::vector<std::uint8_t>;

std::span<const std::uint8_t> AsSpan(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

Indices Noise(std::size_t count, int colours, unsigned seed) {
    std::mt19937 random(seed);
    Indices indices(count);
    for (auto& index : indices) index = static_cast<std::uint8_t>(random() % static_cast<unsigned>(colours));
    return indices;
}

Indices Waves(std::size_t count, int colours) {
    Indices indices(count);
    for (std::size_t i = 0; i < count; ++i)
        indices[i] = static_cast<std::uint8_t>((i / 7 + i * i / 9000) % static_cast<std::size_t>(colours));
    return indices;
}

TEST(LzwDecoder, DecodesEveryLegalStream) {
    for (const int minCodeSize : {2, 3, 5, 8, 9, 11}) {
        const int colours = std::min(1 << minCodeSize, 256);
        for (const std::size_t count : {1U, 2U, 700U, 12000U}) {
            for (const Indices& indices : {Indices(count, 1), Noise(count, colours, 17), Waves(count, colours)}) {
                // clearEvery 0 fills the table and goes on with 12-bit codes, never clearing; 3838 clears with it just
                // full
                for (const int clearEvery : {0, 1, 2, 250, 3838, 3839, 3840}) {
                    for (const bool ends : {true, false}) {
                        const LzwStyle style{minCodeSize, clearEvery, true, ends, ends ? 255 : 1};
                        Indices decoded(count, 99);
                        EXPECT_EQ(DecodeLzw(AsSpan(ReferenceLzw(indices, style)), minCodeSize, decoded), count);
                        EXPECT_TRUE(decoded == indices)
                            << "code size " << minCodeSize << ", " << count << " pixels, clear every " << clearEvery;
                    }
                }
            }
        }
    }
}

// Three-bit codes of code size 2: clear 4, end 5, first string 6.
QByteArray ThreeBitCodes(std::initializer_list<int> codes) {
    unsigned bits = 0;
    int count = 0;
    for (const int code : codes) bits |= static_cast<unsigned>(code) << count, count += 3;
    QByteArray block(1, static_cast<char>((count + 7) / 8));
    for (int i = 0; i < count; i += 8) block += static_cast<char>(bits >> i);
    return block + '\0';
}

TEST(LzwDecoder, KeepsWhatCameBeforeTheDamage) {
    struct Case {
        const char* what;
        QByteArray data;
        Indices expected;
    };
    const Case cases[] = {
        {"whole", ThreeBitCodes({4, 1, 6, 2, 5}), {1, 1, 1, 2}},
        {"a code that is not in the table yet",
         ThreeBitCodes({4, 1, 2, 7 /* 6 is the last known, 7 the next */, 5}),
         {1, 2, 2, 2}},
        {"a code from nowhere", ThreeBitCodes({4, 1, 7, 2, 5}), {1}},
        {"a string before any letter", ThreeBitCodes({4, 6, 1, 5}), {}},
        {"end at once", ThreeBitCodes({4, 5}), {}},
        {"no sub-block", Bytes({0}), {}},
        {"sub-block longer than the data", Bytes({200, 0x4C}), {1}},
        {"nothing", QByteArray(), {}},
    };
    for (const Case& test : cases) {
        Indices decoded(4, 9);
        const std::size_t written = DecodeLzw(AsSpan(test.data), 2, decoded);
        EXPECT_EQ(Indices(decoded.begin(), decoded.begin() + static_cast<long>(written)), test.expected) << test.what;
        for (std::size_t i = written; i < decoded.size(); ++i) EXPECT_EQ(decoded[i], 9) << test.what;
    }
    Indices one(1);
    for (const int codeSize : {-1, 0, 12, 255}) EXPECT_EQ(DecodeLzw(AsSpan(cases[0].data), codeSize, one), 0U);
}

QImage Picture(int width, int height, int (*value)(int x, int y)) {
    QImage picture(width, height, QImage::Format_Indexed8);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.scanLine(y)[x] = static_cast<uchar>(value(x, y));
    return picture;
}

int Hash(int x, int y) {
    return static_cast<int>((static_cast<unsigned>(x) * 2654435761U ^ static_cast<unsigned>(y) * 2246822519U) >> 13 &
                            255);
}
int Flat(int, int) { return 0; }  // index 0 with prefix 0 gives the hash key 0
// Soft shapes with a grain, as a photograph has them.
int Photograph(int x, int y) {
    return static_cast<int>(127 + 90 * std::sin(x / 61.0) * std::cos(y / 43.0) + 30 * std::sin((x + y) / 7.0)) +
           (Hash(x, y) & 7);
}

TEST(FrameEncoder, AFrameComesBackIdentical) {
    ColourTable colours(256);
    for (std::uint32_t i = 0; i < 256; ++i) colours[i] = i << 16 | (255 - i) << 8 | (i * 7 & 255);
    const QSize sizes[] = {{1, 1}, {2, 1}, {1, 9}, {13, 7}, {255, 3}, {641, 479}, {2000, 2000}};
    for (const QSize& size : sizes) {
        for (const auto value : {Hash, Flat, Photograph}) {
            const QImage picture = Picture(size.width(), size.height(), value);
            const QByteArray file = EncodeGif(picture, colours, 5);
            const QImage back = PictureFromBytes(file);
            ASSERT_EQ(back.size(), size);
            for (int y = 0; y < size.height(); ++y) {
                ASSERT_EQ(0, std::memcmp(back.constScanLine(y), picture.constScanLine(y),
                                         static_cast<std::size_t>(size.width())))
                    << size.width() << " x " << size.height() << ", row " << y;
            }
            EXPECT_EQ(back.color(4), 0xFF04FB1C);
            EXPECT_EQ(back.color(5), 0U) << "the transparent one";
            // Qt's own reader must agree that the file is good.
            const QImage foreign = QImage::fromData(file, "gif").convertToFormat(QImage::Format_ARGB32_Premultiplied);
            ASSERT_EQ(foreign.size(), size);
            EXPECT_TRUE(foreign == back.convertToFormat(QImage::Format_ARGB32_Premultiplied))
                << size.width() << " x " << size.height();
        }
    }
}

// Streams that end just where the codes grow wider: the end code must have the reader's width.
TEST(LzwEncoder, EndsWithAnEndCodeOfTheRightWidth) {
    for (std::size_t count = 250; count < 262; ++count) {
        std::vector<std::uint8_t> packed;
        LzwEncoder encoder(packed);
        Indices indices(count);
        for (std::size_t i = 0; i < count; ++i) indices[i] = static_cast<std::uint8_t>(i);  // no string twice
        encoder.Add(indices);
        encoder.Finish();
        packed.push_back(0);
        // One pixel more than there is: only the end code can stop the decoder here.
        Indices decoded(count + 20, 200);
        EXPECT_EQ(DecodeLzw(packed, 8, decoded), count);
    }
}

}  // namespace
}  // namespace kelu
