// The About message: version, thanks, and whose program it is.
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/msg_dialog.h"

namespace kelu {

/// Leaves the dialog's About look switched off for the next message.
void ShowAboutMsg(MsgDialog& dialog);

}  // namespace kelu
