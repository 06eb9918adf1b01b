// The About message: version, thanks, and whose program it is.
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/msg_dialog.h"

namespace kelu {

void ShowAboutMsg(MsgDialog& dialog);

}  // namespace kelu
