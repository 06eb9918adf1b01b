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

/// A camera that is pulled out while frames are read takes its memory with it: no call may notice but by an error.
TEST(VirtualCamera, IsFoundShownUnpluggedAndPluggedInAgain) {
    const int rounds = qEnvironmentVariableIsSet("KELU_REPLUGS") ? qEnvironmentVariableIntValue("KELU_REPLUGS") : 25;
    GstDeviceList list(0);
    GstVideoCapX camera(list, {/*opening=*/5000, /*silence=*/150, /*retry=*/20, /*idle=*/1000});
    bool found = false;
    QElapsedTimer timer;
    timer.start();
    camera.Search([&] { found = true; });
    EXPECT_LT(timer.elapsed(), 20) << "the search holds nobody up";
    ASSERT_TRUE(QTest::qWaitFor([&] { return found; }, GstDeviceList::kLongestSearch + 1000));
    EXPECT_THROW(camera.SetConnected(true), Error);
    QString told;
    const auto pull = [&]() -> QImage {
        try {
            return camera.CurrentFrame();
        } catch (const Error& error) {
            told = error.Description();
            return {};
        }
    };
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        PluggedCamera plugged;
        ASSERT_TRUE(QTest::qWaitFor([&] { return camera.VideoDeviceCount() > 0; }, 5000));
        EXPECT_EQ(camera.VideoDeviceName(0), "Virtual Camera");
        camera.SetConnected(true);
        camera.SetVideoDevice(0);
        camera.SetFrameMode(VideoCapX::kNewestFrame);
        QImage frame;
        ASSERT_TRUE(QTest::qWaitFor([&] { return SquareAt(frame = pull()) >= 0; }, 8000));
        ASSERT_EQ(frame.size(), QSize(640, 480));
        EXPECT_EQ(frame.pixel(100, 100), qRgb(200, 0, 0));
        EXPECT_EQ(frame.pixel(500, 400), qRgb(128, 128, 128));
        EXPECT_TRUE(QTest::qWaitFor([&] { return SquareAt(pull()) != SquareAt(frame); }, 2000)) << "it moves";
        QTest::qWait(40 + round % 40);  // a frame waits to be read when the camera goes
        plugged.Unplug();
        QTest::qSleep(round % 30 + 1);
        const auto missed = [&] { return pull(), told == u"The camera was disconnected"; };
        told.clear();
        EXPECT_TRUE(QTest::qWaitFor(missed, 8000)) << told.toStdString();
        EXPECT_TRUE(QTest::qWaitFor([&] { return camera.VideoDeviceCount() == 0; }, 3000));
    }
}

}  // namespace
}  // namespace kelu
