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

}  // namespace

MessageWindow::MessageWindow(const Message& message, QWidget* parent)
    : QDialog(parent), threeWay_(message.style == MsgDialog::kYesNoCancel) {
    answer_ = threeWay_ ? MsgDialog::kCancel : MsgDialog::kOkAnswer;
    const QString heading = CleanLines(message.heading);
    const QString text = CleanLines(message.text);
    plainText_ = heading.isEmpty() ? text : heading + QStringLiteral("\n\n") + text;
    setWindowTitle(message.title);
    setAccessibleDescription(plainText_);
    // A message must answer even while the window it blocks is disabled by a render.
    setEnabled(true);

    QVBoxLayout* column = MakeWindowFrame(*this);
    column->setSizeConstraint(QLayout::SetFixedSize);

    auto* body = new QHBoxLayout;
    body->setContentsMargins(theme::kMargin + 4, theme::kMargin + 2, theme::kMargin + 8, theme::kMargin);
    body->setSpacing(theme::kMargin + 2);
    column->addLayout(body);
    if (message.icon != MsgIcon::None || message.about) {
        const QString name = message.about ? QStringLiteral("kelu") : PictureName(message.icon);
        body->addWidget(Picture(name, message.about ? kAboutPicture : kPicture, devicePixelRatioF()), 0, Qt::AlignTop);
    }

    const int width = message.about ? kAboutTextWidth : kTextWidth;
    auto* words = new QVBoxLayout;
    words->setSpacing(theme::kSpacing);
    body->addLayout(words, 1);
    if (!heading.isEmpty()) {
        auto* label = TextLabel(message.about ? AboutHeading(heading) : PlainToRich(heading), width);
        if (!message.about) {
            label->setFont(theme::HeadingFont());
            QPalette bright = label->palette();
            bright.setColor(QPalette::WindowText, theme::kBrightText);
            label->setPalette(bright);
        }
        words->addWidget(label);
    }
    if (!text.isEmpty()) {
        if (message.about) {
            auto* scroll = new QScrollArea;
            auto* label = TextLabel(PlainToRich(text), width - theme::kScrollBarWidth - 2);
            label->setContentsMargins(12, 10, 12, 10);
            scroll->setWidget(label);
            // The ground of a field: here is something to scroll.
            scroll->setBackgroundRole(QPalette::Base);
            label->setAutoFillBackground(false);
            scroll->viewport()->setAutoFillBackground(true);
            scroll->setFixedSize(width, kAboutTextHeight);
            scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            scroll->setAccessibleName(message.title);
            words->addSpacing(theme::kSpacing);
            words->addWidget(scroll);
        } else {
            words->addWidget(TextLabel(PlainToRich(text), width));
        }
    }
    if (message.hasCheckbox) {
        checkbox_ = new QCheckBox(message.checkboxCaption);
        checkbox_->setChecked(message.ticked);
        words->addSpacing(4);
        words->addWidget(checkbox_, 0, Qt::AlignLeft);
    }
    words->addStretch(1);

    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(theme::kMargin, 4, theme::kMargin, theme::kMargin);
    buttons->setSpacing(theme::kSpacing);
    buttons->addStretch(1);
    QPushButton* first = AddButtons(*buttons);
    column->addLayout(buttons);
    first->setFocus();  // only now it is a child of this window, and a space is not the check box's
}

QPushButton* MessageWindow::AddButtons(QBoxLayout& row) {
    struct Choice {
        QString caption;
        int answer;
    };
    const std::vector<Choice> choices = threeWay_ ? std::vector<Choice>{{tr("&Yes"), MsgDialog::kYes},
                                                                        {tr("&No"), MsgDialog::kNo},
                                                                        {tr("Cancel"), MsgDialog::kCancel}}
                                                  : std::vector<Choice>{{tr("OK"), MsgDialog::kOkAnswer}};
    QPushButton* first = nullptr;
    for (const Choice& choice : choices) {
        auto* button = new QPushButton(choice.caption);
        button->setMinimumWidth(theme::kButtonMinWidth);
        button->setAutoDefault(true);
        button->setDefault(&choice == &choices.front());
        connect(button, &QPushButton::clicked, this, [this, answer = choice.answer] { Finish(answer); });
        row.addWidget(button);
        if (!first) first = button;
    }
    return first;
}

bool MessageWindow::Ticked() const { return checkbox_ && checkbox_->isChecked(); }

void MessageWindow::Finish(int answer) {
    answer_ = answer;
    done(QDialog::Accepted);
}

void MessageWindow::reject() { Finish(threeWay_ ? MsgDialog::kCancel : MsgDialog::kOkAnswer); }

void MessageWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(plainText_);
        return;
    }
    // The answers' letters work without Alt as well: nothing in a message takes text.
    if (threeWay_ && event->modifiers() == Qt::NoModifier) {
        if (event->key() == Qt::Key_Y) return Finish(MsgDialog::kYes);
        if (event->key() == Qt::Key_N) return Finish(MsgDialog::kNo);
    }
    QDialog::keyPressEvent(event);
}

void MessageWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace kelu
