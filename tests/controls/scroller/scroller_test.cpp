// The scroller: its arithmetic in tables, and drags over a real page.
// SPDX-License-Identifier: MIT
#include "controls/scroller/scroller.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "controls/scroller/move_controls_page.h"
#include "controls/scroller/scroller_line.h"

namespace kelu {
namespace {

using scroller::Mark;
using scroller::Step;

TEST(ScrollerGeometry, PageMarkAndStep) {
    EXPECT_EQ(scroller::ShiftToTop({{900, 1200}, {600, 300}}, 3000), 60 - 300) << "the upper end of a line counts";
    EXPECT_EQ(scroller::ShiftToTop({{5000, 5300}}, 3000), 60 - 3000) << "not below the control's height";
    EXPECT_EQ(scroller::PageHeight({{60, 4000}, {60, 9000, false}}, 0, 3000), 4060);
    EXPECT_EQ(scroller::PageHeight({{-940, 3000}, {3500, 20}}, -1000, 3000), 4560);
    EXPECT_EQ(scroller::PageHeight({}, 0, 3000), 3000);

    EXPECT_EQ(scroller::PositionMark(3000, 7000, -1000), (Mark{428, 15 + 1285}));  // 428.6 and 1285.7, cut
    EXPECT_EQ(scroller::PositionMark(3000, 3000, 0), (Mark{0, 3015})) << "fills the strip";
    EXPECT_EQ(scroller::PositionMark(300000, 3000000, -2700000), (Mark{270000, 30015})) << "beyond 32 bits";
    EXPECT_EQ(scroller::PositionMark(0, 0, 0), (Mark{0, 15}));

    EXPECT_EQ(scroller::DragStep(0, 3000, 4000, 500, 200), (Step{-300, -300}));
    EXPECT_EQ(scroller::DragStep(-300, 3000, 4000, 200, 900), (Step{300, 0})) << "past the top";
    EXPECT_EQ(scroller::DragStep(-300, 3000, 4000, 2000, 0), (Step{-700, -1000})) << "past the end";
    EXPECT_EQ(scroller::DragStep(0, 3000, 3000, 500, 200), (Step{0, 0})) << "a page that fits";
}

/// A scroller of 200 x 100 pixels with a label at 30, a line and a hidden button below, page down to 250.
class ScrollerTest : public testing::Test {
 protected:
    ScrollerTest() {
        scroller_.resize(200, 100);
        label_->setGeometry(10, 30, 100, 20);
        hidden_->setGeometry(10, 900, 100, 20);
        hidden_->hide();
        line_->SetEnds({150, 276 * 15}, {1500, 200 * 15});
    }

    void Show() {
        scroller_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&scroller_));
    }

    static void MoveTo(QWidget* over, QPointF to) {
        QMouseEvent move(QEvent::MouseMove, to, over->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(over, &move);
    }

    void Drag(QWidget* from, QPoint start, std::initializer_list<int> ys) {
        QTest::mousePress(from, Qt::LeftButton, {}, start);
        for (const int y : ys) MoveTo(from, QPointF(start.x(), static_cast<double>(y)));
        QTest::mouseRelease(from, Qt::LeftButton, {}, start);
    }

    QRect MarkRect() const { return scroller_.findChild<QWidget*>("ShpPos")->geometry(); }

    Scroller scroller_;
    QLabel* label_ = new QLabel("text", &scroller_);
    QPushButton* hidden_ = new QPushButton(&scroller_);
    ScrollerLine* line_ = new ScrollerLine(&scroller_);
};

TEST_F(ScrollerTest, FirstShowingBringsThePageToItsTop) {
    Show();
    EXPECT_EQ(label_->y(), 4);
    EXPECT_EQ(hidden_->y(), 874);
    EXPECT_EQ(line_->Y1(), 250 * 15);
    EXPECT_EQ(line_->geometry(), QRect(10, 174, 91, 77));
    EXPECT_EQ(scroller_.PageHeight(), 254 * 15);
    // The mark: 1 + 100 x 100 / 254 pixels.
    EXPECT_EQ(MarkRect(), QRect(0, 0, 4, 40));
    scroller_.hide();
    Show();
    EXPECT_EQ(label_->y(), 4) << "only the first showing";
}

TEST_F(ScrollerTest, PageFollowsThePointerAndStopsAtItsEnds) {
    Show();
    Drag(&scroller_, {150, 90}, {90, 60});
    EXPECT_EQ(scroller_.ScrollY(), -30 * 15);
    EXPECT_EQ(label_->y(), -26);
    EXPECT_EQ(hidden_->y(), 844) << "invisible controls move too";
    EXPECT_EQ(line_->Y2(), (174 - 30) * 15);
    EXPECT_EQ(scroller_.PageHeight(), 254 * 15) << "the page keeps its height";
    EXPECT_EQ(MarkRect().top(), 12);

    Drag(&scroller_, {150, 99}, {50, 0});
    Drag(&scroller_, {150, 99}, {0});
    EXPECT_EQ(scroller_.ScrollY(), -154 * 15);
    EXPECT_EQ(line_->Y1(), (250 - 154) * 15);
    Drag(&scroller_, {150, 0}, {60, 80, 400});
    EXPECT_EQ(scroller_.ScrollY(), 0);
    EXPECT_EQ(label_->y(), 4);
}

TEST_F(ScrollerTest, LabelsHandTheDragOn) {
    Show();
    // Down first, where the page can't follow, then 65 pixels up; the label moves along under the pointer.
    QTest::mousePress(label_, Qt::LeftButton, {}, {5, 15});
    for (const int y : {70, 45, 5}) MoveTo(label_, label_->mapFrom(&scroller_, QPointF(15.0, static_cast<double>(y))));
    EXPECT_EQ(scroller_.ScrollY(), -65 * 15);
    // On above the upper edge, where the pointer's heights are negative.
    QTest::mousePress(&scroller_, Qt::LeftButton, {}, {150, 5});
    for (const int y : {-10, -20, -30}) MoveTo(&scroller_, QPointF(150.0, static_cast<double>(y)));
    EXPECT_EQ(scroller_.ScrollY(), -100 * 15);
}

TEST_F(ScrollerTest, AuthorsMoveThePageAtDesignTimeOnly) {
    scroller_.SetMoveDown(1);
    EXPECT_EQ(label_->y(), 30);

    scroller_.SetDesignMode(true);
    Show();
    EXPECT_EQ(label_->y(), 30) << "left where the author put it";
    EXPECT_TRUE(scroller_.setProperty("MoveDown", 0));
    EXPECT_EQ(label_->y(), 50);
    EXPECT_EQ(scroller_.property("MoveDown").toInt(), 0);
    Scroller second;
    MoveControlsPage page;
    page.SetSelected({&scroller_, &second});
    page.findChild<QPushButton*>("CmdUp")->click();
    page.findChild<QPushButton*>("CmdUp")->click();
    EXPECT_EQ(label_->y(), 10);
    EXPECT_EQ(line_->Y2(), 180 * 15);
    page.findChild<QPushButton*>("cmdDown")->click();
    EXPECT_EQ(label_->y(), 30);
}

}  // namespace
}  // namespace kelu
