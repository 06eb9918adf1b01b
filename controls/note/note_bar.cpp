// Layout, life and buttons of the quiet note; see note_bar.h.
// SPDX-License-Identifier: MIT
#include "controls/note/note_bar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <utility>

#include "controls/note/announcer.h"
#include "controls/theme/accessible_role.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"
#include "controls/tool_button/tool_button.h"

namespace kelu {

namespace {

// Device-independent pixels.
constexpr int kHeight = 36;
constexpr int kSidePad = 14;
constexpr int kAboveEdge = 14;
constexpr int kButtonHeight = 26;
constexpr std::size_t kMostButtons = 2;

bool IsActionKey(int key) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
            return false;
        default:
            return true;
    }
}

}  // namespace

NoteBar::NoteBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLabel(this)),
      buttonBox_(new QWidget(parent)),
      buttonRow_(new QHBoxLayout(buttonBox_)),
      announcer_(new Announcer(parent)) {
    UseAccessibleRole<NoteBar, QAccessible::Notification>();
    setObjectName(QStringLiteral("note"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    text_->setTextFormat(Qt::PlainText);
    QPalette bright = text_->palette();
    bright.setColor(QPalette::WindowText, theme::kBrightText);
    text_->setPalette(bright);
    buttonRow_->setContentsMargins(0, 0, 0, 0);
    buttonRow_->setSpacing(theme::kSpacing);
    buttonBox_->setObjectName(QStringLiteral("noteButtons"));
    goes_.setSingleShot(true);
    connect(&goes_, &QTimer::timeout, this, [this] {
        if (buttonBox_->underMouse() || HasFocusWithin())
            StartTime();
        else
            Pass();
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, const QWidget* now) {
        if (old && now && buttonBox_->isAncestorOf(now) && !buttonBox_->isAncestorOf(old)) left_ = old;
    });
    hide();
    buttonBox_->hide();
}

NoteBar::~NoteBar() { qApp->removeEventFilter(this); }

void NoteBar::SetPlace(const QRect& picture) {
    place_ = picture;
    Arrange();
}

QString NoteBar::Text() const { return isHidden() ? QString() : note_.text; }

void NoteBar::Show(const Note& note) {
    if (note.stays) standing_ = note;
    if (covered_)
        waiting_ = note;
    else
        Display(note);
}

void NoteBar::SetCovered(bool covered) {
    covered_ = covered;
    if (!covered && !waiting_.text.isEmpty()) Display(std::exchange(waiting_, {}));
}

void NoteBar::Clear() {
    standing_ = waiting_ = {};
    Hide();
}

void NoteBar::Tell(const QString& text) { announcer_->Tell(text); }

void NoteBar::Pass() {
    if (standing_.text.isEmpty())
        Hide();
    else
        Display(standing_);
}

void NoteBar::Display(const Note& note) {
    Hide();
    note_ = note;
    setAccessibleName(note_.text);
    for (std::size_t i = 0; i < std::min(note_.buttons.size(), kMostButtons); ++i) {
        auto* button = new ToolButton(buttonBox_);
        button->SetCaption(note_.buttons[i].caption);
        button->SetLook(ToolButton::Look::Raised);
        button->setFixedHeight(kButtonHeight);
        connect(button, &ToolButton::clicked, this, [this, i] { Run(i); });
        buttonRow_->addWidget(button);
        if (before_) setTabOrder(i == 0 ? before_ : buttonRow_->itemAt(static_cast<int>(i) - 1)->widget(), button);
    }
    Arrange();
    show();
    buttonBox_->setVisible(!note_.buttons.empty());
    if (!note_.stays) {
        if (!note_.unasked) qApp->installEventFilter(this);
        StartTime();
    }
}

bool NoteBar::HasFocusWithin() const {
    const QWidget* focused = QApplication::focusWidget();
    return focused && buttonBox_->isAncestorOf(focused);
}

void NoteBar::StartTime() { goes_.start(note_.buttons.empty() ? kShownFor : kOfferedFor); }

void NoteBar::Hide() {
    goes_.stop();
    qApp->removeEventFilter(this);
    if (HasFocusWithin() && left_) left_->setFocus(Qt::OtherFocusReason);
    hide();
    buttonBox_->hide();
    // Later: a button may be what brought us here.
    for (QObject* button : buttonBox_->findChildren<ToolButton*>()) {
        buttonRow_->removeWidget(static_cast<QWidget*>(button));
        static_cast<QWidget*>(button)->hide();
        button->deleteLater();
    }
    note_ = {};
}

void NoteBar::Run(std::size_t button) {
    const std::function<void()> run = note_.buttons[button].run;
    if (note_.stays)
        Clear();
    else
        Pass();
    if (run) run();
}

void NoteBar::Arrange() {
    const int buttons = note_.buttons.empty() ? 0 : buttonRow_->sizeHint().width();
    const int beside = buttons ? kSidePad + buttons : 0;
    const int room = std::max(0, place_.width() - 2 * kAboveEdge);
    const QFontMetrics letters = text_->fontMetrics();
    const int words = std::min(letters.horizontalAdvance(note_.text) + 1, std::max(0, room - 2 * kSidePad - beside));
    text_->setText(letters.elidedText(note_.text, Qt::ElideRight, words));
    const QSize size(2 * kSidePad + words + beside, kHeight);
    setGeometry(QRect(QPoint(place_.center().x() - size.width() / 2, place_.bottom() - kAboveEdge - kHeight), size));
    const auto seen = [this](const QRect& plate, const QRect& part) {
        return QStyle::visualRect(layoutDirection(), plate, part);
    };
    text_->setGeometry(seen(rect(), {kSidePad, 0, words, kHeight}));
    constexpr int kEdge = (kHeight - kButtonHeight) / 2;
    buttonBox_->setGeometry(
        seen(geometry(), {geometry().right() + 1 - kEdge - buttons, geometry().top() + kEdge, buttons, kButtonHeight}));
}

void NoteBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    theme::DrawField(painter, rect(), theme::kPopup, theme::kOutlinePopup);
}

bool NoteBar::eventFilter(QObject* watched, QEvent* event) {
    const bool acts = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel ||
                      (event->type() == QEvent::KeyPress && IsActionKey(static_cast<QKeyEvent*>(event)->key()));
    const auto* widget = acts ? qobject_cast<QWidget*>(watched) : nullptr;
    // An answer to a message that came by itself is no action on the picture.
    if (widget && widget->window() == window() && widget != buttonBox_ && !buttonBox_->isAncestorOf(widget)) Pass();
    return false;
}

}  // namespace kelu
