// The slider: its arithmetic in tables worked out by hand, and whole sequences of events by the program and by the
// mouse.
// SPDX-License-Identifier: MIT
#include "controls/slider/ls_slider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QDialog>
#include <QTest>
#include <limits>

#include "controls/slider/frm_value_tip.h"
#include "controls/slider/slider_geometry.h"

namespace kelu {
namespace {

using namespace slider;

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr Direction kAcross = Direction::kHorizontal;
constexpr Direction kUp = Direction::kVertical;

Parts Bar(Direction direction, int length, QSize thumb = {16, 16}) {
    return {direction, direction == kAcross ? QSize(length, 16) : QSize(16, length), thumb, {}};
}

TEST(SliderGeometry, ValueToThumb) {
    const struct {
        Direction direction;
        int length;
        Range range;
        int value;
        double place;
    } rows[] = {
        {kAcross, 116, {0, 10}, 0, 0},
        {kAcross, 116, {0, 10}, 7, 70},
        {kAcross, 116, {0, 10}, 10, 100},
        {kAcross, 117, {1, 100}, 50, 101 * 49 / 99.0},
        {kAcross, 66, {0, 1000}, 503, 25.15},
        {kAcross, 116, {-255, 255}, 0, 50},
        {kUp, 116, {0, 10}, 0, 100},
        {kUp, 116, {0, 10}, 10, 0},
        {kUp, 116, {-4, 4}, 3, 12.5},
        {kAcross, 116, {kLeast, kMost}, kMost, 100},
        {kAcross, 116, {kLeast, kMost}, kLeast, 0},
        {kAcross, 16, {0, 10}, 5, 0},
    };
    for (const auto& row : rows) {
        EXPECT_DOUBLE_EQ(ThumbPlace(Bar(row.direction, row.length), row.range, row.value), row.place)
            << row.length << " pixels, value " << row.value;
    }
}

TEST(SliderGeometry, ThumbToValue) {
    const struct {
        Direction direction;
        int length;
        Range range;
        double place;
        int value;
    } rows[] = {
        {kAcross, 116, {0, 10}, 44, 4},
        {kAcross, 116, {0, 10}, 46, 5},
        // The exact middle between two steps goes to the even value, counted from 0 and not from the minimum.
        {kAcross, 116, {0, 1}, 50, 0},
        {kAcross, 116, {1, 2}, 50, 2},
        {kAcross, 116, {-1, 0}, 50, 0},
        {kAcross, 116, {0, 10}, 45, 4},
        {kAcross, 116, {0, 10}, 55, 6},
        {kAcross, 65, {0, 7}, 3.5, 0},
        // 1 / 6 of 9 is exactly one and a half, although 1 / 6 is no exact fraction.
        {kAcross, 22, {0, 9}, 1, 2},
        {kAcross, 22, {0, 9}, 3, 4},
        {kUp, 116, {0, 10}, 0, 10},
        {kUp, 116, {0, 10}, 100, 0},
        {kUp, 116, {0, 1}, 50, 0},
        {kAcross, 116, {kLeast, kMost}, 0, kLeast},
        {kAcross, 116, {kLeast, kMost}, 100, kMost},
        {kAcross, 116, {kLeast, kMost}, 50, 0},
        // No travel: the value stays.
        {kAcross, 16, {0, 10}, 0, 3},
        {kUp, 10, {0, 10}, 0, 3},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ValueAtPlace(Bar(row.direction, row.length), row.range, row.place, 3), row.value)
            << row.length << " pixels, range " << row.range.min << " to " << row.range.max << ", place " << row.place;
    }
}

TEST(SliderGeometry, EveryValueSurvivesItsOwnPlace) {
    for (const Direction direction : {kAcross, kUp}) {
        for (const int length : {17, 40, 117, 121}) {
            const Parts parts = Bar(direction, length);
            const Range range{-255, 255};
            for (int value = range.min; value <= range.max; ++value) {
                ASSERT_EQ(ValueAtPlace(parts, range, ThumbPlace(parts, range, value), 0), value) << length << " pixels";
            }
        }
    }
}

using testing::ElementsAre;
using testing::IsEmpty;

/// A horizontal slider of 116 pixels, so that the thumb has 100 pixels of travel, and everything it raises.
class SliderTest : public testing::Test {
 protected:
    SliderTest() {
        window_.resize(300, 300);
        slider_ = new LsSlider(&window_);
        slider_->SetOrientation(LsSlider::kHorizontal);
        slider_->setGeometry(50, 60, 116, 24);
        QObject::connect(slider_, &LsSlider::ValueChanged, slider_, [this] { Note("ValueChanged"); });
        QObject::connect(slider_, &LsSlider::ArrivedFirst, slider_, [this] { Note("ArrivedFirst"); });
        QObject::connect(slider_, &LsSlider::ArrivedLast, slider_, [this] { Note("ArrivedLast"); });
        QObject::connect(slider_, &LsSlider::Click, slider_, [this] { heard_.push_back("Click"); });
        QObject::connect(slider_, &LsSlider::MouseDown, slider_,
                         [this](int shift) { heard_.push_back("MouseDown " + std::to_string(shift)); });
        QObject::connect(slider_, &LsSlider::MouseUp, slider_,
                         [this](int shift) { heard_.push_back("MouseUp " + std::to_string(shift)); });
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
    }

