// SPDX-License-Identifier: MIT
#include "capture/camera_mode.h"

#include <cstring>
#include <tuple>

namespace kelu {

namespace {

constexpr int kWidth = 640;  // pixels of the largest snapshot
constexpr int kHeight = 480;
constexpr int kRate = 30;  // frames a second
constexpr int kSlowRate = 15;

/// The lower, the better. Large enough comes before fast enough, then the least to move, then raw.
std::tuple<bool, bool, long, bool> Cost(const GstStructure* mode, bool jpeg) {
    int width = kWidth;
    int height = kHeight;
    int numerator = 0;
    int denominator = 1;
    gst_structure_get_int(mode, "width", &width);
    gst_structure_get_int(mode, "height", &height);
    gst_structure_get_fraction(mode, "framerate", &numerator, &denominator);
    const bool tooSmall = width < kWidth || height < kHeight;
    // A rate of 0 stands for a variable one.
    const bool tooSlow = numerator != 0 && numerator < kSlowRate * denominator;
    const long area = static_cast<long>(width) * height;
    return {tooSmall, tooSlow, tooSmall ? -area : area, jpeg};
}

}  // namespace

std::optional<CameraMode> ChooseMode(const GstCaps* offered) {
    if (!offered || gst_caps_is_any(offered) || gst_caps_is_empty(offered)) return CameraMode{};
    std::optional<CameraMode> best;
    std::tuple<bool, bool, long, bool> bestCost;
    for (guint i = 0; i < gst_caps_get_size(offered); ++i) {
        const GstStructure* const structure = gst_caps_get_structure(offered, i);
        const bool jpeg = gst_structure_has_name(structure, "image/jpeg");
        const bool raw = gst_structure_has_name(structure, "video/x-raw");
        const GstCapsFeatures* const memory = gst_caps_get_features(offered, i);
        if ((!jpeg && !raw) || (raw && !gst_caps_features_is_equal(memory, GST_CAPS_FEATURES_MEMORY_SYSTEM_MEMORY)))
            continue;
        GstStructure* const mode = gst_structure_copy(structure);
        gst_structure_fixate_field_nearest_int(mode, "width", kWidth);
        gst_structure_fixate_field_nearest_int(mode, "height", kHeight);
        gst_structure_fixate_field_nearest_fraction(mode, "framerate", kRate, 1);
        const auto caps = OwnMini(gst_caps_new_full(mode, nullptr));
        if (const auto cost = Cost(mode, jpeg); !best || cost < bestCost) {
            best = CameraMode{caps, jpeg};
            bestCost = cost;
        }
    }
    return best;
}

}  // namespace kelu
