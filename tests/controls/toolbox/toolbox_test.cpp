// Current button, signals and keys of the toolbox.
// SPDX-License-Identifier: MIT
#include "controls/toolbox/toolbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QTest>

#include "controls/theme/theme.h"

namespace kelu {
namespace {

class ToolboxTest : public testing::Test {
 protected:
    ToolboxTest() {
        box.SetColumns(3);
        box.SetButtonSize({30, 20});
        box.SetMargin(5);
        box.SetGap(2);
        for (int i = 1; i <= 8; ++i) box.AddButton(QStringLiteral("keySFX%1").arg(i));
        QObject::connect(&box, &Toolbox::ButtonClicked, &box, [this](int index, const QString& key) {
            clicks.append(QStringLiteral("%1 %2 current %3").arg(index).arg(key).arg(box.Current()));
        });
        box.resize(box.sizeHint());
        box.show();
        box.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    }
    int Focused() const {
        for (int i = 1; i <= box.Count(); ++i)
            if (box.Button(i) == QApplication::focusWidget()) return i;
        return 0;
    }
    void Keys(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) QTest::keyClick(QApplication::focusWidget(), key);
    }

    Toolbox box;
    QStringList clicks;
};

TEST_F(ToolboxTest, TellsEachClickAfterMarkingItsButton) {
    box.SetCurrent(2);
    EXPECT_TRUE(clicks.isEmpty());
    QTest::mouseClick(box.Button(4), Qt::LeftButton);
    QTest::mouseClick(box.Button(4), Qt::LeftButton);
    QTest::mouseClick(box.Button(1), Qt::RightButton);
    EXPECT_EQ(clicks, QStringList({"4 keySFX4 current 4", "4 keySFX4 current 4"}));
    box.SetCurrent(99);
    EXPECT_EQ(box.Current(), 0);
    for (int i = 1; i <= 8; ++i) EXPECT_FALSE(qobject_cast<QAbstractButton*>(box.Button(i))->isChecked());
}

TEST_F(ToolboxTest, ArrowKeysWalkTheGridSpaceAndEnterPress) {
    box.Button(1)->setFocus(Qt::TabFocusReason);
    Keys({Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Up});
    EXPECT_EQ(Focused(), 2) << "no row above the first";
    Keys({Qt::Key_End, Qt::Key_Right, Qt::Key_Down});
    EXPECT_EQ(Focused(), 8);
    Keys({Qt::Key_Left, Qt::Key_Space});
    EXPECT_EQ(clicks, QStringList{"7 keySFX7 current 7"});
    Keys({Qt::Key_Home, Qt::Key_Return});
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks.size() == 2; }, 1000));
    EXPECT_EQ(clicks.last(), QStringLiteral("1 keySFX1 current 1"));
}

TEST_F(ToolboxTest, TypedNamesAndPagesLeadToButtons) {
    const char* const names[] = {"Blobs", "Blur 1", "Blur 2", "Fish Eye", "Mosaic", "Oil Painting", "Negative", "Neon"};
    for (int i = 0; i < 8; ++i) box.SetTip(i + 1, QString::fromLatin1(names[i]));
    box.Button(1)->setFocus(Qt::TabFocusReason);
    const auto type = [&](const char* text) {
        QTest::qWait(QApplication::keyboardInputInterval() + 50);
        for (; *text; ++text) QTest::keyClick(QApplication::focusWidget(), *text);
        return Focused();
    };
    EXPECT_EQ(type("neo"), 8);
    EXPECT_EQ(type("blur 2"), 3) << "a blank within a name does not press";
    EXPECT_EQ(type("b"), 1) << "the next of that letter, and round";
    EXPECT_EQ(type("b"), 2);
    EXPECT_EQ(type("paint"), 6) << "a word within a name";
    EXPECT_EQ(type("zz"), 6);
    EXPECT_TRUE(clicks.isEmpty());
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    Keys({Qt::Key_Space});
    EXPECT_EQ(clicks.size(), 1);
    Keys({Qt::Key_PageUp});
    EXPECT_LE(Focused(), 3) << "the first row";
    Keys({Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageDown});
    EXPECT_EQ(Focused(), 8);
}

TEST_F(ToolboxTest, OneButtonTakesTab) {
    const auto stops = [&] {
        std::vector<int> found;
        for (int i = 1; i <= box.Count(); ++i)
            if (box.Button(i)->focusPolicy() & Qt::TabFocus) found.push_back(i);
        return found;
    };
    EXPECT_EQ(stops(), std::vector<int>{1});
    box.SetCurrent(6);
    EXPECT_EQ(stops(), std::vector<int>{6});
    box.Button(6)->setFocus(Qt::TabFocusReason);
    Keys({Qt::Key_Left});
    EXPECT_EQ(stops(), std::vector<int>{5});
}

}  // namespace
}  // namespace kelu
