// SPDX-License-Identifier: MIT
#include "app/window_chrome.h"

#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <QWindowStateChangeEvent>

namespace kelu {

namespace {
constexpr const char* kMaximises = "keluMaximises";
}

WindowChrome::WindowChrome(QWidget& window, SharedState& state) : window_(window), state_(state) {
    window_.installEventFilter(this);
}

void WindowChrome::AddHandle(QWidget& handle, bool maximises) {
    handle.setProperty(kMaximises, maximises);
    handle.installEventFilter(this);
}

bool WindowChrome::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_) {
        if (event->type() == QEvent::WindowStateChange && window_.isMaximized() != state_.WindowMaximised &&
            !window_.isMinimized())
            SetMaximised(window_.isMaximized());
        return false;
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return OnHandle(*static_cast<QMouseEvent*>(event), watched->property(kMaximises).toBool());
        default: return false;
    }
}

bool WindowChrome::OnHandle(const QMouseEvent& mouse, bool maximises) {
    const bool left = mouse.button() == Qt::LeftButton;
    switch (mouse.type()) {
        case QEvent::MouseButtonPress:
            if (left) StartDrag(mouse.globalPosition().toPoint());
            return left;
        case QEvent::MouseMove:
            if (dragFrom_) window_.move(mouse.globalPosition().toPoint() - *dragFrom_);
            return dragFrom_.has_value();
        case QEvent::MouseButtonDblClick:
            dragFrom_.reset();
            if (left && maximises) ToggleMaximised();
            return left && maximises;
        default:
            dragFrom_.reset();
            return false;
    }
}

void WindowChrome::StartDrag(const QPoint& globalPosition) {
    // The window system moves the window where it can; without a window manager it says no and we follow the pointer.
    QWindow* handle = window_.windowHandle();
    if (handle && handle->startSystemMove()) return;
    if (!state_.WindowMaximised) dragFrom_ = globalPosition - window_.frameGeometry().topLeft();
}

void WindowChrome::Minimise() { window_.showMinimized(); }

void WindowChrome::ToggleMaximised() {
    if (state_.WindowMaximised) {
        window_.showNormal();
        if (restoredGeometry_.isValid()) window_.setGeometry(restoredGeometry_);
        SetMaximised(false);
        return;
    }
    restoredGeometry_ = window_.geometry();
    window_.showMaximized();
    const QRect available = window_.screen()->availableGeometry();
    if (window_.geometry() == restoredGeometry_) window_.setGeometry(available);
    SetMaximised(true);
    window_.raise();
}

void WindowChrome::SetMaximised(bool maximised) {
    state_.WindowMaximised = maximised;
    Q_EMIT MaximisedChanged(maximised);
}

}  // namespace kelu
