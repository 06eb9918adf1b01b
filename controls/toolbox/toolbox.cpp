// Grid, keys and the current button of the toolbox; see toolbox.h.
// SPDX-License-Identifier: MIT
#include "controls/toolbox/toolbox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyle>

#include "controls/toolbox/toolbox_button.h"

namespace kelu {

Toolbox::Toolbox(QWidget* parent) : QWidget(parent) {}

Toolbox::~Toolbox() = default;

void Toolbox::SetColumns(int columns) {
    columns_ = qMax(1, columns);
    Arrange();
}

void Toolbox::SetButtonSize(const QSize& size) {
    buttonSize_ = size;
    Arrange();
}

void Toolbox::SetMargin(int margin) {
    margin_ = margin;
    Arrange();
}

void Toolbox::SetGap(int gap) {
    gap_ = gap;
    Arrange();
}

int Toolbox::AddButton(const QString& key, const QPixmap& normal, const QPixmap& over, const QPixmap& down) {
    auto* button = new ToolboxButton(key, this);
    button->SetPictures(normal, over, down);
    button->installEventFilter(this);
    buttons_.push_back(button);
    const int index = Count();
    connect(button, &QAbstractButton::clicked, this, [this, index] { Press(index); });
    if (index == 1) UpdateTabStop(1);
    button->show();
    Arrange();
    return index;
}

void Toolbox::SetPictures(int index, const QPixmap& normal, const QPixmap& over, const QPixmap& down) {
    if (InRange(index)) buttons_[static_cast<std::size_t>(index - 1)]->SetPictures(normal, over, down);
}

void Toolbox::SetIconName(int index, const QString& iconName) {
    if (InRange(index)) buttons_[static_cast<std::size_t>(index - 1)]->SetIconName(iconName);
}

QString Toolbox::Key(int index) const {
    return InRange(index) ? buttons_[static_cast<std::size_t>(index - 1)]->Key() : QString();
}

void Toolbox::SetCurrent(int index) {
    if (!InRange(index)) index = 0;
    current_ = index;
    for (int each = 1; each <= Count(); ++each) buttons_[static_cast<std::size_t>(each - 1)]->SetCurrent(each == index);
    if (index > 0) UpdateTabStop(index);
}

void Toolbox::SetTip(int index, const QString& text) {
    if (!InRange(index)) return;
    ToolboxButton* button = buttons_[static_cast<std::size_t>(index - 1)];
    button->setProperty("tip", text);
    button->setAccessibleName(QString(text).replace(QStringLiteral("&&"), QStringLiteral("&")));
    ShowTip(*button);
}

void Toolbox::SetObstacle(const QString& obstacle) {
    if (obstacle_ == obstacle) return;
    obstacle_ = obstacle;
    for (ToolboxButton* button : buttons_) {
        button->SetDimmed(!obstacle.isEmpty());
        button->setAccessibleDescription(obstacle);
        ShowTip(*button);
    }
}

void Toolbox::ShowTip(ToolboxButton& button) {
    const QString name = button.accessibleName();
    button.setToolTip(obstacle_.isEmpty() ? name : QStringLiteral("%1\n%2").arg(name, obstacle_));
}

QString Toolbox::Tip(int index) const {
    return InRange(index) ? buttons_[static_cast<std::size_t>(index - 1)]->property("tip").toString() : QString();
}

QWidget* Toolbox::Button(int index) const {
    return InRange(index) ? buttons_[static_cast<std::size_t>(index - 1)] : nullptr;
}

void Toolbox::Press(int index) {
    SetCurrent(index);
    Q_EMIT ButtonClicked(index, Key(index));
}

void Toolbox::UpdateTabStop(int index) {
    tabStop_ = index;
    for (int each = 1; each <= Count(); ++each)
        buttons_[static_cast<std::size_t>(each - 1)]->setFocusPolicy(each == index ? Qt::TabFocus : Qt::NoFocus);
}

QSize Toolbox::sizeHint() const {
    const int columns = qMin(columns_, qMax(1, Count()));
    const int rows = (Count() + columns - 1) / columns;
    const auto length = [this](int count, int each) { return 2 * margin_ + count * each + qMax(0, count - 1) * gap_; };
    return {length(columns, buttonSize_.width()), length(rows, buttonSize_.height())};
}

void Toolbox::Arrange() {
    updateGeometry();
    const int columns = qMin(columns_, qMax(1, Count()));
    // In a space wider than the grid it stands in the middle.
    const int left = margin_ + qMax(0, (width() - sizeHint().width()) / 2);
    for (int i = 0; i < Count(); ++i) {
        const QPoint corner(left + i % columns * (buttonSize_.width() + gap_),
                            margin_ + i / columns * (buttonSize_.height() + gap_));
        buttons_[static_cast<std::size_t>(i)]->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), QRect(corner, buttonSize_)));
    }
}

