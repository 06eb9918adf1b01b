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
int Show(MsgDialog& dialog, int style, const std::function<void(QWidget&)>& act,
         const QString& text = QStringLiteral("Text\r\n"), const QString& heading = QStringLiteral("Heading")) {
    QTimer::singleShot(0, [&] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        QApplication::setActiveWindow(window);
        act(*window);
        if (window->isVisible()) window->close();
    });
    return dialog.ShowMessage(heading, text, style, QStringLiteral("Kelu"), MsgIcon::Information);
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

TEST(MsgDialogWindow, AnswersByKeys) {
    struct Row {
        const char* what;
        int style;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int answer;
    };
    const Row rows[] = {
        {"Enter takes the default", MsgDialog::kYesNoCancel, Qt::Key_Return, Qt::NoModifier, MsgDialog::kYes},
        {"keypad Enter too", MsgDialog::kYesNoCancel, Qt::Key_Enter, Qt::NoModifier, MsgDialog::kYes},
        {"Y", MsgDialog::kYesNoCancel, Qt::Key_Y, Qt::NoModifier, MsgDialog::kYes},
        {"N", MsgDialog::kYesNoCancel, Qt::Key_N, Qt::NoModifier, MsgDialog::kNo},
        {"Escape", MsgDialog::kYesNoCancel, Qt::Key_Escape, Qt::NoModifier, MsgDialog::kCancel},
        {"Enter on OK", MsgDialog::kOk, Qt::Key_Return, Qt::NoModifier, MsgDialog::kOkAnswer},
        {"Escape on OK", MsgDialog::kOk, Qt::Key_Escape, Qt::NoModifier, MsgDialog::kOkAnswer},
        {"another style has OK", 16, Qt::Key_Return, Qt::NoModifier, MsgDialog::kOkAnswer},
        {"N means nothing to an OK message, closing it does", MsgDialog::kOk, Qt::Key_N, Qt::NoModifier,
         MsgDialog::kOkAnswer},
    };
    for (const Row& row : rows) {
        MsgDialogWindow dialog;
        const int answer = Show(dialog, row.style, [&](QWidget& window) {
            QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, row.key, row.modifiers);
        });
        EXPECT_EQ(answer, row.answer) << row.what;
    }
}

TEST(MsgDialogWindow, AnswersByMouseMnemonicTabAndClose) {
    MsgDialogWindow dialog;
    const auto click = [](const char* caption) {
        return [caption](QWidget& window) {
            QTest::mouseClick(ButtonNamed(window, QString::fromLatin1(caption)), Qt::LeftButton);
        };
    };
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel, click("&Yes")), 6);
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel, click("&No")), 7);
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel, click("Cancel")), 2);
    EXPECT_EQ(Show(dialog, MsgDialog::kOk, click("OK")), 1);
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel, [](QWidget& window) { window.close(); }), 2);
    EXPECT_EQ(Show(dialog, MsgDialog::kOk, [](QWidget& window) { window.close(); }), 1);
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel,
                   [](QWidget& window) {
                       QTest::keyClick(&window, Qt::Key_Tab);
                       EXPECT_EQ(window.focusWidget(), ButtonNamed(window, QStringLiteral("&No")));
                       QTest::keyClick(window.focusWidget(), Qt::Key_Return);
                   }),
              7);
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel,
                   [](QWidget& window) {
                       QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
                       QTest::qWait(200);  // a mnemonic shows its button pressed for a moment
                   }),
              7);
}

TEST(MsgDialogWindow, CheckBoxIsReadAfterTheMessageAndStartsUnticked) {
    MsgDialogWindow dialog;
    dialog.SetShowCheckbox(true);
    dialog.SetCheckboxCaption(QStringLiteral("Don't Show This Again"));
    Show(dialog, MsgDialog::kOk, [](QWidget& window) {
        auto* box = window.findChild<QCheckBox*>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), QStringLiteral("Don't Show This Again"));
        EXPECT_FALSE(box->isChecked());
        EXPECT_EQ(window.focusWidget(), ButtonNamed(window, QStringLiteral("OK"))) << "a space is the button's";
        QTest::keyClick(box, Qt::Key_Space);
    });
    EXPECT_TRUE(dialog.CheckboxValue());
    Show(dialog, MsgDialog::kOk, [](QWidget& window) { EXPECT_FALSE(window.findChild<QCheckBox*>()->isChecked()); });
    EXPECT_FALSE(dialog.CheckboxValue());
    dialog.SetCheckboxValue(true);
    Show(dialog, MsgDialog::kOk, [](QWidget& window) { EXPECT_TRUE(window.findChild<QCheckBox*>()->isChecked()); });
    EXPECT_TRUE(dialog.CheckboxValue());
    dialog.SetShowCheckbox(false);
    Show(dialog, MsgDialog::kOk, [](QWidget& window) { EXPECT_EQ(window.findChild<QCheckBox*>(), nullptr); });
    EXPECT_FALSE(dialog.CheckboxValue());
}

