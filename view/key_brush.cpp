// SPDX-License-Identifier: MIT
#include "view/key_brush.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "view/image_x.h"

namespace kelu {
namespace {

constexpr int kStep = 1;  // device-independent pixels
constexpr int kLongStep = 10;

QPoint WayOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return {-1, 0};
        case Qt::Key_Right:
            return {1, 0};
        case Qt::Key_Up:
            return {0, -1};
        case Qt::Key_Down:
            return {0, 1};
        default:
            return {};
    }
}

bool Paints(int key) { return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter; }

}  // namespace

KeyBrush::KeyBrush(ImageX& view) : QObject(&view), view_(view) { view.installEventFilter(this); }

bool KeyBrush::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return KeyDown(*static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease:
            return KeyUp(*static_cast<QKeyEvent*>(event));
        case QEvent::MouseMove:
            if (!sends_) pointer_ = static_cast<QMouseEvent*>(event)->position();
            return false;
        case QEvent::Leave:
            pointer_.reset();
            return false;
        case QEvent::FocusIn:
            // Who comes by Tab sees where the brush is.
            if (const auto reason = static_cast<QFocusEvent*>(event)->reason();
                !view_.underMouse() && (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)) {
                pointer_ = QRectF(view_.rect()).center();
                Send(QEvent::MouseMove, Qt::NoModifier);
            }
            return false;
        case QEvent::FocusOut:
        case QEvent::Hide:
            LetGo();
            return false;
        default:
            return false;
    }
}

bool KeyBrush::KeyDown(const QKeyEvent& key) {
    if (view_.ViewMode() != ViewKind::Fitted || (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier))) return false;
    if (!pointer_) pointer_ = QRectF(view_.rect()).center();
    if (Paints(key.key())) {
        if (paints_ == 0 && !key.isAutoRepeat()) {
            paints_ = key.key();
            Send(QEvent::MouseButtonPress, key.modifiers());
        }
        return true;
    }
    if (WayOf(key.key()).isNull()) return false;
    arrows_.insert(key.key());
    // Two arrows go on aslant.
    QPoint way;
    for (const int arrow : arrows_) way += WayOf(arrow);
    const int step = key.modifiers() & Qt::ShiftModifier ? kLongStep : kStep;
    pointer_ = QPointF(std::clamp(pointer_->x() + way.x() * step, 0.0, view_.width() - 1.0),
                       std::clamp(pointer_->y() + way.y() * step, 0.0, view_.height() - 1.0));
    Send(QEvent::MouseMove, key.modifiers());
    return true;
}

bool KeyBrush::KeyUp(const QKeyEvent& key) {
    if (key.isAutoRepeat()) return false;
    arrows_.remove(key.key());
    if (paints_ != 0 && key.key() == paints_) LetGo();
    return false;
}

void KeyBrush::LetGo() {
    arrows_.clear();
    if (std::exchange(paints_, 0) != 0) Send(QEvent::MouseButtonRelease, Qt::NoModifier);
}

void KeyBrush::Send(QEvent::Type type, Qt::KeyboardModifiers modifiers) {
    const QScopedValueRollback<bool> own(sends_, true);
    const bool move = type == QEvent::MouseMove;
    QMouseEvent event(type, *pointer_, view_.mapToGlobal(*pointer_), move ? Qt::NoButton : Qt::LeftButton,
                      paints_ != 0 ? Qt::LeftButton : Qt::NoButton, modifiers);
    QCoreApplication::sendEvent(&view_, &event);
}

}  // namespace kelu
