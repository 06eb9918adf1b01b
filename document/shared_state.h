// The process-wide flags and values. One instance is made in main and passed by reference.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>

namespace kelu {

/// Value of CurrentSFX that stands for the help page of the settings.
inline constexpr std::int16_t kSettingsTopic = 99;

struct SharedState {
    // Document
    bool ImageActive = false;       ///< an image is open and no render is running; false again after a finished save
    bool EffectReady = false;       ///< the pen holds a rendered effect and the brush is armed
    bool ImageDirty = false;        ///< the canvas has changes that were not saved
    QString CurrentFileName;        ///< name of the open image without its folder
    bool ShowingOriginal = false;   ///< the compare view is on
    std::int16_t ResizeOnOpen = 0;  ///< 1: large images are shrunk on open

    // Window
    bool WindowMaximised = false;
    std::int16_t SplashNumber = 0;   ///< splash picture, 1 to 8
    bool InternetConnected = false;  ///< last answer of Check4InternetConnection

    // Effect chosen and the inputs that lists, options and the compass keep; all count from 1
    std::int16_t CurrentSFX = 0;          ///< number of the effect, 0 none, or kSettingsTopic
    std::int16_t CompassDirection = 3;    ///< 1 to 8, by rows from north-west
    std::int16_t GraySelect = 0;          ///< 1, 2
    std::int16_t MaximumSelect = 0;       ///< 1, 2
    std::int16_t MinimumSelect = 0;       ///< 1, 2
    std::int16_t HighPassSelect = 0;      ///< 1 to 3
    std::int16_t SPFilterSelect = 0;      ///< 1 to 17
    std::int16_t SwapChannelsSelect = 0;  ///< 1 to 3

    // Capture
    bool CameraMissing = false;  ///< no capture device can be used
    bool CaptureBusy = false;    ///< the capture panel is running; document commands are refused
    bool CaptureReady = false;   ///< a captured frame waits for the user's decision
};

}  // namespace kelu
