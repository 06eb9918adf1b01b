// The title row of a dialog without a system frame: title, close button, drags the window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <optional>

class QLabel;

namespace kelu {

class ToolButton;

/// Put it on top of a dialog's layout (no margins round it) and call MakeFrameless with the dialog. The title follows
/// the window's title; the close button calls close().
class TitleRow : public QWidget {
    Q_OBJECT

 public:
    static constexpr int kHeight = 34;

    explicit TitleRow(QWidget* parent = nullptr);

    /// Takes the system's frame off `window` and lets it paint the theme's outline. Before the window is shown.
    static void MakeFrameless(QWidget& window);

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QLabel* title_;
    ToolButton* close_;
    std::optional<QPoint> grip_;  ///< where the press lies in the window, while this row moves it itself

    void FollowWindow();
    void CentreOnOwner();
    void SettlePosition();
};

}  // namespace kelu
