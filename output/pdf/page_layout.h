// Where a picture lies on a printed page: pure arithmetic in device pixels of the printer.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace kelu {

/// How the picture is placed. The dialog leaves these at their start values: fitted, 1 cm on each side.
struct PageSetup {
    enum class Placement { Fit, HalfPage, Scale };
    enum class Unit { Inches, Millimetres, Centimetres };

    Placement placement = Placement::Fit;
    double scalePercent = 100;                  ///< of the true size, for Placement::Scale
    std::array<double, 4> margins{1, 1, 1, 1};  ///< left, right, top, bottom
    Unit unit = Unit::Centimetres;
};

/// The whole sheet in device pixels, and its resolution along each axis.
struct PrinterPage {
    double width = 0;
    double height = 0;
    double dpiX = 0;
    double dpiY = 0;
};

struct PictureSize {
    int width = 0;  ///< image pixels
    int height = 0;
    double dpiX = 0;
    double dpiY = 0;
};

/// Device pixels from the sheet's upper left corner. x and y have single precision.
struct PlacedPicture {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// The resolution that a picture tells, per metre; that of a screen where it tells none.
inline double DotsPerInch(int dotsPerMetre) { return dotsPerMetre > 0 ? dotsPerMetre * 0.0254 : 96; }

/// The picture as large as the printable area allows, centred in it; on half a page in its upper half; scaled at its
/// true size times the percentage, centred where the fitted picture would lie, whatever it exceeds.
PlacedPicture PlacePicture(const PageSetup& setup, const PrinterPage& page, const PictureSize& picture);

}  // namespace kelu