    void Note(const char* event) { heard_.push_back(event + (" " + std::to_string(slider_->Value()))); }

    std::vector<std::string> Heard() { return std::exchange(heard_, {}); }

    void Press(int x, int y = 8, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(slider_, Qt::LeftButton, keys, {x, y});
    }
    void Drag(int x, int y = 8) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, y), slider_->mapToGlobal(QPointF(x, y)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(slider_, &move);
    }
    void Release(int x, int y = 8) { QTest::mouseRelease(slider_, Qt::LeftButton, {}, {x, y}); }

    static frmValueTip* Tip() { return frmValueTip::Loaded(); }

    QWidget window_;
    LsSlider* slider_ = nullptr;
    std::vector<std::string> heard_;
};

TEST_F(SliderTest, WritesFromTheProgram) {
    slider_->SetValue(4);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 4"));
    EXPECT_EQ(slider_->ThumbRect(), QRectF(40, 0, 16, 16));
    slider_->SetValue(4);
    EXPECT_THAT(Heard(), IsEmpty());
    slider_->SetValue(10);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 10", "ArrivedLast 10"));
    slider_->SetValue(0);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 0", "ArrivedFirst 0"));

    // A new maximum waits for the next value; a new minimum is at once the value.
    slider_->SetValue(5);
    slider_->SetMax(20);
    EXPECT_EQ(slider_->ThumbRect().left(), 50);
    Heard();
    slider_->SetMin(2);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 2", "ArrivedFirst 2"));
    EXPECT_EQ(slider_->ThumbRect().left(), 0);
    slider_->SetValue(11);
    EXPECT_EQ(slider_->ThumbRect().left(), 50);
    // The new minimum is the value already: nothing is raised, yet the thumb stands at its end.
    Heard();
    slider_->SetMin(11);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(slider_->ThumbRect().left(), 0);
}

