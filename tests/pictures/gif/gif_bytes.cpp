// Blocks of GIF files for the tests.
// SPDX-License-Identifier: MIT
#include "tests/pictures/gif/gif_bytes.h"

#include <algorithm>
#include <map>
#include <string>

namespace kelu::test {

QByteArray Bytes(std::initializer_list<int> values) {
    QByteArray bytes;
    for (const int value : values) bytes.append(static_cast<char>(value));
    return bytes;
}

namespace {

QByteArray Word(int value) { return Bytes({value & 255, value >> 8}); }

}  // namespace

const QByteArray kTrailer = Bytes({0x3B});

QByteArray Header(int screenWidth, int screenHeight, const char* signature) {
    return QByteArray(signature) + Word(screenWidth) + Word(screenHeight) +
           Bytes({0x81,  // global table, 2 to the power 2 colours
                  0, 0,  // background, aspect ratio
                  255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255});
}

QByteArray Control(int disposal, int delay, int transparent) {
    return Bytes({0x21, 0xF9, 4, disposal << 2 | (transparent >= 0)}) + Word(delay) +
           Bytes({std::max(transparent, 0), 0});
}

QByteArray Image(int left, int top, int width, int height, const std::vector<int>& indices,
                 const QByteArray& localTable, bool interlaced) {
    LzwStyle style;
    style.minCodeSize = 2;
    return Bytes({0x2C}) + Word(left) + Word(top) + Word(width) + Word(height) +
           Bytes({(localTable.isEmpty() ? 0 : 0x81) | (interlaced ? 0x40 : 0)}) + localTable + Bytes({2}) +
           ReferenceLzw({indices.begin(), indices.end()}, style);
}

QByteArray Netscape(int loops) {
    return Bytes({0x21, 0xFF, 11}) + "NETSCAPE2.0" + Bytes({3, 1}) + Word(loops) + Bytes({0});
}

QByteArray ReferenceLzw(const std::vector<std::uint8_t>& indices, const LzwStyle& style) {
    const int clear = 1 << style.minCodeSize;
    int bits = style.minCodeSize + 1;
    std::vector<bool> stream;
    const auto emit = [&](int code) {
        for (int i = 0; i < bits; ++i) stream.push_back(code >> i & 1);
    };
    std::map<std::string, int> codes;  // of strings longer than a letter
    int next = 0;                      // the encoder's next free code
    int emitted = 0;                   // codes since the last clear
    const auto reset = [&] {
        codes.clear();
        next = clear + 2;
        bits = style.minCodeSize + 1;
        emitted = 0;
    };
    // The reader's table is one entry behind: it widens its codes when that table has reached the power of two.
    const auto emitString = [&](const std::string& text) {
        emit(text.size() == 1 ? static_cast<std::uint8_t>(text[0]) : codes.at(text));
        ++emitted;
        const int readersNext = std::min(clear + 2 + emitted - 1, 4096);
        while (bits < 12 && readersNext >= (1 << bits)) ++bits;
    };
    reset();
    if (style.clearAtStart) emit(clear);
    std::string text;
    for (const std::uint8_t index : indices) {
        const std::string longer = text + static_cast<char>(index);
        if (longer.size() == 1 || codes.count(longer)) {
            text = longer;
            continue;
        }
        emitString(text);
        if (next < 4096) codes[longer] = next++;
        text = std::string(1, static_cast<char>(index));
        if (style.clearEvery > 0 && emitted >= style.clearEvery) {
            emit(clear);
            reset();
        }
    }
    if (!text.empty()) emitString(text);
    if (style.endCode) emit(clear + 1);

    QByteArray packed((static_cast<qsizetype>(stream.size()) + 7) / 8, 0);
    for (std::size_t i = 0; i < stream.size(); ++i) {
        if (stream[i])
            packed[static_cast<qsizetype>(i / 8)] =
                static_cast<char>(packed[static_cast<qsizetype>(i / 8)] | 1 << (i % 8));
    }
    QByteArray blocks;
    for (qsizetype at = 0; at < packed.size(); at += style.subBlock) {
        const QByteArray block = packed.mid(at, style.subBlock);
        blocks += static_cast<char>(block.size()) + block;
    }
    return blocks + '\0';
}

}  // namespace kelu::test
