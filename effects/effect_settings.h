// Settings of the effect chooser.
// SPDX-License-Identifier: MIT
#pragma once

#include "document/settings.h"

namespace kelu::settings {

/// Off: the list of effects; on: the picture toolbar.
inline constexpr FlagSetting kSelector{{"SFX", "Selector"}, true};

}  // namespace kelu::settings
