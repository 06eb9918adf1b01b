// SPDX-License-Identifier: MIT
#include "view/pen_pressure.h"

#include <QTabletEvent>
#include <algorithm>
#include <cmath>

namespace kelu {

namespace {
constexpr double kFlat = 45;  // degrees from upright; drivers tell at most 60
}  // namespace

PenPressure::PenPressure(QObject& view) : QObject(&view) { view.installEventFilter(this); }

bool PenPressure::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::TabletRelease) Q_EMIT Changed(1);
    if (event->type() == QEvent::TabletPress || event->type() == QEvent::TabletMove) {
        const auto& pen = *static_cast<QTabletEvent*>(event);
        const bool flat = std::max(std::abs(pen.xTilt()), std::abs(pen.yTilt())) >= kFlat;
        Q_EMIT Changed(flat || pen.buttons() == Qt::NoButton ? 1 : pen.pressure());
    }
    return false;
}

}  // namespace kelu
