// Layout, keys and answers of the message window; see message_window.h.
// SPDX-License-Identifier: MIT
#include "controls/message_dialog/message_window.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QVBoxLayout>

#include "controls/message_dialog/message_text.h"
#include "controls/theme/icons.h"
#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"

namespace kelu {

namespace {

// Device-independent pixels.
constexpr int kPicture = 40;
constexpr int kAboutPicture = 96;
constexpr int kTextWidth = 340;
constexpr int kAboutTextWidth = 420;
constexpr int kAboutTextHeight = 190;

struct Choice {
    const char* caption;
    MsgAnswer answer;
};
constexpr Choice kYes{QT_TRANSLATE_NOOP("kelu::MessageWindow", "&Yes"), MsgAnswer::Yes};
constexpr Choice kNo{QT_TRANSLATE_NOOP("kelu::MessageWindow", "&No"), MsgAnswer::No};
constexpr Choice kCancel{QT_TRANSLATE_NOOP("kelu::MessageWindow", "Cancel"), MsgAnswer::Cancel};
constexpr Choice kOk{QT_TRANSLATE_NOOP("kelu::MessageWindow", "OK"), MsgAnswer::Ok};

/// From left to right; the first is the default, the last is what closing the window means.
std::vector<Choice> Choices(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::Ok:
            return {kOk};
        case MsgButtons::YesNo:
            return {kYes, kNo};
        case MsgButtons::YesNoCancel:
            return {kYes, kNo, kCancel};
    }
    return {};
}

QString PictureName(MsgIcon icon) {
    switch (icon) {
        case MsgIcon::Kelu:
            return QStringLiteral("msg_kelu");
        case MsgIcon::Information:
            return QStringLiteral("msg_info");
        case MsgIcon::Exclamation:
            return QStringLiteral("msg_exclamation");
        case MsgIcon::Error:
            return QStringLiteral("msg_error");
        case MsgIcon::None:
            break;
    }
    return {};
}

QLabel* Picture(const QString& name, int size, qreal ratio) {
    auto* label = new QLabel;
    label->setPixmap(theme::IconPixmap(name, size, ratio, theme::kText));
    label->setFixedSize(size, size);
    return label;
}

QLabel* TextLabel(const QString& richText, int width) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::RichText);
    label->setText(richText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse);
    label->setOpenExternalLinks(true);
    label->setFixedWidth(width);
    return label;
}

QLabel* HeadingLabel(const QString& heading) {
    QLabel* label = TextLabel(PlainToRich(heading), kTextWidth);
    label->setFont(theme::HeadingFont());
    QPalette bright = label->palette();
    bright.setColor(QPalette::WindowText, theme::kBrightText);
    label->setPalette(bright);
    return label;
}

/// A long text in a field of fixed size.
QScrollArea* ScrolledText(const QString& text, const QString& accessibleName) {
    auto* scroll = new QScrollArea;
    QLabel* label = TextLabel(PlainToRich(text), kAboutTextWidth - theme::kScrollBarWidth - 2);
    label->setContentsMargins(12, 10, 12, 10);
    scroll->setWidget(label);
    // The ground of a field: here is something to scroll.
    scroll->setBackgroundRole(QPalette::Base);
    label->setAutoFillBackground(false);
    scroll->viewport()->setAutoFillBackground(true);
    scroll->setFixedSize(kAboutTextWidth, kAboutTextHeight);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setAccessibleName(accessibleName);
    return scroll;
}

}  // namespace

MessageWindow::MessageWindow(const Message& message, QWidget* parent)
    : QDialog(parent), buttons_(message.buttons), answer_(Choices(message.buttons).back().answer) {
    setWindowTitle(message.title);
    // A message must answer even while the window it blocks is disabled by a render.
    setEnabled(true);

    auto* body = new QHBoxLayout;
    body->setContentsMargins(theme::kMargin + 4, theme::kMargin + 2, theme::kMargin + 8, theme::kMargin);
    body->setSpacing(theme::kMargin + 2);
    const bool about = message.look == MsgLook::About;
    if (message.icon != MsgIcon::None || about)
        body->addWidget(Picture(about ? QStringLiteral("kelu") : PictureName(message.icon),
                                about ? kAboutPicture : kPicture, devicePixelRatioF()),
                        0, Qt::AlignTop);
    auto* words = new QVBoxLayout;
    words->setSpacing(theme::kSpacing);
    body->addLayout(words, 1);
    AddWords(*words, message);

    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(theme::kMargin, 4, theme::kMargin, theme::kMargin);
    buttons->setSpacing(theme::kSpacing);
    buttons->addStretch(1);
    QPushButton* first = AddButtons(*buttons);

    QVBoxLayout* column = MakeWindowFrame(*this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(body);
    column->addLayout(buttons);
    first->setFocus();  // only now it is a child of this window, and a space is not the check box's
}

void MessageWindow::AddWords(QBoxLayout& column, const Message& message) {
    const QString heading = CleanLines(message.heading);
    const QString text = CleanLines(message.text);
    plainText_ = heading.isEmpty() ? text : heading + QStringLiteral("\n\n") + text;
    setAccessibleDescription(plainText_);
    if (message.look == MsgLook::About) {
        column.addWidget(TextLabel(AboutHeading(heading), kAboutTextWidth));
        column.addSpacing(theme::kSpacing);
        column.addWidget(ScrolledText(text, message.title));
    } else {
        if (!heading.isEmpty()) column.addWidget(HeadingLabel(heading));
        if (!text.isEmpty()) column.addWidget(TextLabel(PlainToRich(text), kTextWidth));
    }
    if (!message.checkbox.isEmpty()) {
        checkbox_ = new QCheckBox(message.checkbox);
        column.addSpacing(4);
        column.addWidget(checkbox_, 0, Qt::AlignLeft);
    }
    column.addStretch(1);
}

QPushButton* MessageWindow::AddButtons(QBoxLayout& row) {
    QPushButton* first = nullptr;
    for (const Choice& choice : Choices(buttons_)) {
        auto* button = new QPushButton(tr(choice.caption));
        button->setMinimumWidth(theme::kButtonMinWidth);
        button->setAutoDefault(true);
        button->setDefault(!first);
        connect(button, &QPushButton::clicked, this, [this, answer = choice.answer] { Finish(answer); });
        row.addWidget(button);
        if (!first) first = button;
    }
    return first;
}

MsgReply MessageWindow::Reply() const { return {answer_, checkbox_ && checkbox_->isChecked()}; }

void MessageWindow::Finish(MsgAnswer answer) {
    answer_ = answer;
    done(QDialog::Accepted);
}

void MessageWindow::reject() { Finish(Choices(buttons_).back().answer); }

void MessageWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(plainText_);
        return;
    }
    // The answers' letters work without Alt as well: nothing in a message takes text.
    if (buttons_ != MsgButtons::Ok && event->modifiers() == Qt::NoModifier) {
        if (event->key() == Qt::Key_Y) return Finish(MsgAnswer::Yes);
        if (event->key() == Qt::Key_N) return Finish(MsgAnswer::No);
    }
    QDialog::keyPressEvent(event);
}

void MessageWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace kelu