TEST(MsgDialogWindow, ShowsTextsAsTheyStandAndCopiesThem) {
    MsgDialogWindow dialog;
    const QString text = QStringLiteral("Save changes to '<b>a & b</b>.jpg'?\r\nSecond line\r\n");
    Show(
        dialog, MsgDialog::kOk,
        [](QWidget& window) {
            EXPECT_EQ(ShownText(window), QStringLiteral("Confirm|Save changes to '<b>a & b</b>.jpg'?\nSecond line"));
            EXPECT_EQ(window.windowTitle(), QStringLiteral("Kelu"));
            QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QGuiApplication::clipboard()->text(),
                      QStringLiteral("Confirm\n\nSave changes to '<b>a & b</b>.jpg'?\nSecond line"));
            const QAccessibleInterface* self = QAccessible::queryAccessibleInterface(&window);
            EXPECT_EQ(self->role(), QAccessible::Dialog);
            EXPECT_EQ(self->text(QAccessible::Name), QStringLiteral("Kelu"));
        },
        text, QStringLiteral("Confirm"));
}

TEST(MsgDialogWindow, KeepsItsBreadthWhateverTheText) {
    MsgDialogWindow dialog;
    int plain = 0, wide = 0, about = 0;
    Show(dialog, MsgDialog::kOk, [&](QWidget& window) { plain = window.width(); });
    Show(
        dialog, MsgDialog::kOk, [&](QWidget& window) { wide = window.width(); }, QString(400, QLatin1Char('W')));
    EXPECT_EQ(plain, wide);
    dialog.SetAboutStyle(true);
    Show(
        dialog, MsgDialog::kOk,
        [&](QWidget& window) {
            about = window.width();
            EXPECT_LT(window.height(), 500) << "a long text scrolls";
        },
        QStringLiteral("Many words. ").repeated(400));
    EXPECT_GT(about, plain);
}

TEST(MsgDialogWindow, StandsOverTheMiddleOfItsOwnerAndAnswersThoughThatIsDisabled) {
    QWidget owner, another;
    owner.setGeometry(100, 80, 600, 400);
    owner.show();
    owner.setEnabled(false);
    another.show();
    QApplication::setActiveWindow(&another);
    MsgDialogWindow dialog(&owner);
    EXPECT_EQ(Show(dialog, MsgDialog::kYesNoCancel,
                   [&](QWidget& window) {
                       EXPECT_TRUE(window.isEnabled());
                       EXPECT_EQ(window.parentWidget(), &owner) << "not the window that happens to be active";
                       const QPoint off = window.geometry().center() - owner.geometry().center();
                       EXPECT_LE(off.manhattanLength(), 2);
                       QTest::mouseClick(ButtonNamed(window, QStringLiteral("&No")), Qt::LeftButton);
                   }),
              7);
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
    dialog.SetAboutStyle(true);
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
    EXPECT_EQ(first.style, 96);
    EXPECT_EQ(first.title, QStringLiteral("Kelu"));
    EXPECT_EQ(first.icon, MsgIcon::Error);
    EXPECT_FALSE(first.about);
    EXPECT_EQ(dialog.shown[1].text, QStringLiteral("The following error has occured:\r\nOut of memory (7)\r\n"));
}

TEST(StandardError, TakesADescriptionWithPercentSignsAsItStands) {
    ScriptedDialog dialog;
    ShowStandardError(dialog, Error(kFileError, QStringLiteral("Cannot read '100%2.png'")));
    EXPECT_EQ(dialog.Texts().value(0),
              QStringLiteral("The following error has occured:\r\nCannot read '100%2.png' (57)\r\n"));
}

}  // namespace
}  // namespace kelu
