// SPDX-License-Identifier: MIT
#include "output/pdf/page_layout.h"

namespace kelu {

namespace {

double UnitsPerInch(PageSetup::Unit unit) {
    switch (unit) {
        case PageSetup::Unit::Millimetres:
            return 25.4;
        case PageSetup::Unit::Centimetres:
            return 2.54;
        case PageSetup::Unit::Inches:
            break;
    }
    return 1;
}

}  // namespace

PlacedPicture PlacePicture(const PageSetup& setup, const PrinterPage& page, const PictureSize& picture) {
    const double perInch = UnitsPerInch(setup.unit);
    const double left = setup.margins[0] / perInch * page.dpiX;
    const double right = setup.margins[1] / perInch * page.dpiX;
    const double top = setup.margins[2] / perInch * page.dpiY;
    const double bottom = setup.margins[3] / perInch * page.dpiY;

    PlacedPicture at{left, top, page.width - left - right, page.height - top - bottom};
    if (setup.placement == PageSetup::Placement::HalfPage) at.height /= 2;

    const double iw = picture.width;
    const double ih = picture.height;
    const double fitHeight = at.width * (ih / iw);
    if (fitHeight > at.height) {
        const double fitWidth = at.height * (iw / ih);
        at.x += (at.width - fitWidth) / 2;
        at.width = fitWidth;
    } else {
        at.y += (at.height - fitHeight) / 2;
        at.height = fitHeight;
    }

    if (setup.placement == PageSetup::Placement::Scale) {
        const double width = setup.scalePercent / 100 * (iw / picture.dpiX * page.dpiX);
        const double height = setup.scalePercent / 100 * (ih / picture.dpiY * page.dpiY);
        at.x += at.width / 2 - width / 2;
        at.y += at.height / 2 - height / 2;
        at.width = width;
        at.height = height;
    }
    at.x = static_cast<float>(at.x);
    at.y = static_cast<float>(at.y);
    return at;
}

}  // namespace kelu
