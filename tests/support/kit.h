// What tests of every floor need again and again: files, what was thrown, noise and the difference of pictures.
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <algorithm>
#include <optional>
#include <random>

#include "platform/error.h"

namespace kelu {

/// Nothing for a file that is not there.
inline QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

/// What the work throws; number 0 when it throws nothing.
template <typename Work>
Error ErrorOf(Work&& work) {
    try {
        work();
    } catch (const Error& error) {
        return error;
    }
    return {0, {}};
}

/// Random bytes in every channel; opaque without an alpha channel.
inline QImage NoisePicture(int width, int height, unsigned seed, QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, format);
    std::mt19937 random(seed);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            reinterpret_cast<QRgb*>(image.scanLine(y))[x] =
                static_cast<QRgb>(random()) | (format == QImage::Format_RGB32 ? 0xff000000u : 0u);
    return image;
}

/// Of any of the four channels; a large number when the sizes differ.
inline int LargestDifference(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1000;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            for (int shift = 0; shift < 32; shift += 8)
                largest = std::max(largest,
                                   std::abs(int((a.pixel(x, y) >> shift) & 255) - int((b.pixel(x, y) >> shift) & 255)));
    return largest;
}

}  // namespace kelu
