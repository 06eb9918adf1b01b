// SPDX-License-Identifier: MIT
#include "app/drop_target.h"

#include <QDropEvent>
#include <QPainter>
#include <QWidget>

#include "controls/theme/theme.h"

namespace kelu {
namespace {

constexpr int kFrameWidth = 3;  // pixels

class DropFrame : public QWidget {
 public:
    explicit DropFrame(QWidget* window) : QWidget(window) {
        // The drag goes on below it.
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QColor veil = theme::kAccent;
        veil.setAlpha(24);
        painter.fillRect(rect(), veil);
        painter.setPen(QPen(theme::kAccent, kFrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        const double half = kFrameWidth / 2.0;
        painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
    }
};

/// Whatever is offered, the file stays the user's: a source that hears "moved" may delete it.
void AcceptCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

}  // namespace

DropTarget::DropTarget(QWidget& window, std::function<bool()> mayTake)
    : QObject(&window), mayTake_(std::move(mayTake)), frame_(new DropFrame(&window)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool DropTarget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter: {
            auto& drag = *static_cast<QDropEvent*>(event);
            if (!mayTake_() || !OffersPicture(*drag.mimeData())) return false;
            AcceptCopy(drag);
            frame_->setGeometry(static_cast<QWidget*>(watched)->rect());
            frame_->raise();
            frame_->show();
            return true;
        }
        case QEvent::DragMove:
            if (!frame_->isHidden()) AcceptCopy(*static_cast<QDropEvent*>(event));
            return true;
        case QEvent::DragLeave:
            frame_->hide();
            return true;
        case QEvent::Drop: {
            auto& drop = *static_cast<QDropEvent*>(event);
            frame_->hide();
            if (!mayTake_() || !OffersPicture(*drop.mimeData())) return false;
            AcceptCopy(drop);
            Q_EMIT Dropped(TakeOffered(*drop.mimeData()));
            return true;
        }
        default:
            return QObject::eventFilter(watched, event);
    }
}

}  // namespace kelu
