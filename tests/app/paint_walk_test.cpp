// Painting as it is seen: strokes under the pointer at every zoom and scroll, undo in the middle of a stroke, and
// the compare view.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QMenu>

#include "controls/note/note_bar.h"
#include "effects/catalogue/render_onto.h"
#include "effects/coordinate_box.h"
#include "tests/app/main_window_fixture.h"
#include "view/point_picker.h"

namespace kelu {
namespace {

constexpr int kNegative = 32;
constexpr int kNotch = QWheelEvent::DefaultDeltasPerStep;

struct PaintWalk : MainWindowFixture {
    /// The canvas as it is on the screen, without the ring round the pointer.
    QImage Screen() {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&canvas, &leave);
        return canvas.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    void Wheel(const QPoint& at, int notches, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent event(at, canvas.mapToGlobal(QPointF(at)), {}, {0, notches * kNotch}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas, &event);
    }
    bool Comparing() const { return window.controls.picOriginal->isVisible() && !canvas.isVisible(); }
};

struct View {
    const char* name;
    int width, height;  // of the picture
    int zoomButtons;    // clicks on Zoom In
    int ctrlNotches;    // of the wheel with Ctrl, at (200, 150)
    QPoint wheel;       // notches downwards: with Shift, and without
};

void PrintTo(const View& view, std::ostream* out) { *out << view.name; }

struct EveryView : PaintWalk, testing::WithParamInterface<View> {};

INSTANTIATE_TEST_SUITE_P(
    Views, EveryView,
    testing::Values(View{"fitted", 400, 300, 0, 0, {}}, View{"fitted and shrunk", 1500, 1000, 0, 0, {}},
                    View{"fitted and tall", 300, 1100, 0, 0, {}}, View{"free with room", 300, 200, 1, 0, {}},
                    View{"free and shrunk", 1500, 1000, 2, 0, {}},
                    View{"scrolled to the corner", 1500, 1000, 3, 0, {9, 9}},
                    View{"scrolled down", 1500, 1000, 0, 5, {0, 2}},
                    View{"scrolled both ways", 700, 600, 0, 15, {3, 2}}, View{"wide", 1500, 120, 4, 0, {2, 0}},
                    View{"magnified", 300, 200, 0, 40, {4, 5}}));

TEST_P(EveryView, StrokesLieUnderThePointer) {
    const View view = GetParam();
    OpenPhoto(view.width, view.height);
    Arm(kNegative, 6);
    for (int i = 0; i < view.zoomButtons; ++i) Click(Command::ZoomIn);
    Wheel({200, 150}, view.ctrlNotches, Qt::ControlModifier);
    Wheel({200, 150}, -view.wheel.x(), Qt::ShiftModifier);
    Wheel({200, 150}, -view.wheel.y());
    const bool whole = canvas.rect().contains(canvas.ImageRect().toAlignedRect());
    Wheel({1, 1}, 1);
    EXPECT_EQ(window.controls.note->Text(), whole ? "Hold Ctrl and turn the wheel to zoom" : "") << view.name;
    Wheel({1, 1}, -1);

    const QRect shown = canvas.ImageRect().toAlignedRect() & canvas.rect().adjusted(0, 0, -20, -20);
    const double scale = canvas.ImageRect().width() / view.width;
    ASSERT_GT(shown.width(), 40) << view.name;
    for (const QPointF part : {QPointF(0.2, 0.3), QPointF(0.5, 0.5), QPointF(0.8, 0.7)}) {
        const QPoint from(shown.left() + static_cast<int>(part.x() * shown.width()),
                          shown.top() + static_cast<int>(part.y() * shown.height()));
        const QPoint to = from + QPoint(12, 7);
        const QImage before = Screen(), picture = Canvas();
        StrokeWidget({from, from + QPoint(6, 3), to});
        // What changed on the screen is the line between the points, as thick as the brush at this scale.
        const QRect changed = Changed(before, Screen()).boundingRect();
        const QRect line(from, to);
        const double reach = 3 * scale;
        const double slack = 1.5 + scale;  // pixels of the picture don't end where the brush does
        EXPECT_NEAR(line.left() - changed.left(), reach, slack);
        EXPECT_NEAR(line.top() - changed.top(), reach, slack);
        EXPECT_NEAR(changed.right() - line.right(), reach, slack);
        EXPECT_NEAR(changed.bottom() - line.bottom(), reach, slack);
        const QPointF off = QRectF(changed).center() - QRectF(line).center();
        EXPECT_LE(std::max(std::abs(off.x()), std::abs(off.y())), 1 + scale / 2) << "not in the middle";
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Canvas(), picture);
    }
}

TEST_F(PaintWalk, UndoInTheMiddleOfAStrokeLosesNothing) {
    OpenPhoto();
    const QImage opened = Canvas();
    Arm();
    QTest::mousePress(&canvas, Qt::LeftButton, {}, Over(100, 100));
    QTest::mouseMove(&canvas, Over(150, 100));
    const QImage half = Canvas();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), opened);
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), half);
    Key(Qt::Key_Z, Qt::ControlModifier);
    QTest::mouseMove(&canvas, Over(250, 200));
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, Over(250, 200));
    EXPECT_NE(Canvas(), opened);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), opened);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), opened) << "nothing is left to undo";
}

