// Sample files made by other programs, so that reading and writing are never checked against themselves.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

#include "tests/support/kit.h"
#include "tests/support/tools.h"

namespace kelu::picture_test {

/// A colourful picture without noise, so that lossy formats stay near it.
QImage SoftPicture(int width, int height);

/// Largest and root mean square difference of red, green and blue; a large number when the sizes differ.
struct Difference {
    int largest;
    double mean;
};
Difference Compare(const QImage& a, const QImage& b);
/// Peak signal to noise, dB.
double Psnr(const QImage& a, const QImage& b);

/// The number of the error that reading the file gives; 0 when it gives a picture.
int ReadingError(const QString& path);

}  // namespace kelu::picture_test
