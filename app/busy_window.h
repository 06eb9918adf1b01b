// Long work as the user sees it: a busy pointer, progress after a moment, Escape to leave it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

namespace kelu {

class XP_ProgressBar;
struct Work;

class BusyWindow : public QObject {
    Q_OBJECT

 public:
    explicit BusyWindow(XP_ProgressBar& bar);

    /// Runs `run` beside the interface thread, whose input it swallows, and returns when it has ended. Throws what
    /// `run` does, and WorkCancelled after Escape.
    void Run(const std::function<void()>& run);
    bool Busy() const { return work_ != nullptr; }

 private:
    void Show();
    void Hide();

    XP_ProgressBar& bar_;
    QTimer look_;  ///< looks how far the work is
    Work* work_ = nullptr;
    bool shows_ = false;
};

}  // namespace kelu