TEST_F(PaintWalk, KeysAndAPenPaintAsTheMouseDoes) {
    OpenPhoto();
    Arm();
    const QPoint from = Over(100, 100);
    const auto startAt = [&](const QPoint& at) {
        QTest::mouseMove(&canvas, at + QPoint(7, 7));  // a mouse that is there already does not move
        QTest::mouseMove(&canvas, at);
    };
    const auto hold = [&](Qt::Key key, std::initializer_list<std::pair<Qt::Key, Qt::KeyboardModifiers>> moves,
                          Qt::KeyboardModifiers modifiers = {}) {
        canvas.setFocus();
        QTest::keyPress(&canvas, key, modifiers);
        for (const auto& [arrow, with] : moves) QTest::keyClick(&canvas, arrow, with);
        QTest::keyRelease(&canvas, key);
        const QImage painted = Canvas();
        Key(Qt::Key_Z, Qt::ControlModifier);
        return painted;
    };
    const QImage opened = Canvas();
    startAt(from + QPoint(5, 5));
    StrokeWidget({from, from + QPoint(10, 0), from + QPoint(10, 1), from + QPoint(0, 1)});
    const QImage painted = Canvas();
    Key(Qt::Key_Z, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        startAt(from);
        EXPECT_EQ(hold(key, {{Qt::Key_Right, Qt::ShiftModifier},
                             {Qt::Key_Down, Qt::NoModifier},
                             {Qt::Key_Left, Qt::ShiftModifier}}),
                  painted);
    }
    Key(Qt::Key_Y, Qt::ControlModifier);
    startAt(from);
    ASSERT_NE(Canvas().pixel(104, 100), opened.pixel(104, 100));
    const QImage restored = hold(Qt::Key_Space, {{Qt::Key_Right, Qt::ShiftModifier}}, Qt::ControlModifier);
    EXPECT_EQ(restored.pixel(104, 100), opened.pixel(104, 100)) << "with Ctrl the original comes back";
    Key(Qt::Key_Z, Qt::ControlModifier);

    // The mouse's events follow from the pen's, as the toolkit makes them.
    const auto penStroke = [&](double pressure, int tilt) {
        const auto pen = [&](QEvent::Type type) {
            QTabletEvent event(type, QPointingDevice::primaryPointingDevice(), from, from, pressure,
                               static_cast<float>(tilt), 0, 0, 0, 0, Qt::NoModifier, Qt::LeftButton,
                               type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
            QCoreApplication::sendEvent(&canvas, &event);
        };
        pen(QEvent::TabletPress);
        QTest::mousePress(&canvas, Qt::LeftButton, {}, from);
        pen(QEvent::TabletMove);
        QTest::mouseMove(&canvas, from + QPoint(60, 0));
        pen(QEvent::TabletRelease);
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, from + QPoint(60, 0));
        const int high = Changed(opened, Canvas()).boundingRect().height();
        Key(Qt::Key_Z, Qt::ControlModifier);
        return high;
    };
    const int full = penStroke(1, 0);
    EXPECT_NEAR(penStroke(0.5, 0), full / 2.0, 2);
    EXPECT_EQ(penStroke(0.5, 60), full) << "held flat";
    EXPECT_EQ(window.surfaces.picCanvas.Brush().size, 20);
}

