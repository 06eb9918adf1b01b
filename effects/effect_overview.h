// All effects at a glance: every button picture of the chooser side by side, over the window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

namespace kelu {

class Pager;
class Toolbox;

/// A popup: a click outside, Escape or a choice closes it. Where the screen is too small for the grid, it scrolls.
class EffectOverview : public QWidget {
    Q_OBJECT

 public:
    /// Belongs to `parent` and shows over its window.
    explicit EffectOverview(QWidget* parent);

    void ShowPicture(int number, const QImage& picture);
    /// Tips of the buttons.
    void LoadTips();
    /// Shows what is in the way of a choice; empty: nothing.
    void SetObstacle(const QString& obstacle);
    /// Opens over the middle of the window, with effect `number` marked; 0: none.
    void Open(int number);
    void SetCurrent(int number);

 Q_SIGNALS:
    /// The user pressed the button of an effect. The popup stays until it is closed.
    void Pressed(int number);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    Pager* pager_;
    Toolbox* grid_;
};

}  // namespace kelu
