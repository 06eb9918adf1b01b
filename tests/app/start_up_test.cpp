// The start of the program, what its settings do, and the reminder that one of them turns off.
// SPDX-License-Identifier: MIT
#include "app/start_up.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "app/paint_reminder.h"
#include "capture/capture_settings.h"
#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "effects/effect_settings.h"
#include "platform/temporary_folder.h"
#include "tests/app/main_window_fixture.h"
#include "tests/support/kept_notes.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

struct StartUpTest : MainWindowFixture {
    void SetUp() override {}  // what the start finds is for each test to set
};

TEST_F(StartUpTest, SetsTheWindowUp) {
    const QString leftOver = QDir(TemporaryFolder()).filePath("_kelutmpimg.tif");
    WriteBytes(leftOver, {});
    settings.WriteText(settings::kResize.key, "65537");  // 1 in sixteen bits
    settings.Write(settings::kSelector, false);
    settings.Write(settings::kDevice, 7);
    MainWindowFixture::SetUp();
    EXPECT_FALSE(QFile::exists(leftOver));
    EXPECT_FALSE(Canvas().isNull()) << "the placeholder";
    EXPECT_EQ(state.GraySelect, 1);
    EXPECT_EQ(state.CompassDirection, 3);
    EXPECT_NE(state.ResizeOnOpen, 1);
    EXPECT_EQ(window.controls.selectors->lstSFX->Count(), 48);
    EXPECT_TRUE(window.controls.selectors->lstSFX->isVisible());
    EXPECT_FALSE(window.controls.selectors->pagerTB1->isVisible());
    EXPECT_TRUE(state.CameraMissing) << "the stored camera is gone";
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(StartUpTest, TheSplashEndsAtAClickAndNotAtADrag) {
    window.Start();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QWidget& cover = *window.controls.picCover;
    QTest::mousePress(&cover, Qt::LeftButton, {}, {300, 300});
    QTest::mouseRelease(&cover, Qt::LeftButton, {}, {340, 300});
    EXPECT_TRUE(cover.isVisible());
    QTest::mouseClick(&cover, Qt::LeftButton, {}, {300, 300});
    EXPECT_FALSE(cover.isVisible());
    EXPECT_TRUE(canvas.isVisible());
}

TEST_F(StartUpTest, EnterEndsTheSplashAndPressesNothingBehindIt) {
    window.Start();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(window.controls.picCover->isVisible());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(StartUpTest, ASecondInstanceEndsWithoutAWord) {
    anotherRuns = true;
    EXPECT_FALSE(window.Start());
    EXPECT_TRUE(camera.calls.isEmpty());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST(PaintReminder, StopsOnceItsBoxIsTicked) {
    ScriptedDialog dialog;
    MemorySettings settings;
    KeptNotes notes;
    PaintReminder reminder(dialog, settings, notes);
    reminder.PrepareReminder();
    EXPECT_EQ(settings.Read(settings::kReminder), true);
    dialog.ticks = true;
    reminder.PrepareReminder();
    reminder.PrepareReminder();
    EXPECT_EQ(dialog.shown.size(), 2u) << "silent from the next time on";
    EXPECT_EQ(notes.told.size(), 1) << "but not to those who can't see the ring";
}

}  // namespace
}  // namespace kelu
