// Embedded colour profiles.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace kelu {

/// Converts the colours of an RGB32 or ARGB32 picture, only owner of its memory, from `profile` to sRGB, in place.
/// A profile for grey converts pictures that are grey. One that is damaged, for something else, or as good as sRGB
/// leaves the picture as it is.
void ConvertToSrgb(QImage& picture, const QByteArray& profile);

/// The pixels of `picture` hold cyan, magenta, yellow and black in this order in memory; `inverted`: 255 is no ink.
/// Makes them RGB32, by the profile when it is one for CMYK, else by plain multiplication.
void ConvertCmykToSrgb(QImage& picture, const QByteArray& profile, bool inverted);

/// The profile of sRGB, for files that have no mark of their own for it; the same bytes every time.
const QByteArray& SrgbProfile();

/// A profile with the primaries of sRGB and a pure power curve.
QByteArray GammaProfile(double gamma);

}  // namespace kelu
