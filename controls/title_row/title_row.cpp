// Title, close button and dragging; see title_row.h.
// SPDX-License-Identifier: MIT
#include "controls/title_row/title_row.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include "controls/theme/paint.h"
#include "controls/theme/theme.h"
#include "controls/tool_button/tool_button.h"

namespace kelu {

namespace {

/// Paints the outline of a window that has no frame of its own.
class Outline : public QObject {
 public:
    using QObject::QObject;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            auto* window = static_cast<QWidget*>(watched);
            QPainter painter(window);
            painter.fillRect(window->rect(), theme::kLine);
            painter.fillRect(window->rect().adjusted(1, 1, -1, -1), theme::kGround);
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

TitleRow::TitleRow(QWidget* parent)
    : QWidget(parent), title_(new QLabel(this)), close_(new ToolButton(QStringLiteral("close"), this)) {
    setFixedHeight(kHeight);
    close_->setFixedSize(28, 24);
    close_->SetTip(tr("Close"));
    // Escape closes the dialog; Tab stays with its contents.
    close_->setFocusPolicy(Qt::NoFocus);
    QFont font = title_->font();
    font.setWeight(QFont::DemiBold);
    title_->setFont(font);
    title_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(theme::kMargin, 2, 6, 0);
    row->addWidget(title_, 1);
    row->addWidget(close_);
    connect(close_, &ToolButton::clicked, this, [this] { window()->close(); });
}

void TitleRow::MakeFrameless(QWidget& window) {
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.setContentsMargins(1, 1, 1, 1);
    window.installEventFilter(new Outline(&window));
}

void TitleRow::FollowWindow() { title_->setText(window()->windowTitle()); }

void TitleRow::SettlePosition() {
    // A window manager that takes the frameless window into a frame of its own can leave the toolkit believing that it
    // lies at (0, 0): menus and drop-down lists would then open far off.
    QWindow* handle = window()->windowHandle();
    if (handle && window()->isVisible() && handle->position() != window()->pos()) handle->setPosition(window()->pos());
}

void TitleRow::CentreOnOwner() {
    // Before the dialog's own placing, which leaves room for a frame that these windows don't have.
    const QWidget* owner = window()->parentWidget();
    if (!owner) return;
    QRect place = window()->rect();
    place.moveCenter(owner->window()->geometry().center());
    const QRect screen = owner->screen()->availableGeometry();
    place.moveLeft(qMax(screen.left(), qMin(place.left(), screen.right() + 1 - place.width())));
    place.moveTop(qMax(screen.top(), qMin(place.top(), screen.bottom() + 1 - place.height())));
    window()->move(place.topLeft());
}

bool TitleRow::event(QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::ParentChange) {
        window()->removeEventFilter(this);
        window()->installEventFilter(this);
        FollowWindow();
    }
    return QWidget::event(event);
}

bool TitleRow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != window()) return false;
    if (event->type() == QEvent::WindowTitleChange) FollowWindow();
    if (event->type() == QEvent::WindowActivate) SettlePosition();
    if (event->type() == QEvent::Show && !event->spontaneous()) CentreOnOwner();
    return QWidget::eventFilter(watched, event);
}

void TitleRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::kTitleGround);
}

void TitleRow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    QWindow* handle = window()->windowHandle();
    // Without a window manager the system's move is refused; then the row moves the window itself.
    if (handle && handle->startSystemMove()) return;
    grip_ = event->globalPosition().toPoint() - window()->frameGeometry().topLeft();
}

void TitleRow::mouseMoveEvent(QMouseEvent* event) {
    if (grip_) window()->move(event->globalPosition().toPoint() - *grip_);
}

void TitleRow::mouseReleaseEvent(QMouseEvent*) { grip_.reset(); }

}  // namespace kelu
