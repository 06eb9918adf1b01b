// The slider as its listener and its user see it: whole sequences of events, by the program and by the mouse.
// SPDX-License-Identifier: MIT
#include "controls/slider/ls_slider.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QTest>

#include "controls/property_bag/property_bag.h"
#include "controls/slider/frm_value_tip.h"
#include "platform/error.h"

namespace kelu {
namespace {

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

/// Colour in the middle of a widget pixel, at any device pixel ratio.
QColor At(const QImage& shot, int x, int y) {
    const double ratio = shot.devicePixelRatio();
    return shot.pixelColor(static_cast<int>((x + 0.5) * ratio), static_cast<int>((y + 0.5) * ratio));
}

int ErrorOf(const std::function<void()>& write) {
    try {
        write();
        return 0;
    } catch (const Error& error) {
        return error.Number();
    }
}

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

TEST_F(SliderTest, RefusedWritesChangeNothing) {
    slider_->SetValue(3);
    Heard();
    EXPECT_EQ(ErrorOf([&] { slider_->SetMin(10); }), kInvalidProperty);
    EXPECT_EQ(ErrorOf([&] { slider_->SetMax(0); }), kInvalidProperty);
    EXPECT_EQ(ErrorOf([&] { slider_->SetValue(11); }), kInvalidProperty);
    EXPECT_EQ(ErrorOf([&] { slider_->SetValue(-1); }), kInvalidProperty);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(std::tuple(slider_->Min(), slider_->Max(), slider_->Value()), std::tuple(0, 10, 3));
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

TEST_F(SliderTest, HeldThumbKeepsItsValueThoughTheRangeIsFinerThanThePixels) {
    slider_->SetMax(1000);
    slider_->SetValue(503);
    Heard();
    Press(55);
    Drag(55);
    EXPECT_EQ(slider_->Value(), 503);
    Release(55);
    EXPECT_THAT(Heard(), ElementsAre("MouseDown 0", "Click", "MouseUp 0"));
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

    slider_->SetShowValueTip(true);
    Press(20);
    window_.hide();
    EXPECT_EQ(Tip(), nullptr) << "left behind by its window";
}

TEST_F(SliderTest, ListenerMayEndTheDrag) {
    QObject::connect(slider_, &LsSlider::ValueChanged, slider_, [this] { slider_->hide(); });
    Press(78);
    EXPECT_EQ(Tip(), nullptr);
    EXPECT_EQ(slider_->Value(), 7);
}

TEST_F(SliderTest, PicturesDecideTheSize) {
    QPixmap rail(90, 24);
    rail.fill(Qt::red);
    slider_->SetRailPicture(rail);
    EXPECT_EQ(slider_->size(), QSize(116, 16)) << "not shown yet";
    slider_->SetRailStyle(LsSlider::kPictureRail);
    EXPECT_EQ(slider_->size(), QSize(94, 24));
    EXPECT_EQ(slider_->ThumbRect(), QRectF(0, 4, 16, 16));
    QPixmap thumb(20, 40);
    thumb.setDevicePixelRatio(2);
    thumb.fill(Qt::green);
    slider_->SetSliderIcon(thumb);
    EXPECT_EQ(slider_->ThumbRect(), QRectF(0, 2, 10, 20));

    const QImage shot = slider_->grab().toImage();
    EXPECT_EQ(At(shot, 5, 12), QColor(Qt::green));
    EXPECT_EQ(At(shot, 50, 0), QColor(Qt::red));
    EXPECT_EQ(At(shot, 92, 12), TranslateColor(kButtonFaceColor));
}

TEST_F(SliderTest, SunkenRailOnItsGround) {
    slider_->SetBackColor(0x332211);
    slider_->SetValue(10);
    const QImage shot = slider_->grab().toImage();
    EXPECT_EQ(At(shot, 0, 0), QColor(0x11, 0x22, 0x33));
    const SystemColors& colors = SystemColors::Current();
    EXPECT_EQ(At(shot, 20, 6), colors.buttonShadow);
    EXPECT_EQ(At(shot, 20, 7), colors.darkShadow);
    EXPECT_EQ(At(shot, 20, 8), colors.light);
    EXPECT_EQ(At(shot, 20, 9), colors.buttonHighlight);
}

TEST_F(SliderTest, PropertiesGoThroughTheStore) {
    PropertyBag untouched;
    LsSlider fresh;
    fresh.WriteProperties(untouched);
    EXPECT_THAT(untouched.Names(), IsEmpty());

    QPixmap picture(12, 12);
    picture.fill(Qt::blue);
    slider_->SetBackColor(0x333333);
    slider_->SetEnabled(false);
    slider_->SetSliderIcon(picture);
    slider_->SetRailPicture(picture);
    slider_->SetRailStyle(2);
    slider_->SetShowValueTip(false);
    slider_->SetMax(100);
    slider_->SetMin(1);
    slider_->SetValue(50);
    PropertyBag bag;
    slider_->WriteProperties(bag);
    EXPECT_EQ(bag.Names(), QStringList({"BackColor", "Enabled", "SliderIcon", "Orientation", "RailPicture", "RailStyle",
                                        "ShowValueTip", "Min", "Max", "Value"}));

    fresh.resize(112, 12);
    fresh.ReadProperties(bag);
    EXPECT_EQ(fresh.Value(), 50);
    EXPECT_EQ(fresh.size(), QSize(112, 12));
    EXPECT_DOUBLE_EQ(fresh.ThumbRect().left(), 100 * 49 / 99.0);
    PropertyBag again;
    fresh.WriteProperties(again);
    EXPECT_EQ(again.Names(), bag.Names());
    EXPECT_EQ(ErrorOf([&] {
                  bag.WriteProperty("Value", 200);
                  fresh.ReadProperties(bag);
              }),
              kInvalidProperty);
    EXPECT_EQ(fresh.Value(), 50);
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
