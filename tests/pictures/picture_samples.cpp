// Sample files made by other programs.
// SPDX-License-Identifier: MIT
#include "picture_samples.h"

#include <cmath>

#include "pictures/picture_file.h"
#include "platform/error.h"
#include "tests/support/kit.h"

namespace kelu::picture_test {

QImage SoftPicture(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x + y) * 200 / (width + height) + 20));
    return image;
}

Difference Compare(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return {1000, 1000};
    Difference difference{0, 0};
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            for (int shift = 0; shift < 24; shift += 8) {
                const int d = std::abs(int((p >> shift) & 255) - int((q >> shift) & 255));
                difference.largest = std::max(difference.largest, d);
                difference.mean += d * d;
            }
        }
    }
    difference.mean = std::sqrt(difference.mean / (3.0 * a.width() * a.height()));
    return difference;
}

double Psnr(const QImage& a, const QImage& b) { return 20 * std::log10(255 / Compare(a, b).mean); }

int ReadingError(const QString& path) {
    bool read = false;
    const Error error = ErrorOf([&] { read = !ReadPicture(path).isNull(); });
    return error.Number() != 0 ? (error.Description().isEmpty() ? -2 : error.Number()) : read ? 0 : -1;
}

}  // namespace kelu::picture_test
