// Work in a progress bar, once it takes longer than a moment.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

namespace kelu {

class XP_ProgressBar;
struct Work;

/// Follows the work as long as it lives, and hides the bar at its end.
class WorkBar {
 public:
    WorkBar(XP_ProgressBar& bar, const Work& work);
    ~WorkBar();
    WorkBar(const WorkBar&) = delete;
    WorkBar& operator=(const WorkBar&) = delete;

 private:
    void Look();

    XP_ProgressBar& bar_;
    const Work& work_;
    QTimer look_;
    bool shows_ = false;
};

}  // namespace kelu
