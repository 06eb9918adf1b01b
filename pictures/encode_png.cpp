// PNG: a header, the deflated rows in chunks, an end.
// SPDX-License-Identifier: MIT
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "pictures/deflated_rows.h"
#include "pictures/picture_encoders.h"
#include "pictures/png_texts.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

void PutBigEndian(std::uint8_t* to, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) to[i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
}

void WriteChunk(QIODevice& device, const char* name, const std::uint8_t* data, std::size_t size) {
    std::array<std::uint8_t, 8> head;
    PutBigEndian(head.data(), static_cast<std::uint32_t>(size));
    std::memcpy(head.data() + 4, name, 4);
    uLong crc = crc32(0, head.data() + 4, 4);
    if (size > 0) crc = crc32(crc, data, static_cast<uInt>(size));
    std::array<std::uint8_t, 4> tail;
    PutBigEndian(tail.data(), static_cast<std::uint32_t>(crc));
    WriteAll(device, reinterpret_cast<const char*>(head.data()), 8);
    WriteAll(device, reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    WriteAll(device, reinterpret_cast<const char*>(tail.data()), 4);
}

std::uint8_t ColorType(RowSamples samples) {
    return samples == RowSamples::Grey ? 0 : samples == RowSamples::Rgb ? 2 : 6;
}

void WriteHeader(const QImage& picture, RowSamples samples, QIODevice& device) {
    WriteAll(device, "\x89PNG\r\n\x1a\n", 8);
    std::array<std::uint8_t, 13> header{};
    PutBigEndian(header.data(), static_cast<std::uint32_t>(picture.width()));
    PutBigEndian(header.data() + 4, static_cast<std::uint32_t>(picture.height()));
    header[8] = 8;  // bits of a sample
    header[9] = ColorType(samples);
    WriteChunk(device, "IHDR", header.data(), header.size());
    const std::uint8_t perceptual = 0;
    WriteChunk(device, "sRGB", &perceptual, 1);
    std::array<std::uint8_t, 9> density;
    PutBigEndian(density.data(), static_cast<std::uint32_t>(std::max(0, picture.dotsPerMeterX())));
    PutBigEndian(density.data() + 4, static_cast<std::uint32_t>(std::max(0, picture.dotsPerMeterY())));
    density[8] = 1;  // metres
    WriteChunk(device, "pHYs", density.data(), density.size());
}

}  // namespace

void EncodePng(const QImage& picture, const WriteOptions& options, QIODevice& device) {
    const RowSamples samples = FewestSamples(picture);
    WriteHeader(picture, samples, device);
    PutPngChunks(options.metadata, picture, [&](const char* name, const QByteArray& data) {
        WriteChunk(device, name, reinterpret_cast<const std::uint8_t*>(data.constData()),
                   static_cast<std::size_t>(data.size()));
    });
    const WorkReport report;
    DeflateRows(picture, samples, [&](std::span<const std::uint8_t> piece, int rows) {
        report(rows, picture.height());
        WriteChunk(device, "IDAT", piece.data(), piece.size());
    });
    WriteChunk(device, "IEND", nullptr, 0);
}

}  // namespace kelu
