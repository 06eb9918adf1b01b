// The main job through the real window: open, choose, apply, brush with the mouse, undo, save, leave.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "controls/list_ex/list_ex.h"
#include "effects/catalogue/catalogue.h"
#include "pictures/picture_file.h"
#include "tests/app/main_window_fixture.h"

namespace kelu {
namespace {

using MainWindowTest = MainWindowFixture;

struct ReadFromTheRight {
    ReadFromTheRight() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    ~ReadFromTheRight() { QApplication::setLayoutDirection(Qt::LayoutDirectionAuto); }
};

struct MirroredWindow : ReadFromTheRight, MainWindowFixture {};

TEST_F(MirroredWindow, IsSeenFromTheOtherSideButForPictureAndCompass) {
    // Device-independent pixels from the parent's right edge, as from the left one in other languages.
    const std::pair<const char*, int> places[] = {
        {"picTB", 6},         {"cmdOpen", 8},   {"cmdUndo", 149}, {"cmdMin", 0}, {"picCanvas", 32},
        {"pnlSettings", 663}, {"cmdApply", 23}, {"lblBS", 8},     {"sBar1", 0},  {"pBar1", 224}};
    for (const auto& [name, right] : places) {
        const auto* control = window.findChild<QWidget*>(QString::fromLatin1(name));
        EXPECT_EQ(control->parentWidget()->width() - 1 - control->geometry().right(), right) << name;
    }
    EXPECT_LT(panel.TBCompass->Button(4)->x(), panel.TBCompass->Button(5)->x()) << "west is at the left";
    OpenPhoto();
    Arm();
    const QImage original = Canvas();
    Stroke({{30, 100}, {60, 100}});
    EXPECT_TRUE(QRect(18, 88, 55, 25).contains(Changed(original, Canvas()).boundingRect()));
}

TEST_F(MainWindowTest, BrushesAnEffectOnTakesItBackAndSavesIt) {
    OpenPhoto();
    const QImage original = Canvas();
    settings.Write(settings::kReminder, true);
    Arm();
    EXPECT_EQ(dialog.shown.size(), 1u) << "the reminder";
    EXPECT_FALSE(state.ImageDirty) << "a render changes nothing that the user sees";
    EXPECT_EQ(Canvas(), original);

    Stroke({{100, 100}, {150, 100}, {200, 100}});
    const QImage painted = Canvas();
    const QImage pen = window.surfaces.picPen.Picture();
    EXPECT_TRUE(state.ImageDirty);
    int changed = 0;
    for (int y = 0; y < painted.height(); ++y)
        for (int x = 0; x < painted.width(); ++x) {
            const double dx = x < 100 ? 100 - x : x > 200 ? x - 200 : 0;
            const double distance = std::sqrt(dx * dx + (y - 100.0) * (y - 100.0));
            if (distance < 8) {
                ASSERT_EQ(painted.pixel(x, y), pen.pixel(x, y)) << x << "," << y << " lies inside the stroke";
            } else if (distance > 12) {
                ASSERT_EQ(painted.pixel(x, y), original.pixel(x, y)) << x << "," << y << " lies outside the stroke";
            }
            changed += painted.pixel(x, y) != original.pixel(x, y);
        }
    EXPECT_GT(changed, 1500);

    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), original);
    EXPECT_TRUE(state.ImageDirty);
    QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), painted);
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Canvas(), painted);

    saveDialog.names = {folder.filePath("out.png")};
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ReadPicture(folder.filePath("out.png")), painted);
    EXPECT_FALSE(state.ImageDirty);
    EXPECT_FALSE(state.ImageActive);
}

