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
constexpr int kLongestAnswer = 2000;  // ms that a window manager may take on a busy machine
}  // namespace

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
    noAnswer_.setSingleShot(true);
    noAnswer_.setInterval(kLongestAnswer);
    connect(&noAnswer_, &QTimer::timeout, this, &WindowChrome::MaximiseByHand);
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
        if (event->type() == QEvent::WindowStateChange && !maximisedByHand_ && !window_.isMinimized() &&
            window_.isMaximized() != state_.WindowMaximised)
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
            if (left) pressedAt_ = inWindow, movedByHand_ = false;
            return left;
        case QEvent::MouseMove:
            // What fills the screen stays where it is.
            if (!pressedAt_ || state_.WindowMaximised) return false;
            if (!movedByHand_ && (inWindow - *pressedAt_).manhattanLength() >= QApplication::startDragDistance())
                StartDrag();
            if (movedByHand_) window_.move(window_.pos() + inWindow - *pressedAt_);
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
    movedByHand_ = handle == nullptr || !handle->startSystemMove();
    if (!movedByHand_) pressedAt_.reset();
}

void WindowChrome::Minimise() { window_.showMinimized(); }

void WindowChrome::ToggleMaximised() {
    // The window manager answers later, and the answer is the new state: nothing is asked of the geometry in the same
    // breath, nor set, since a geometry that is set takes the maximised state away again.
    if (!state_.WindowMaximised) {
        restoredGeometry_ = window_.geometry();
        window_.showMaximized();
        noAnswer_.start();
        window_.raise();
    } else if (maximisedByHand_) {
        window_.setGeometry(restoredGeometry_);
        maximisedByHand_ = false;
        SetMaximised(false);
    } else {
        window_.showNormal();
    }
}

void WindowChrome::MaximiseByHand() {
    if (!window_.isMaximized() || window_.geometry() != restoredGeometry_) return;
    maximisedByHand_ = true;
    window_.setWindowState(Qt::WindowNoState);
    window_.setGeometry(window_.screen()->availableGeometry());
}

void WindowChrome::SetMaximised(bool maximised) {
    state_.WindowMaximised = maximised;
    PlaceOutline();
    Q_EMIT MaximisedChanged(maximised);
}

}  // namespace kelu
