// The chosen row and exactly when the list announces it.
// SPDX-License-Identifier: MIT
#include "controls/list_ex/list_ex.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/error.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

class ListExTest : public testing::Test {
 protected:
    ListExTest() {
        for (const char* text : {"Red - Green", "Red - Blue", "Green - Blue"}) list.AddItem(QString::fromLatin1(text));
        QObject::connect(&list, &ListEx::SelectionChanged, &list, [this] { rows.push_back(list.ListIndex()); });
        list.resize(160, 200);
        list.show();
    }
    void ClickRow(int row) {
        const QRect box = list.visualRect(list.model()->index(row, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, box.center());
    }

    ListEx list;
    std::vector<int> rows;  ///< the row at each SelectionChanged
};

TEST_F(ListExTest, AnnouncesTheProgramsChoiceOnceEachTime) {
    EXPECT_EQ(list.ListIndex(), -1);
    list.SetListIndex(0);
    list.SetListIndex(0);
    list.SetListIndex(2);
    EXPECT_EQ(rows, (std::vector<int>{0, 0, 2}));
    list.SetListIndex(-1);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(rows.size(), 3u);
}

TEST_F(ListExTest, RefusesRowsThatAreNotThere) {
    list.SetListIndex(1);
    for (const int row : {3, 48, -2})
        EXPECT_EQ(ErrorOf([&] { list.SetListIndex(row); }).Number(), kInvalidProperty) << row;
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(rows, std::vector<int>{1});
}

TEST_F(ListExTest, AClickAnnouncesOnceAlsoOnTheChosenRow) {
    ClickRow(1);
    ClickRow(1);
    ClickRow(2);
    EXPECT_EQ(rows, (std::vector<int>{1, 1, 2}));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, 190));  // below the last row
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, list.visualRect(list.model()->index(2, 0)).center());
    EXPECT_EQ(rows.size(), 3u);
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(ListExTest, KeysWalkAndChoose) {
    list.SetListIndex(0);
    rows.clear();
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Down);  // at the end already
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_G);  // typing ahead: "Green - Blue" is chosen already
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(rows, (std::vector<int>{1, 2, 2, 0}));
}

}  // namespace
}  // namespace kelu
