// What the program's output tells about the program.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

inline constexpr const char* kProductPage = "https://kelu.example";

}  // namespace kelu
