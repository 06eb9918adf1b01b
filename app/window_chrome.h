// The window's own frame: its outline, moving it by the title bar, minimise, maximise and restore.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QTimer>
#include <optional>

#include "document/shared_state.h"

class QMouseEvent;
class QWidget;

namespace kelu {

class WindowChrome : public QObject {
    Q_OBJECT

 public:
    WindowChrome(QWidget& window, SharedState& state);

    /// Lets the left button drag the window by `handle`; with `maximises`, a double click works as the button does.
    void AddHandle(QWidget& handle, bool maximises);

    void Minimise();
    /// Maximises the window, or restores it.
    void ToggleMaximised();

 Q_SIGNALS:
    /// The window was maximised or restored, by this program or by the window system.
    void MaximisedChanged(bool maximised);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool OnHandle(const QMouseEvent& mouse, bool maximises);
    void StartDrag();
    void PlaceOutline();
    void SetMaximised(bool maximised);
    void MaximiseByHand();

    QWidget& window_;
    SharedState& state_;
    QWidget* outline_;
    QTimer noAnswer_;                  // runs out where no window manager maximises the window
    QRect restoredGeometry_;           // for that case; a window manager keeps its own
    bool maximisedByHand_ = false;     // that case
    std::optional<QPoint> pressedAt_;  // pointer position inside the window, from the press on
    bool movedByHand_ = false;         // the window system leaves the moving to us
};

}  // namespace kelu
