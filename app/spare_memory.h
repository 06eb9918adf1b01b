// Room for the small things when memory runs out: what needs much is refused and told, but a thread that starts or a
// message that opens must not end the program.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

/// Sets some address space aside, which costs no memory, and gives it up, part by part, when `new` finds none. To be
/// called again when there may be memory anew: it sets aside what is missing.
void KeepSpareMemory();

}  // namespace kelu
