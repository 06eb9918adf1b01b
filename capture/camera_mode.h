// Which of the picture formats that a camera offers suits capture: the largest snapshot is 640 x 480, shown 20 times a
// second, so a larger or slower mode would only cost time.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "capture/gst_camera.h"

namespace kelu {

struct CameraMode {
    GstShared<GstCaps> caps;  ///< one structure, size and rate fixed where the camera tells any
    bool jpeg = false;        ///< each frame is a JPEG picture, else raw
};

/// Nothing when the camera offers neither raw frames in plain memory nor JPEG. `offered` null, any or empty: raw,
/// caps unset.
std::optional<CameraMode> ChooseMode(const GstCaps* offered);

}  // namespace kelu
