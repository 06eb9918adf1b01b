// Settings of the camera.
// SPDX-License-Identifier: MIT
#pragma once

#include "document/settings.h"

namespace kelu {

/// Snapshots: 160 x 120, 320 x 240, 640 x 480.
enum class CaptureSize { Small, Middle, Large };

namespace settings {
inline constexpr ChoiceSetting<CaptureSize> kCaptureSize{
    {"Capture", "Size"}, CaptureSize::Large, CaptureSize::Small, CaptureSize::Large};
/// Index of the camera, in spite of its name.
inline constexpr NumberSetting kDevice{{"Device", "Name"}, 0};
/// Tell at the start that there is no camera.
inline constexpr FlagSetting kCameraReminder{{"Capture", "Reminder"}, true};
}  // namespace settings

}  // namespace kelu
