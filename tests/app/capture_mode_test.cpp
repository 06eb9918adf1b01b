// Capture mode through the real window: F8, the panel's buttons, the preview.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "capture/capture_panel.h"
#include "tests/app/main_window_fixture.h"

namespace kelu {
namespace {

struct CaptureModeTest : MainWindowFixture {
    MainControls& controls = window.controls;

    CaptureModeTest() {
        camera.frame = QImage(640, 480, QImage::Format_RGB32);
        camera.frame.fill(qRgb(10, 200, 30));
    }
    void SetUp() override {}  // what the start finds is for each test to set
    void Start() { MainWindowFixture::SetUp(); }
};

TEST_F(CaptureModeTest, F8ToTheOpenPicture) {
    settings.Write(settings::kCaptureSize, CaptureSize::Middle);
    Start();
    const CapturePanel& panel = *controls.picCapContainer;
    EXPECT_FALSE(panel.isVisible() || controls.picCapPreview->isVisible());
    QTest::keyClick(&window, Qt::Key_F8, Qt::ShiftModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return state.CaptureBusy; }));
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(Canvas(), camera.frame);

    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(MakePhoto())});
    EXPECT_FALSE(Drop(files)) << "shown as welcome where nobody takes it";
    window.OpenPicture(MakePhoto());
    EXPECT_EQ(Canvas(), camera.frame);

    QTest::mouseClick(panel.cmdCapture, Qt::LeftButton);
    EXPECT_TRUE(controls.picCapPreview->isVisible());
    EXPECT_FALSE(controls.picZoomContainer->isVisible());
    QTest::mouseClick(panel.cmdCaptureOK, Qt::LeftButton);
    EXPECT_FALSE(panel.isVisible() || controls.picCapPreview->isVisible() || state.CaptureBusy);
    EXPECT_TRUE(controls.picZoomContainer->isVisible());
    EXPECT_EQ(Canvas().size(), QSize(320, 240));
    EXPECT_EQ(Canvas().pixel(160, 120), qRgb(10, 200, 30));
    EXPECT_TRUE(dialog.shown.empty());

    window.close();
    EXPECT_FALSE(camera.Connected()) << "the camera is let go at the end";
}

}  // namespace
}  // namespace kelu
