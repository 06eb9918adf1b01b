// Numbers of the failures of sending.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

inline constexpr int kMailCancelled = 32001;  ///< the user gave up in the mail client
inline constexpr int kMailFailed = 32002;
inline constexpr int kMailNoLogon = 32003;  ///< the mail client let nobody in

}  // namespace kelu
