// SPDX-License-Identifier: MIT
#include "app/busy_window.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScopeGuard>

#include "controls/progress_bar/work_bar.h"
#include "document/cancellable_work.h"

namespace kelu {

void BusyWindow::Run(const std::function<void()>& run) {
    if (busy_) return RunBeside(run);  // a part of what shows already
    CancellableWork work;
    busy_ = true;
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    const auto end = qScopeGuard([this] {
        QGuiApplication::restoreOverrideCursor();
        busy_ = false;
    });
    const WorkBar shown(bar_, work);
    RunBeside(run, UserInput::Swallowed, &work);
}

}  // namespace kelu
