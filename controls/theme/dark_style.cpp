// The drawing of the standard widgets; see dark_style.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/dark_style.h"

namespace kelu::theme {

DarkStyle::DarkStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

}  // namespace kelu::theme
