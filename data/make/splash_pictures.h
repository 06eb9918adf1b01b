// The eight splash pictures: a photograph with an effect brushed onto a part of it, and the program's name.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace kelu {

inline constexpr int kSplashPictures = 8;

/// Picture `number`, 1 to 8, of the photographs in `gallery`. Throws Error when one cannot be read or rendered.
QImage MakeSplashPicture(int number, const QString& gallery);

}  // namespace kelu
