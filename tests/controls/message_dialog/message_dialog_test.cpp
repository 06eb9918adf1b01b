// The message dialog as a user meets it: answers by mouse and keys, check box, texts; and the standard error message.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QTimer>

#include "controls/message_dialog/message_text.h"
#include "controls/message_dialog/msg_dialog_window.h"
#include "platform/error.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

/// Shows a message and lets `act` deal with its window.
MsgReply Show(const Message& message, const std::function<void(QWidget&)>& act, QWidget* owner = nullptr) {
    QTimer::singleShot(0, [&] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        act(*window);
        if (window->isVisible()) window->close();
    });
    return MsgDialogWindow(owner).ShowMessage(message);
}

Message Ask(MsgButtons buttons) {
    return {QStringLiteral("Heading"), QStringLiteral("Text\r\n"), MsgIcon::Information, buttons};
}

QPushButton* ButtonNamed(QWidget& window, const QString& caption) {
    for (auto* button : window.findChildren<QPushButton*>())
        if (button->text() == caption) return button;
    return nullptr;
}

QString ShownText(QWidget& window) {
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>()) {
        QTextDocument document;
        document.setHtml(label->text());
        if (label->textFormat() == Qt::RichText) texts.append(document.toPlainText());
    }
    return texts.join(QLatin1Char('|'));
}

TEST(MsgDialogWindow, AnswersByKeysMouseMnemonicTabAndClose) {
    using Act = std::function<void(QWidget&)>;
    const auto key = [](Qt::Key code) -> Act {
        return
            [code](QWidget& window) { QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, code); };
    };
    const auto click = [](const char* caption) -> Act {
        return [caption](QWidget& window) {
            QTest::mouseClick(ButtonNamed(window, QString::fromLatin1(caption)), Qt::LeftButton);
        };
    };
    const Act close = [](QWidget& window) { window.close(); };
    const Act tabToNo = [](QWidget& window) {
        QTest::keyClick(&window, Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget(), ButtonNamed(window, QStringLiteral("&No")));
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    };
    const Act altN = [](QWidget& window) {
        QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
        QTest::qWait(200);  // a mnemonic shows its button pressed for a moment
    };
    struct Row {
        const char* what;
        MsgButtons buttons;
        Act act;
        MsgAnswer answer;
    };
    using B = MsgButtons;
    using A = MsgAnswer;
    const Row rows[] = {
        {"Enter takes the default", B::YesNoCancel, key(Qt::Key_Return), A::Yes},
        {"keypad Enter too", B::YesNo, key(Qt::Key_Enter), A::Yes},
        {"Y", B::YesNoCancel, key(Qt::Key_Y), A::Yes},
        {"N", B::YesNo, key(Qt::Key_N), A::No},
        {"Escape", B::YesNoCancel, key(Qt::Key_Escape), A::Cancel},
        {"Escape without Cancel", B::YesNo, key(Qt::Key_Escape), A::No},
        {"Enter on OK", B::Ok, key(Qt::Key_Return), A::Ok},
        {"Escape on OK", B::Ok, key(Qt::Key_Escape), A::Ok},
        {"N means nothing to an OK message, closing it does", B::Ok, key(Qt::Key_N), A::Ok},
        {"click Yes", B::YesNoCancel, click("&Yes"), A::Yes},
        {"click No", B::YesNoCancel, click("&No"), A::No},
        {"click Cancel", B::YesNoCancel, click("Cancel"), A::Cancel},
        {"click OK", B::Ok, click("OK"), A::Ok},
        {"close", B::YesNoCancel, close, A::Cancel},
        {"close with OK", B::Ok, close, A::Ok},
        {"Tab and Enter", B::YesNoCancel, tabToNo, A::No},
        {"mnemonic", B::YesNoCancel, altN, A::No},
    };
    for (const Row& row : rows) EXPECT_EQ(Show(Ask(row.buttons), row.act).answer, row.answer) << row.what;
}

TEST(MsgDialogWindow, TellsWhetherItsCheckBoxWasTicked) {
    Message message = Ask(MsgButtons::Ok);
    EXPECT_FALSE(Show(message, [](QWidget& window) { EXPECT_EQ(window.findChild<QCheckBox*>(), nullptr); }).ticked);
    message.checkbox = QStringLiteral("Don't Show This Again");
    for (const bool ticks : {true, false}) {
        const auto act = [&](QWidget& window) {
            auto* box = window.findChild<QCheckBox*>();
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), message.checkbox);
            EXPECT_FALSE(box->isChecked());
            EXPECT_EQ(window.focusWidget(), ButtonNamed(window, QStringLiteral("OK"))) << "a space is the button's";
            if (ticks) QTest::keyClick(box, Qt::Key_Space);
        };
        EXPECT_EQ(Show(message, act).ticked, ticks);
    }
}

