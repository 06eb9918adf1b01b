// Painting as it is seen: strokes under the pointer at every zoom and scroll, undo in the middle of a stroke, and
// the compare view.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "pictures/picture_file.h"
#include "tests/app/main_window_fixture.h"

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

    // The other commands go on working on the hidden canvas.
    Click(Command::Original);
    Key(Qt::Key_Z, Qt::ControlModifier);
    saveDialog.names = {folder.filePath("out.png")};
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ReadPicture(folder.filePath("out.png")), ReadPicture(folder.filePath("photo.png")));
    Click(Command::Original);
    EXPECT_TRUE(Comparing()) << "saved: no way back before the next change";
    Key(Qt::Key_Y, Qt::ControlModifier);
    Click(Command::Original);
    EXPECT_FALSE(Comparing());
    EXPECT_EQ(Canvas(), painted);
}

}  // namespace
}  // namespace kelu
