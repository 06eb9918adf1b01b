// The popup's parts and how they stay in step; see color_popup.h.
// SPDX-License-Identifier: MIT
#include "controls/color_picker/color_popup.h"

namespace kelu {

ColorPopup::ColorPopup(const QColor&, QWidget* parent) : QFrame(parent, Qt::Popup) {}

}  // namespace kelu
