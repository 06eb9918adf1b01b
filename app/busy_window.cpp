// SPDX-License-Identifier: MIT
#include "app/busy_window.h"

#include <QGuiApplication>
#include <QScopeGuard>
#include <utility>

#include "controls/progress_bar/xp_progress_bar.h"
#include "document/cancellable_work.h"

namespace kelu {

namespace {
constexpr int kPatience = 200;  // ms before anything shows
constexpr int kInterval = 50;   // ms from look to look
}  // namespace

BusyWindow::BusyWindow(XP_ProgressBar& bar) : bar_(bar) { connect(&look_, &QTimer::timeout, this, &BusyWindow::Show); }

void BusyWindow::Run(const std::function<void()>& run) {
    if (work_) return RunBeside(run);  // a part of what shows already
    CancellableWork work;
    work_ = &work;
    const auto end = qScopeGuard([this] { Hide(); });
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    look_.start(kPatience);
    RunBeside(run, UserInput::Swallowed, &work);
}

void BusyWindow::Show() {
    if (!shows_) {
        shows_ = true;
        bar_.show();
        look_.setInterval(kInterval);
    }
    bar_.SetValue(work_->percent);
}

void BusyWindow::Hide() {
    look_.stop();
    work_ = nullptr;
    QGuiApplication::restoreOverrideCursor();
    if (std::exchange(shows_, false)) bar_.hide();
}

}  // namespace kelu
