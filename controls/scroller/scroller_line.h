// A line as a control on a Scroller's page: it has two ends instead of a top and a height.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLine>
#include <QWidget>

namespace kelu {

class ScrollerLine : public QWidget {
    Q_OBJECT

 public:
    explicit ScrollerLine(QWidget* parent = nullptr);

    /// The ends in twips, in the parent's coordinates and in any order.
    void SetEnds(const QPoint& end1, const QPoint& end2);
    int Y1() const { return line_.y1(); }
    int Y2() const { return line_.y2(); }
    /// Moves both ends, in twips.
    void MoveBy(int twips) { SetEnds(line_.p1() + QPoint(0, twips), line_.p2() + QPoint(0, twips)); }

    void SetColor(const QColor& color);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QLine line_;
    QColor color_{Qt::black};
};

}  // namespace kelu
