// SPDX-License-Identifier: MIT
#include "app/window_layout.h"

#include <algorithm>

namespace kelu {

WindowSize LeastSize(WindowSize room) {
    return {std::min(kMinimumSize.width, room.width), std::min(kMinimumSize.height, room.height)};
}

WindowSize AllowedSize(WindowSize asked, WindowSize room) {
    const WindowSize least = LeastSize(room);
    return asked.width >= least.width && asked.height >= least.height ? asked : least;
}

WindowLayout LayOut(WindowSize window) {
    const int w = window.width;
    const int h = window.height;
    WindowLayout at;
    at.picLogo = {240, 240};
    at.picSystem = {w - 1020, 120, 900, 300};
    at.picTB = {90, 90, 4335, 450};
    at.picCover = {10, 10, 12000, 9000};
    at.cmdHelp = {at.picSystem.left - 600, 120};
    at.picPipe1 = {at.cmdHelp.left - 80, 180};
    at.cmdSettings = {at.picPipe1.left - 750, 120};
    at.picCanvas = {480, 960, w - 2600, h - 1920};
    at.picOriginal = at.picCanvas;
    at.pagerTB1 = {w - 2000, at.picCanvas.top, 0, at.picCanvas.height - 2800};
    at.cmdAllEffects = {at.pagerTB1.left, at.pagerTB1.top - 345, 1785, 330};
    at.pnlSettings = {w - 2050, h - 3700, 1935, 3135};
    at.picZoomContainer = {w - 3300, h - 900, 1250, 370};
    at.picCapContainer = {w - 3400, h - 900};
    at.picCapPreview = {at.pagerTB1.left - 2890, 960};
    at.lstSFX = {at.pnlSettings.left, at.pagerTB1.top};
    at.picTitleBar = {0, 0, w, 720};
    at.sBar1 = {0, h - kStatusBarHeight, w, kStatusBarHeight};
    at.pBar1 = {3360, 120, 5865, 280};
    return at;
}

}  // namespace kelu
