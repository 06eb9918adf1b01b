// Long work beside the interface thread, for callers that go on only when it is done.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelu {

/// What becomes of keys, mouse, drops and closing meanwhile.
enum class UserInput {
    Swallowed,  ///< nothing the user does now counts, now or later
    Let         ///< the caller has seen to it that nothing can be started twice
};

/// Runs `work` on a thread of its own and returns when it has ended. Events of the caller's thread run meanwhile. What
/// `work` throws is thrown here.
void RunBeside(const std::function<void()>& work, UserInput input = UserInput::Swallowed);

}  // namespace kelu