TEST_F(PaintWalk, APickedPointIsUsedAsItIsUntilABoxIsEdited) {
    OpenPhoto(1600, 1200);
    Choose(14);
    ASSERT_TRUE(panel.cmdPick->isVisible());
    auto* picker = canvas.findChild<PointPicker*>();
    const QImage opened = Canvas();
    QTest::mouseClick(panel.cmdPick, Qt::LeftButton);
    const QPoint there = Over(1234, 321);
    QTest::mouseClick(picker, Qt::LeftButton, {}, there);
    EXPECT_FALSE(panel.cmdPick->isChecked() || state.ImageDirty);
    EXPECT_TRUE(canvas.hasFocus());
    const QPoint point(panel.XCoordinate(), panel.YCoordinate());
    EXPECT_LE((point - QPoint(1234, 321)).manhattanLength(), 4);
    EXPECT_EQ(panel.txtXCoord->text(), "999");
    EXPECT_EQ(panel.txtYCoord->text(), QString::number(point.y()));
    Apply();
    EffectInputs inputs;
    for (std::size_t i = 0; i < 3; ++i) inputs.slider[i] = panel.sldValue[i]->Value();
    inputs.x = point.x();
    inputs.y = point.y();
    EXPECT_EQ(window.surfaces.picPen.Picture(), RenderEffectOn(opened, 14, inputs));
    QTest::keyClicks(panel.txtYCoord, "7");
    EXPECT_EQ(panel.XCoordinate(), 999);
    QTest::mouseClick(panel.cmdPick, Qt::LeftButton);
    QTest::mouseClick(picker, Qt::LeftButton, {}, there);
    Choose(14);
    EXPECT_LE(panel.XCoordinate(), 999);
    QTest::mouseClick(panel.cmdPick, Qt::LeftButton);
    Choose(kGrayscale);
    EXPECT_FALSE(panel.cmdPick->isChecked() || picker->isVisible()) << "another effect ends the picking";

    // The sliders' menu.
    Choose(14);
    LsSlider& slider = *panel.sldValue[0];
    const int initial = slider.Value();
    slider.SetValue(initial + 3);
    Apply();
    slider.SetValue(initial + 1);
    const auto choose = [&](int row) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, slider.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&slider, &event);
        auto* menu = slider.findChild<QMenu*>();
        menu->actions().at(row)->trigger();
        delete menu;
        return slider.Value();
    };
    EXPECT_EQ(choose(0), initial + 3);
    EXPECT_EQ(choose(1), initial);
}

TEST_F(PaintWalk, CompareShowsTheOriginalWholeAndComesBack) {
    OpenPhoto(900, 700);
    const QImage opened = Screen();
    Click(Command::Original);
    EXPECT_FALSE(Comparing()) << "a fresh picture has nothing to compare";
    Arm();
    Stroke({{200, 200}, {400, 300}});
    Wheel({300, 200}, 10, Qt::ControlModifier);
    Wheel({300, 200}, -3);
    const QImage zoomed = Screen(), painted = Canvas();

    Click(Command::Original);
    ASSERT_TRUE(Comparing());
    EXPECT_EQ(window.controls.picOriginal->grab().toImage().convertToFormat(QImage::Format_RGB32), opened);
    const QPoint middle = window.controls.picOriginal->rect().center();
    QTest::mousePress(window.controls.picOriginal, Qt::LeftButton, {}, middle);
    QTest::mouseMove(window.controls.picOriginal, middle + QPoint(30, 30));
    QTest::mouseRelease(window.controls.picOriginal, Qt::LeftButton, {}, middle + QPoint(30, 30));
    EXPECT_EQ(Canvas(), painted);
    Click(Command::Original);
    ASSERT_FALSE(Comparing());
    EXPECT_EQ(Screen(), zoomed) << "zoom and scroll are those from before";
}

}  // namespace
}  // namespace kelu
