// The layout of the main window as a pure function: from the window's size to the place of every control, all in twips.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

/// A place in twips; a width or height of 0 leaves the control's own.
struct TwipsRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const TwipsRect&) const = default;
};

struct WindowSize {
    int width = 0;
    int height = 0;
    bool operator==(const WindowSize&) const = default;
};

inline constexpr WindowSize kDesignSize{13305, 9510};
inline constexpr WindowSize kMinimumSize{13300, 9510};
inline constexpr int kStatusBarHeight = 495;

/// The least size of the window: the minimum, or the room of a screen that has less.
WindowSize LeastSize(WindowSize room);
/// The size that a window of the given size takes: itself, or exactly the least when either side is below it.
WindowSize AllowedSize(WindowSize asked, WindowSize room);

struct WindowLayout {
    TwipsRect picLogo, picSystem, picTB, picCover, cmdHelp, picPipe1, cmdSettings;
    TwipsRect picCanvas, picOriginal, pagerTB1, cmdAllEffects, pnlSettings, picZoomContainer, picCapContainer,
        picCapPreview, lstSFX;
    TwipsRect picTitleBar, sBar1, pBar1;
};

/// Places for a window of the given, allowed size.
WindowLayout LayOut(WindowSize window);

/// Buttons inside the containers, fixed.
struct FixedPlace {
    const char* name;
    TwipsRect place;
};
inline constexpr FixedPlace kToolStripButtons[] = {
    {"cmdOpen", {120, 60, 285, 285}},   {"cmdSave", {500, 80, 285, 285}},    {"cmdEmail", {840, 80, 405, 285}},
    {"cmdPrint", {1270, 40, 405, 320}}, {"cmdCopy", {1680, 40, 405, 315}},   {"cmdUndo", {2235, 60, 405, 285}},
    {"cmdRedo", {2640, 60, 405, 285}},  {"cmdWebCam", {3240, 45, 405, 345}}, {"cmdOriginal", {3720, 80, 405, 285}},
};
inline constexpr FixedPlace kSystemButtons[] = {
    {"cmdMin", {0, 0, 285, 285}}, {"cmdRestore", {300, 0, 285, 285}}, {"cmdX", {600, 0, 285, 285}}};
inline constexpr FixedPlace kZoomButtons[] = {
    {"cmdZoomin", {0, 0, 405, 360}}, {"cmdZoomOut", {410, 0, 405, 360}}, {"cmdZoomReset", {810, 0, 405, 360}}};

}  // namespace kelu
