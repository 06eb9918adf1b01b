// Memory for pictures. A fresh picture-sized buffer costs several times the work that is done in it, nearly all of it
// page faults, so buffers are kept for the next picture of about that size and large ones are asked for in huge pages.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace kelu::engine {

/// A block of at least `bytes` bytes, aligned to 64, contents undefined. When the last owner lets go it returns to the
/// pool, also after the end of main. Throws std::bad_alloc. Safe from any thread.
std::shared_ptr<std::uint8_t> TakePixelMemory(std::size_t bytes);

/// From now on a large block is given only where the limits of the process leave that many bytes beside it. To lack a
/// picture is told in plain words; a library that lacks a few bytes, or a thread its stack, ends the program.
void LeaveRoom(std::size_t bytes);

/// Gives back to the system whatever the pool holds and nobody uses.
void ReleaseIdlePixelMemory();

}  // namespace kelu::engine
