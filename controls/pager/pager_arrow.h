// The arrow button at an end of a pager; repeats while it is held.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace kelu {

class PagerArrow : public QAbstractButton {
    Q_OBJECT

 public:
    PagerArrow(Qt::ArrowType direction, QWidget* parent);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    Qt::ArrowType direction_;
};

}  // namespace kelu
