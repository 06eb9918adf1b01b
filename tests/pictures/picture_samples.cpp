// Sample files made by other programs.
// SPDX-License-Identifier: MIT
#include "picture_samples.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <cmath>

#include "pictures/picture_file.h"
#include "platform/error.h"

namespace kelu::picture_test {

bool HasTool(const QString& program) { return !QStandardPaths::findExecutable(program).isEmpty(); }

bool RunTool(const QString& program, const QStringList& arguments, QByteArray* output) {
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished(60000);
    if (output) *output = process.readAllStandardOutput();
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

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

bool SamePixels(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return false;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) return false;
    return true;
}

double Psnr(const QImage& a, const QImage& b) { return 20 * std::log10(255 / Compare(a, b).mean); }

QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

int ReadingError(const QString& path) {
    try {
        return ReadPicture(path).isNull() ? -1 : 0;
    } catch (const Error& error) {
        return error.Description().isEmpty() ? -2 : error.Number();
    }
}

}  // namespace kelu::picture_test
