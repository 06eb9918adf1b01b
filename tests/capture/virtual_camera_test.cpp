// Search, frames and unplugging with a camera that the system's own device list offers: the program VIRTUAL_CAMERA, as
// with_virtual_camera.sh names it.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QProcess>
#include <QtTest>

#include "capture/gst_device_list.h"
#include "capture/gst_video_cap_x.h"

namespace kelu {
namespace {

/// Where the white square stands on the middle row; -1 when it is not there.
int SquareAt(const QImage& frame) {
    for (int x = 0; x < frame.width(); ++x)
        if (frame.pixel(x, frame.height() / 2) == qRgb(255, 255, 255)) return x;
    return -1;
}

struct PluggedCamera : QProcess {
    PluggedCamera() { start(qEnvironmentVariable("VIRTUAL_CAMERA"), {QStringLiteral("Virtual Camera")}); }
    void Unplug() {
        kill();
        waitForFinished();
    }
};

TEST(VirtualCamera, IsFoundShownAndMissed) {
    PluggedCamera plugged;
    GstDeviceList list(0);
    GstVideoCapX camera(list);
    bool found = false;
    QElapsedTimer timer;
    timer.start();
    camera.Search([&] { found = true; });
    EXPECT_LT(timer.elapsed(), 20) << "the search holds nobody up";
    EXPECT_EQ(camera.VideoDeviceCount(), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return found; }, GstDeviceList::kLongestSearch + 1000));
    // The session manager may publish the node a little later than the server answers.
    ASSERT_TRUE(QTest::qWaitFor([&] { return camera.VideoDeviceCount() > 0; }, 5000));
    EXPECT_EQ(camera.VideoDeviceName(0), "Virtual Camera");

    camera.SetConnected(true);
    camera.SetVideoDevice(0);
    camera.SetFrameMode(VideoCapX::kNewestFrame);
    QImage frame;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !(frame = camera.CurrentFrame()).isNull(); }, 6000));
    ASSERT_EQ(frame.size(), QSize(640, 480));
    EXPECT_EQ(frame.pixel(100, 100), qRgb(200, 0, 0));
    EXPECT_EQ(frame.pixel(500, 100), qRgb(0, 200, 0));
    EXPECT_EQ(frame.pixel(100, 400), qRgb(0, 0, 200));
    EXPECT_EQ(frame.pixel(500, 400), qRgb(128, 128, 128));
    const int start = SquareAt(frame);
    EXPECT_GE(start, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return SquareAt(camera.CurrentFrame()) != start; }, 2000)) << "it moves";

    // Stopped and started again, as capture mode does.
    for (int again = 0; again < 3; ++again) {
        camera.SetFrameMode(VideoCapX::kNoFrames);
        EXPECT_TRUE(camera.CurrentFrame().isNull());
        camera.SetFrameMode(VideoCapX::kNewestFrame);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !camera.CurrentFrame().isNull(); }, 6000)) << again;
    }

    plugged.Unplug();
    QString told;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            try {
                camera.CurrentFrame();
            } catch (const Error& error) {
                told = error.Description();
            }
            return !told.isEmpty();
        },
        8000));
    EXPECT_EQ(told, "The camera was disconnected");
    EXPECT_TRUE(QTest::qWaitFor([&] { return camera.VideoDeviceCount() == 0; }, 3000));
    EXPECT_THROW(camera.SetConnected(true), Error);
}

/// A camera that is pulled out while frames are read takes its memory with it: no call may notice but by an error.
TEST(VirtualCamera, IsUnpluggedAndPluggedInAgain) {
    const int rounds = qEnvironmentVariableIsSet("KELU_REPLUGS") ? qEnvironmentVariableIntValue("KELU_REPLUGS") : 3;
    GstDeviceList list(0);
    GstVideoCapX camera(list, {/*opening=*/5000, /*silence=*/2000, /*retry=*/20, /*idle=*/1000});
    bool found = false;
    camera.Search([&] { found = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return found; }, GstDeviceList::kLongestSearch + 1000));
    const auto pull = [&]() -> QImage {
        try {
            return camera.CurrentFrame();
        } catch (const Error&) {
            return {};
        }
    };
    for (int round = 0; round < rounds; ++round) {
        PluggedCamera plugged;
        ASSERT_TRUE(QTest::qWaitFor([&] { return camera.VideoDeviceCount() > 0; }, 5000)) << round;
        if (round == 0) {
            camera.SetConnected(true);
            camera.SetVideoDevice(0);
            camera.SetFrameMode(VideoCapX::kNewestFrame);
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return SquareAt(pull()) >= 0; }, 8000)) << round;
        QTest::qWait(40 + round % 40);  // a frame waits to be read when the camera goes
        plugged.Unplug();
        QTest::qSleep(round % 30 + 1);
        for (int pulls = 0; pulls < 4; ++pulls, QTest::qSleep(round % 3 + 1)) pull();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                pull();
                return camera.VideoDeviceCount() == 0;
            },
            3000))
            << round;
    }
}

}  // namespace
}  // namespace kelu