TEST(MsgDialogWindow, ShowsTextsAsTheyStandAndCopiesThem) {
    Show({QStringLiteral("Confirm"), QStringLiteral("Save changes to '<b>a & b</b>.jpg'?\r\nSecond line\r\n")},
         [](QWidget& window) {
             EXPECT_EQ(ShownText(window), QStringLiteral("Confirm|Save changes to '<b>a & b</b>.jpg'?\nSecond line"));
             EXPECT_EQ(window.windowTitle(), QStringLiteral("Kelu"));
             QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
             EXPECT_EQ(QGuiApplication::clipboard()->text(),
                       QStringLiteral("Confirm\n\nSave changes to '<b>a & b</b>.jpg'?\nSecond line"));
             const QAccessibleInterface* self = QAccessible::queryAccessibleInterface(&window);
             EXPECT_EQ(self->role(), QAccessible::Dialog);
             EXPECT_EQ(self->text(QAccessible::Name), QStringLiteral("Kelu"));
         });
}

TEST(MsgDialogWindow, StandsOverTheMiddleOfItsOwnerAndAnswersThoughThatIsDisabled) {
    QWidget owner, another;
    owner.setGeometry(100, 80, 600, 400);
    owner.show();
    owner.setEnabled(false);
    another.show();
    another.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&another));
    const auto act = [&](QWidget& window) {
        EXPECT_TRUE(window.isEnabled());
        EXPECT_EQ(window.parentWidget(), &owner) << "not the window that happens to be active";
        const QPoint off = window.geometry().center() - owner.geometry().center();
        EXPECT_LE(off.manhattanLength(), 2);
        QTest::mouseClick(ButtonNamed(window, QStringLiteral("&No")), Qt::LeftButton);
    };
    EXPECT_EQ(Show(Ask(MsgButtons::YesNo), act, &owner).answer, MsgAnswer::No);
}

TEST(MessageText, LineEndsLinksAndLongWords) {
    EXPECT_EQ(CleanLines(QStringLiteral("a\r\nb\rc\n \r\n")), QStringLiteral("a\nb\nc"));
    EXPECT_EQ(CleanLines(QStringLiteral("\r\n")), QString());
    const auto plain = [](const QString& rich) {
        QTextDocument document;
        document.setHtml(rich);
        return document.toPlainText();
    };
    EXPECT_EQ(plain(PlainToRich(QStringLiteral("a < b\n\n\"c\""))), QStringLiteral("a < b\n\n\"c\""));
    const QString linked = PlainToRich(QStringLiteral("see https://kelu.example/a?b=1&c=2."));
    EXPECT_TRUE(linked.contains(QStringLiteral("href=\"https://kelu.example/a?b=1&amp;c=2\""))) << linked.toStdString();
    QString unbroken = plain(PlainToRich(QString(100, QLatin1Char('x'))));
    EXPECT_EQ(unbroken.count(QChar(0x200B)), 4);
    EXPECT_EQ(unbroken.remove(QChar(0x200B)), QString(100, QLatin1Char('x')));
}

TEST(StandardError, ShowsDescriptionAndNumber) {
    ScriptedDialog dialog;
    bool after = false;
    EXPECT_FALSE(RunShowingErrors(dialog, [&] {
        throw Error(kInvalidPicture, QStringLiteral("Invalid picture"));
        after = true;
    }));
    EXPECT_FALSE(after);
    EXPECT_FALSE(RunShowingErrors(dialog, [] { throw std::bad_alloc(); }));
    EXPECT_TRUE(RunShowingErrors(dialog, [] {}));
    ASSERT_EQ(dialog.shown.size(), 2u);
    const auto& first = dialog.shown[0];
    EXPECT_EQ(first.heading, QStringLiteral("Error"));
    EXPECT_EQ(first.text, QStringLiteral("The following error has occured:\r\nInvalid picture (481)\r\n"));
    EXPECT_EQ(first.title, QStringLiteral("Kelu"));
    EXPECT_EQ(first.icon, MsgIcon::Error);
    EXPECT_EQ(dialog.shown[1].text, QStringLiteral("The following error has occured:\r\nOut of memory (7)\r\n"));
}

}  // namespace
}  // namespace kelu