int Toolbox::RowsInSight() const {
    return qMax(1, visibleRegion().boundingRect().height() / (buttonSize_.height() + gap_));
}

// The button that what was typed by now leads to, from button `index` on and round: the first whose name begins with
// it, else the first that has it anywhere. 0: no text, or one that no name begins to spell.
int Toolbox::Typed(const QString& text, int index) {
    const bool goesOn = sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    if (!goesOn) typed_.clear();
    if (text.isEmpty() || !text[0].isPrint() || (text == u" " && typed_.isEmpty())) return 0;
    sinceTyped_.start();
    typed_ += text;
    const int first = typed_.size() > 1 ? index : index + 1;
    for (const bool atStart : {true, false})
        for (int i = 0; i < Count(); ++i) {
            const int each = (first - 1 + i) % Count() + 1;
            const QString name = Button(each)->accessibleName();
            if (atStart ? name.startsWith(typed_, Qt::CaseInsensitive) : name.contains(typed_, Qt::CaseInsensitive))
                return each;
        }
    if (typed_.size() > 1) return index;
    typed_.clear();
    return 0;
}

void Toolbox::resizeEvent(QResizeEvent*) { Arrange(); }

void Toolbox::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) Arrange();
    QWidget::changeEvent(event);
}

bool Toolbox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto found = std::find(buttons_.begin(), buttons_.end(), watched);
    if (found == buttons_.end()) return false;
    return TakeKey(*static_cast<QKeyEvent*>(event), static_cast<int>(found - buttons_.begin()) + 1);
}

bool Toolbox::TakeKey(const QKeyEvent& key) { return InRange(tabStop_) && TakeKey(key, tabStop_); }

bool Toolbox::TakeKey(const QKeyEvent& key, int index) {
    const int columns = qMin(columns_, Count());
    const int onward = isRightToLeft() ? -1 : 1;
    int next = index;
    switch (key.key()) {
        case Qt::Key_Left:
            next = index - onward;
            break;
        case Qt::Key_Right:
            next = index + onward;
            break;
        case Qt::Key_Up:
            next = index - columns;
            break;
        case Qt::Key_Down:
            next = index + columns;
            break;
        case Qt::Key_PageUp:
            next = qMax((index - 1) % columns + 1, index - columns * RowsInSight());
            break;
        case Qt::Key_PageDown:
            next = qMin(Count(), index + columns * RowsInSight());
            break;
        case Qt::Key_Home:
            next = 1;
            break;
        case Qt::Key_End:
            next = Count();
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            buttons_[static_cast<std::size_t>(index - 1)]->animateClick();
            return true;
        default:
            if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
            next = Typed(key.text(), index);
            if (next == 0) return false;
    }
    if (InRange(next) && next != index) {
        UpdateTabStop(next);
        buttons_[static_cast<std::size_t>(next - 1)]->setFocus(Qt::TabFocusReason);
    }
    return true;
}

}  // namespace kelu
