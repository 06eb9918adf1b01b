// What the canvas says while no picture is open.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace kelu {

/// The placeholder picture with its invitation, in the language and the letters of the window.
QImage WithInvitation(QImage placeholder);

}  // namespace kelu