TEST_F(MainWindowTest, PressesAloneOpenALevelButPaintNothing) {
    OpenPhoto();
    const QImage original = Canvas();
    Stroke({{50, 50}, {90, 90}});
    EXPECT_FALSE(state.ImageDirty) << "unarmed: nothing at all";
    EXPECT_FALSE(window.surfaces.picCanvas.CanUndo());

    Choose(kEmboss);
    Apply();
    Stroke({{50, 50}, {90, 90}}, Qt::RightButton);
    EXPECT_EQ(Canvas(), original);
    EXPECT_TRUE(state.ImageDirty);
    EXPECT_TRUE(window.surfaces.picCanvas.CanUndo());

    QTest::mouseClick(&canvas, Qt::LeftButton, {}, Over(50, 50));
    EXPECT_EQ(Canvas(), original);
    QTest::mouseClick(&canvas, Qt::LeftButton, Qt::ShiftModifier, Over(120, 50));
    EXPECT_NE(Canvas().copy(60, 45, 50, 10), original.copy(60, 45, 50, 10)) << "a line from the click before";
}

TEST_F(MainWindowTest, StatusBarTellsThePictureTheVersionAndThePercentShown) {
    EXPECT_TRUE(window.controls.sBar1->PanelText(1).endsWith("  by Tarvane Design"));
    EXPECT_FALSE(window.controls.picZoomContainer->isVisible());
    OpenPhoto();
    EXPECT_EQ(window.controls.sBar1->PanelText(2), "photo.png - (400 x 300 / 24 bits)");
    EXPECT_TRUE(window.controls.picZoomContainer->isVisible());
    window.Run(Command::ZoomIn);
    EXPECT_EQ(Status(), "photo.png - [400 x 300 / 24 bits / 110%]");
    Arm();
    Stroke({{150, 150}, {180, 150}});
    window.Run(Command::Undo);
    EXPECT_EQ(Status(), "photo.png - [400 x 300 / 24 bits / 110%]") << "undo keeps a free view";
    dialog.answers = {MsgAnswer::No};
    OpenPhoto(4000, 1000);
    window.Run(Command::ZoomReset);
    const int before = canvas.ZoomPercent();
    window.resize(window.width() + 300, window.height());
    QCoreApplication::processEvents();
    EXPECT_GT(canvas.ZoomPercent(), before);
    EXPECT_TRUE(Status().endsWith(QStringLiteral(" %1%]").arg(canvas.ZoomPercent())));
}

TEST_F(MainWindowTest, ThereIsAlwaysAWayOutOfTheCompareView) {
    OpenPhoto();
    Arm();
    Stroke({{50, 50}, {90, 90}});
    Click(Command::Original);
    ASSERT_TRUE(window.controls.picOriginal->isVisible());
    dialog.answers = {MsgAnswer::No};
    Drop(MakePhoto("next.png", 120, 90));
    EXPECT_EQ(window.surfaces.picOriginal.ImageWidth(), 120) << "the original takes drops, too";
    EXPECT_FALSE(canvas.isVisible());
    Click(Command::Original);
    EXPECT_TRUE(canvas.isVisible());
    Click(Command::Original);
    EXPECT_TRUE(canvas.isVisible()) << "a fresh picture has nothing to compare";
}

TEST_F(MainWindowTest, TheTitleBarMovesTheWindowOnceThePointerDoesAndTellsADoubleClick) {
    QWidget& title = *window.controls.picTitleBar;
    const QPoint grip(400, 20);
    const QPoint before = window.pos();
    const QPoint press = title.mapToGlobal(grip);
    const auto moveTo = [&](const QPoint& way) {
        QMouseEvent move(QEvent::MouseMove, title.mapFromGlobal(press + way), press + way, Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&title, &move);
    };
    QTest::mousePress(&title, Qt::LeftButton, {}, grip);
    moveTo({2, 1});
    EXPECT_EQ(window.pos(), before) << "a hand that trembles is no drag";
    moveTo({30, 12});
    EXPECT_EQ(window.pos(), before + QPoint(30, 12));
    QTest::mouseRelease(&title, Qt::LeftButton, {}, grip);
    EXPECT_FALSE(state.WindowMaximised);
    for (const bool maximised : {true, false}) {
        QTest::mouseClick(&title, Qt::LeftButton, {}, grip);
        QTest::mouseDClick(&title, Qt::LeftButton, {}, grip);
        EXPECT_EQ(state.WindowMaximised, maximised);
    }
}

}  // namespace
}  // namespace kelu
