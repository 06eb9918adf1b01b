// Lies over a view: shows one point of its picture by a faint cross, and lets the user pick one by a click.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QTimer>
#include <QWidget>
#include <optional>

namespace kelu {

class ImageX;

class PointPicker : public QWidget {
    Q_OBJECT

 public:
    explicit PointPicker(ImageX& view);

    /// The cross stands at this image pixel; none: it goes.
    void ShowMark(const std::optional<QPoint>& imagePixel);
    /// Waits for a click, or goes back to letting the mouse through.
    void SetPicking(bool picking);

 Q_SIGNALS:
    /// A click on the view, brought into the picture.
    void Picked(const QPoint& imagePixel);
    /// The waiting is over: a point was picked, or the user left it by Escape or another button of the mouse.
    void Ended();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void Settle();

    ImageX& view_;
    std::optional<QPoint> mark_;
    QTimer justPicked_;  ///< runs while the cross tells where the click went
    bool picking_ = false;
};

}  // namespace kelu
