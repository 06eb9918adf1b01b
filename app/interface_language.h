// The texts of the main window, assigned in one pass. In Spanish and French they stay English.
// SPDX-License-Identifier: MIT
#pragma once

#include "app/main_controls.h"
#include "document/shared_state.h"

namespace kelu {

/// " v1.0.0  by Tarvane Design"
QString VersionText();

/// Sets every tip and the version text; may run any number of times. The tip of the maximise button follows
/// WindowMaximised.
void LoadLanguage(MainControls& controls, const SharedState& state);

}  // namespace kelu