TEST_F(SliderTest, DragByTheThumb) {
    Press(3, 8, Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_THAT(Heard(), ElementsAre("MouseDown 5"));
    Drag(6);  // less than half a step
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(slider_->ThumbRect().left(), 0);
    Drag(9);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 1"));
    EXPECT_EQ(slider_->ThumbRect().left(), 10);
    Drag(500, -40);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 10", "ArrivedLast 10"));
    Drag(510, -40);
    EXPECT_THAT(Heard(), IsEmpty());
    Release(510, -40);  // outside: no click
    EXPECT_THAT(Heard(), ElementsAre("MouseUp 0"));
    Drag(3);
    EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(SliderTest, PressOnTheRailJumpsAndDragsOn) {
    Press(78);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 7", "MouseDown 0"));
    EXPECT_EQ(slider_->ThumbRect().left(), 70);
    Drag(68);
    Release(68);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 6", "Click", "MouseUp 0"));
}

TEST_F(SliderTest, VerticalDragReachesTheMaximumAtTheTopOnce) {
    slider_->SetOrientation(LsSlider::kVertical);
    slider_->setGeometry(50, 60, 40, 116);
    EXPECT_EQ(slider_->size(), QSize(16, 116));
    EXPECT_EQ(slider_->ThumbRect().topLeft(), QPointF(0, 100));
    Press(8, 108);
    Drag(8, -300);
    Drag(8, -310);
    Release(8, -310);
    EXPECT_THAT(Heard(), ElementsAre("MouseDown 0", "ValueChanged 10", "ArrivedLast 10", "MouseUp 0"));
}

TEST_F(SliderTest, OtherButtonsAndTheDisabledSlider) {
    QTest::mouseClick(slider_, Qt::RightButton, {}, {80, 8});
    EXPECT_THAT(Heard(), IsEmpty());
    slider_->SetEnabled(false);
    Press(80);
    EXPECT_THAT(Heard(), IsEmpty());
    Release(80);
    EXPECT_THAT(Heard(), ElementsAre("Click"));
    slider_->SetEnabled(true);
    // Another button let go ends the drag.
    Press(3);
    QTest::mouseRelease(slider_, Qt::RightButton, {}, {3, 8});
    EXPECT_THAT(Heard(), ElementsAre("MouseDown 0", "MouseUp 0"));
    QTest::keyClick(slider_, Qt::Key_Right);
    EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(SliderTest, TipLivesBetweenPressAndRelease) {
    EXPECT_EQ(Tip(), nullptr);
    Press(78);
    ASSERT_NE(Tip(), nullptr);
    EXPECT_TRUE(Tip()->isVisible());
    EXPECT_FALSE(Tip()->isActiveWindow());
    EXPECT_EQ(Tip()->Text(), "7");
    const QPoint thumb = slider_->mapToGlobal(QPoint(70, 0));
    const QRect before = Tip()->geometry();
    EXPECT_LE(std::abs(2 * before.left() + before.width() - (2 * thumb.x() + 16)), 1) << "not centred";
    EXPECT_EQ(before.bottom() + 1, thumb.y() - 2);
    Drag(98);
    EXPECT_EQ(Tip()->Text(), "9");
    EXPECT_EQ(Tip()->geometry(), before.translated(20, 0));
    Release(98);
    EXPECT_EQ(Tip(), nullptr);

    slider_->SetShowValueTip(false);
    Press(20);
    EXPECT_EQ(Tip(), nullptr);
    Release(20);

    // What takes the release away ends the drag, and the tip with it.
    slider_->SetShowValueTip(true);
    QDialog question(&window_);
    question.setModal(true);
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"hidden", [&] { window_.hide(), window_.show(); }},
        {"disabled", [&] { window_.setEnabled(false), window_.setEnabled(true); }},
        {"behind a question", [&] { question.show(), question.hide(); }},
        {"its listener hides it", [&] { slider_->hide(), slider_->show(); }},
    };
    for (const auto& [what, end] : ends) {
        Press(20);
        ASSERT_NE(Tip(), nullptr) << what;
        end();
        EXPECT_EQ(Tip(), nullptr) << what;
        const int value = slider_->Value();
        Drag(90);
        EXPECT_EQ(slider_->Value(), value) << what;
    }
}

TEST_F(SliderTest, TheWheelMovesByOneStepANotch) {
    const auto turn = [this](int eighths) {
        QWheelEvent event({5, 5}, slider_->mapToGlobal(QPointF(5, 5)), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(slider_, &event);
        return slider_->Value();
    };
    EXPECT_EQ(turn(120), 1);
    ASSERT_NE(Tip(), nullptr);
    EXPECT_EQ(Tip()->Text(), "1");
    EXPECT_EQ(turn(60), 1) << "half a notch";
    EXPECT_EQ(turn(60), 2);
    EXPECT_EQ(turn(-3 * 120), 0) << "not below the least";
    EXPECT_EQ(turn(40 * 120), 10);
    EXPECT_TRUE(QTest::qWaitFor([] { return !Tip(); }, 3000)) << "the tip goes by itself";
    slider_->SetEnabled(false);
    EXPECT_EQ(turn(-120), 10);
}

TEST_F(SliderTest, ScreenReaderReadsAndSetsTheValue) {
    slider_->setAccessibleName("Brush Size");
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(slider_);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Slider);
    EXPECT_EQ(reader->text(QAccessible::Name), "Brush Size");
    ASSERT_NE(reader->valueInterface(), nullptr);
    EXPECT_EQ(reader->valueInterface()->maximumValue().toInt(), 10);
    reader->valueInterface()->setCurrentValue(12);
    EXPECT_THAT(Heard(), ElementsAre("ValueChanged 10", "ArrivedLast 10"));
    EXPECT_EQ(reader->text(QAccessible::Value), "10");
}

}  // namespace
}  // namespace kelu
