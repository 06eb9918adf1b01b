// What a render does to the window: shut it against input, show how far it is, keep it alive.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelu {

class RenderWindow {
 public:
    virtual ~RenderWindow() = default;

    /// False: the window takes no input until true.
    virtual void SetFormEnabled(bool enabled) = 0;
    virtual void SetProgressVisible(bool visible) = 0;
    virtual void SetProgress(int percent) = 0;
    virtual void RunEventLoopOnce() = 0;
    /// Runs a render to its end, beside the interface thread where there is one; its events run meanwhile and input is
    /// swallowed. Throws WorkCancelled when the user left it with Escape.
    virtual void RunRender(const std::function<void()>& render) { render(); }
};

}  // namespace kelu
