// The point of an effect: what the two boxes say, or one picked on the picture, which may lie beyond what they show.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

namespace kelu {

class CoordinateBox;

class PointInput : public QObject {
    Q_OBJECT

 public:
    PointInput(CoordinateBox& x, CoordinateBox& y);

    /// Image pixels.
    QPoint Point() const;
    /// Counts until a box is edited; the boxes show it as far as they can.
    void SetPicked(const QPoint& imagePixel);
    /// From here on the boxes count.
    void Forget();

 Q_SIGNALS:
    void Changed();

 private:
    CoordinateBox& x_;
    CoordinateBox& y_;
    std::optional<QPoint> picked_;
    bool shows_ = false;  ///< the boxes get the picked point
};

}  // namespace kelu
