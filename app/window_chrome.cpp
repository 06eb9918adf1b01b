// SPDX-License-Identifier: MIT
#include "app/window_chrome.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <QWindowStateChangeEvent>

#include "controls/theme/theme.h"

namespace kelu {

namespace {
constexpr const char* kMaximises = "keluMaximises";
}

WindowChrome::WindowChrome(QWidget& window, SharedState& state)
    : window_(window), state_(state), outline_(new QWidget(&window)) {
    window_.installEventFilter(this);
    // Without a frame the window would run into a dark window behind it.
    outline_->setAttribute(Qt::WA_TransparentForMouseEvents);
    outline_->setAutoFillBackground(true);
    QPalette line = outline_->palette();
    line.setColor(QPalette::Window, theme::kOutlinePopup);
    outline_->setPalette(line);
    PlaceOutline();
}

void WindowChrome::PlaceOutline() {
    const QRect whole = window_.rect();
    outline_->setGeometry(whole);
    outline_->setMask(QRegion(whole) - QRegion(whole.adjusted(1, 1, -1, -1)));
    outline_->setVisible(!state_.WindowMaximised);
    outline_->raise();
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
        if (event->type() == QEvent::Resize) PlaceOutline();
        return false;
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return OnHandle(*static_cast<QMouseEvent*>(event), watched->property(kMaximises).toBool());
        default:
            return false;
    }
}

bool WindowChrome::OnHandle(const QMouseEvent& mouse, bool maximises) {
    const bool left = mouse.button() == Qt::LeftButton;
    const QPoint inWindow = mouse.globalPosition().toPoint() - window_.frameGeometry().topLeft();
    switch (mouse.type()) {
        case QEvent::MouseButtonPress:
            if (left) pressedAt_ = inWindow, byHand_ = false;
            return left;
        case QEvent::MouseMove:
            if (!pressedAt_) return false;
            if (!byHand_ && (inWindow - *pressedAt_).manhattanLength() >= QApplication::startDragDistance())
                StartDrag();
            if (byHand_ && !state_.WindowMaximised) window_.move(window_.pos() + inWindow - *pressedAt_);
            return true;
        case QEvent::MouseButtonDblClick:
            pressedAt_.reset();
            if (left && maximises) ToggleMaximised();
            return left && maximises;
        default:
            pressedAt_.reset();
            return false;
    }
}

void WindowChrome::StartDrag() {
    // The window system moves the window where it can; without a window manager it says no and we follow the pointer.
    // Not at the press already: it takes the pointer for itself, and a double click would never arrive.
    QWindow* handle = window_.windowHandle();
    byHand_ = handle == nullptr || !handle->startSystemMove();
    if (!byHand_) pressedAt_.reset();
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
    PlaceOutline();
    Q_EMIT MaximisedChanged(maximised);
}

}  // namespace kelu
