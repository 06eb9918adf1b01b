// The pager's arithmetic in tables, then wheel, arrows, drag and focus on a real child.
// SPDX-License-Identifier: MIT
#include "controls/pager/pager.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QWheelEvent>

#include "controls/pager/pager_geometry.h"
#include "controls/toolbox/toolbox.h"

namespace kelu {
namespace {

TEST(PagerGeometry, ArrowsShowOnlyWhereSomethingIsHidden) {
    struct Row {
        int length, child, offset;
        PagerPlan plan;
    };
    const Row rows[] = {
        {117, 117, 0, {false, false, 16, 0, 0}},     // just fits
        {117, 60, 40, {false, false, 16, 0, 0}},     // an offset has no use
        {117, 201, 0, {false, true, 16, 0, 84}},     // at the beginning
        {117, 201, 40, {true, true, 16, 40, 84}},    // between
        {117, 201, 84, {true, false, 16, 84, 84}},   // at the end
        {117, 201, 500, {true, false, 16, 84, 84}},  // held
        {117, 201, -5, {false, true, 16, 0, 84}},
        {20, 100, 0, {false, true, 10, 0, 80}},  // too short for whole arrows
        {0, 100, 0, {false, true, 0, 0, 100}},
    };
    for (const Row& row : rows) {
        const PagerPlan plan = PlanPager(row.length, row.child, row.offset);
        EXPECT_EQ(plan.back, row.plan.back) << row.length << " " << row.offset;
        EXPECT_EQ(plan.forward, row.plan.forward) << row.length << " " << row.offset;
        EXPECT_EQ(plan.arrowLength, row.plan.arrowLength);
        EXPECT_EQ(plan.offset, row.plan.offset);
        EXPECT_EQ(plan.maxOffset, row.plan.maxOffset);
    }
}

TEST(PagerGeometry, BringsAPieceOutFromUnderTheArrowsByTheShortestWay) {
    struct Row {
        int offset, first, end, found;
    };
    const Row rows[] = {
        {0, 0, 50, 0},                                                // in sight
        {0, 60, 84, 0},                                               // ends where the arrow begins
        {0, 60, 85, 1},                                               // one pixel under the arrow
        {100, 116, 140, 100}, {100, 115, 140, 99},  {100, 0, 24, 0},  // the beginning: no arrow is left there
        {100, 376, 400, 300}, {100, 120, 300, 104},                   // longer than the room: from its beginning
    };
    for (const Row& row : rows)
        EXPECT_EQ(OffsetShowing(100, 400, row.offset, row.first, row.end), row.found) << row.offset << " " << row.first;
}

class PagerTest : public testing::Test {
 protected:
    PagerTest() {
        box = new Toolbox;
        box->SetButtonSize({40, 40});
        box->SetMargin(0);
        box->SetGap(0);
        for (int i = 1; i <= 20; ++i) box->AddButton(QStringLiteral("key%1").arg(i));
        QObject::connect(box, &Toolbox::ButtonClicked, box, [this](int index) { clicked.push_back(index); });
        pager.SetChild(box);
        pager.resize(60, 200);
        pager.show();
        pager.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pager));
    }
    void Wheel(int angle, QPoint pixels = {}) {
        const QPointF at(30, 100);
        QWheelEvent event(at, pager.mapToGlobal(at), pixels, {0, angle}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&pager, &event);
    }
    QAbstractButton* Arrow(const char* name) {
        for (auto* button : pager.findChildren<QAbstractButton*>())
            if (button->accessibleName() == QLatin1String(name)) return button;
        return nullptr;
    }
    bool Settles(int offset) {
        return QTest::qWaitFor([&] { return pager.Offset() == offset; }, 2000);
    }

    Pager pager;
    Toolbox* box;
    std::vector<int> clicked;
};

TEST_F(PagerTest, ScrollsByWheelArrowsAndProgram) {
    EXPECT_EQ(pager.MaxOffset(), 20 * 40 - 200);
    EXPECT_FALSE(Arrow("Scroll up")->isVisible());
    Wheel(-120);
    EXPECT_TRUE(Settles(48));
    EXPECT_TRUE(Arrow("Scroll up")->isVisible());
    Wheel(0, {0, -7});  // a touch pad's pixels go one to one, at once
    EXPECT_EQ(pager.Offset(), 55);
    QTest::mouseClick(Arrow("Scroll down"), Qt::LeftButton);
    EXPECT_TRUE(Settles(55 + 200 - 48));
    pager.SetOffset(100000);
    EXPECT_EQ(pager.Offset(), 600);
    EXPECT_FALSE(Arrow("Scroll down")->isVisible());
    EXPECT_EQ(box->y(), -600);
    Wheel(-120);
    QTest::qWait(30);
    EXPECT_EQ(pager.Offset(), 600);
}

TEST_F(PagerTest, TheFocusedButtonComesIntoSight) {
    box->Button(1)->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 9; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), box->Button(10));
    EXPECT_TRUE(Settles(400 + kPagerArrow - 200));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    EXPECT_TRUE(Settles(0));
    // A dialog takes the focus and gives it back: what the user scrolled to meanwhile stays.
    pager.SetOffset(300);
    QDialog dialog(pager.window());
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    dialog.close();
    ASSERT_TRUE(QTest::qWaitForWindowActive(pager.window()));
    EXPECT_EQ(QApplication::focusWidget(), box->Button(1));
    EXPECT_TRUE(Settles(300));
}

TEST_F(PagerTest, ADragScrollsAndDoesNotClickAClickStillDoes) {
    QWidget* button = box->Button(3);
    const QPoint from(20, 20);
    QTest::mousePress(button, Qt::LeftButton, {}, from);
    // The child moves under the pointer, so each step is given where the pointer then lies in the button.
    const QPoint press = button->mapToGlobal(from);
    for (const int up : {10, 30, 60}) QTest::mouseMove(button, button->mapFromGlobal(press - QPoint(0, up)));
    for (const int up : {30, 60}) {
        QMouseEvent move(QEvent::MouseMove, button->mapFromGlobal(press - QPoint(0, up)), press - QPoint(0, up),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &move);
    }
    EXPECT_EQ(pager.Offset(), 60);
    QTest::mouseRelease(button, Qt::LeftButton, {}, button->mapFromGlobal(press - QPoint(0, 60)));
    EXPECT_TRUE(clicked.empty());
    QTest::mouseClick(box->Button(5), Qt::LeftButton);
    EXPECT_EQ(clicked, std::vector<int>{5});
}

}  // namespace
}  // namespace kelu
