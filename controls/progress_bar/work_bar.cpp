// SPDX-License-Identifier: MIT
#include "controls/progress_bar/work_bar.h"

#include "controls/progress_bar/xp_progress_bar.h"
#include "platform/run_beside.h"

namespace kelu {

namespace {
constexpr int kPatience = 200;  // ms before anything shows
constexpr int kInterval = 50;   // ms from look to look
}  // namespace

WorkBar::WorkBar(XP_ProgressBar& bar, const Work& work) : bar_(bar), work_(work) {
    QObject::connect(&look_, &QTimer::timeout, &bar, [this] { Look(); });
    look_.start(kPatience);
}

WorkBar::~WorkBar() {
    if (shows_) bar_.hide();
}

void WorkBar::Look() {
    if (!shows_) {
        shows_ = true;
        bar_.show();
        look_.setInterval(kInterval);
    }
    bar_.SetValue(work_.percent);
}

}  // namespace kelu
