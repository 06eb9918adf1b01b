// SPDX-License-Identifier: MIT
#include "effects/point_input.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "effects/catalogue/catalogue.h"
#include "effects/coordinate_box.h"

namespace kelu {

PointInput::PointInput(CoordinateBox& x, CoordinateBox& y) : QObject(&x), x_(x), y_(y) {
    for (CoordinateBox* box : {&x, &y})
        connect(box, &CoordinateBox::textChanged, this, [this] {
            if (shows_) return;
            picked_.reset();
            Q_EMIT Changed();
        });
}

QPoint PointInput::Point() const { return picked_.value_or(QPoint(x_.Value(), y_.Value())); }

void PointInput::SetPicked(const QPoint& imagePixel) {
    const QScopedValueRollback<bool> shows(shows_, true);
    picked_ = imagePixel;
    x_.setText(QString::number(std::min(imagePixel.x(), kCoordinateMax)));
    y_.setText(QString::number(std::min(imagePixel.y(), kCoordinateMax)));
    Q_EMIT Changed();
}

void PointInput::Forget() {
    if (!picked_) return;
    picked_.reset();
    Q_EMIT Changed();
}

}  // namespace kelu
