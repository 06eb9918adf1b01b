// Tells one failure from all others: it comes in two types.
// SPDX-License-Identifier: MIT
#pragma once

#include <new>

#include "platform/error.h"

namespace kelu {

/// Whether a picture, or a part of one, found no room.
inline bool IsLackOfMemory(const std::exception& failure) {
    const auto* error = dynamic_cast<const Error*>(&failure);
    return error ? error->Number() == kOutOfMemory : dynamic_cast<const std::bad_alloc*>(&failure) != nullptr;
}

}  // namespace kelu
