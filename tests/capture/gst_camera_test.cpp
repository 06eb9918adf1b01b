// The camera by GStreamer, fed by its own test sources in place of devices: choice of the format, pixels, failures.
// SPDX-License-Identifier: MIT
#include <gst/gst.h>
#include <gtest/gtest.h>

#include <QtTest>

#include "capture/camera_mode.h"
#include "capture/gst_video_cap_x.h"
#include "capture/shutter_sound.h"

namespace kelu {
namespace {

GstShared<GstCaps> Caps(const char* text) {
    gst_init(nullptr, nullptr);
    return OwnMini(gst_caps_from_string(text));
}

TEST(CameraMode, TakesTheModeThatFitsTheSnapshot) {
    struct Case {
        const char* offered;
        const char* chosen;  ///< null: nothing fits; a subset of these caps
        bool jpeg;
    };
    for (const Case& row :
         {// As a usual webcam: raw up to 640 x 480 at full rate, above only slowly, JPEG for all.
          Case{"video/x-raw,format=YUY2,width=1280,height=720,framerate=10/1;"
               "video/x-raw,format=YUY2,width=640,height=480,framerate={30/1,15/1};"
               "video/x-raw,format=YUY2,width=320,height=240,framerate=30/1;"
               "image/jpeg,width=640,height=480,framerate=30/1;image/jpeg,width=1920,height=1080,framerate=30/1",
               "video/x-raw,width=640,height=480,framerate=30/1", false},
          Case{"video/x-raw,format=YUY2,width=640,height=480,framerate=5/1;"
               "image/jpeg,width=640,height=480,framerate=30/1",
               "image/jpeg,width=640,height=480", true},
          Case{"video/x-raw,format=YUY2,width=320,height=240,framerate=30/1;"
               "image/jpeg,width=1280,height=720,framerate=30/1",
               "image/jpeg,width=1280,height=720", true},
          Case{"video/x-raw,format={NV12,BGRx},width=[2,4096],height=[2,4096],framerate=[0/1,60/1]",
               "video/x-raw,width=640,height=480,framerate=30/1", false},
          Case{"video/x-raw,width=160,height=120,framerate=30/1;video/x-raw,width=320,height=240,framerate=30/1",
               "video/x-raw,width=320,height=240", false},
          Case{"video/x-raw(memory:DMABuf),format=NV12,width=640,height=480;video/x-h264,width=640,height=480", nullptr,
               false}}) {
        SCOPED_TRACE(row.offered);
        const auto mode = ChooseMode(Caps(row.offered).get());
        ASSERT_EQ(mode.has_value(), row.chosen != nullptr);
        if (!mode) continue;
        EXPECT_EQ(mode->jpeg, row.jpeg);
        EXPECT_TRUE(gst_caps_is_subset(mode->caps.get(), Caps(row.chosen).get()))
            << gst_caps_to_string(mode->caps.get());
    }
    EXPECT_FALSE(ChooseMode(nullptr)->caps) << "a camera that does not tell: anything raw";
}

/// Cameras made of GStreamer's launch lines; an empty line is a device that has gone.
struct ScriptedList : GstCameraList {
    std::vector<const char*> lines;
    const char* caps = "video/x-raw,width=640,height=480,framerate=30/1";  ///< null: it doesn't tell

    void Search(std::function<void()> whenDone) override { whenDone(); }
    std::vector<GstCamera> Cameras() override {
        std::vector<GstCamera> cameras;
        for (const char* line : lines)
            cameras.push_back({QString::fromLatin1(line), line,
                               [line] { return *line ? gst_parse_bin_from_description(line, TRUE, nullptr) : nullptr; },
                               caps ? Caps(caps) : nullptr});
        return cameras;
    }
};

struct GstVideoCapXTest : testing::Test {
    static constexpr int kLong = 20000;  ///< ms: what a machine busy with other tests may need; most take a moment
    ScriptedList list;
    GstVideoCapX camera{list, {/*opening=*/kLong, /*silence=*/kLong, /*retry=*/100, /*idle=*/200}};
    QString failure;

    GstVideoCapXTest() { gst_init(nullptr, nullptr); }

    void Connect(const char* line) { Connect(camera, line); }
    void Connect(GstVideoCapX& to, const char* line) {
        list.lines = {line};
        to.SetConnected(true);
        to.SetFrameMode(VideoCapX::kNewestFrame);
    }
    QImage Pull() { return Pull(camera); }
    QImage Pull(GstVideoCapX& from) {
        try {
            return from.CurrentFrame();
        } catch (const Error& error) {
            failure = error.Description();
            return {};
        }
    }
    QImage NextFrame() {
        QImage frame;
        const auto done = [&] { return !(frame = Pull()).isNull() || !failure.isEmpty(); };
        return QTest::qWaitFor(done, kLong) ? frame : QImage();
    }
};

constexpr const char* kRed =
    "videotestsrc is-live=true pattern=solid-color foreground-color=0xffc80a14 ! video/x-raw,format=BGRx,width=640,"
    "height=480,framerate=30/1";

TEST_F(GstVideoCapXTest, DecodesJpegAndCutsWidePicturesToFourByThree) {
    list.caps = "image/jpeg,width=1280,height=720,framerate=30/1";
    Connect("videotestsrc is-live=true pattern=smpte ! video/x-raw,width=1280,height=720,framerate=30/1 ! jpegenc");
    const QImage frame = NextFrame();
    ASSERT_EQ(frame.size(), QSize(960, 720)) << failure.toStdString();
    // Seven bars of 1280 / 7 pixels; 160 pixels are cut at each side, so the first and last bar show 23.
    const QColor leftmost = frame.pixelColor(10, 100);
    EXPECT_NEAR(leftmost.red(), leftmost.green(), 8) << "the grey bar";
    const QColor second = frame.pixelColor(60, 100);
    EXPECT_GT(second.red() - second.blue(), 120) << "the yellow bar";
    const QColor last = frame.pixelColor(950, 100);
    EXPECT_GT(last.blue() - last.red(), 120) << "the blue bar";
}

TEST_F(GstVideoCapXTest, TellsWhyThereIsNoPictureAndTriesAgain) {
    struct Case {
        const char* line;
        const char* told;  ///< empty: GStreamer's own words, made to fit the message
        int patience = kLong;
        const char* caps = "video/x-raw,width=640,height=480,framerate=30/1";
    };
    for (const Case& row :
         {Case{"", "The camera was disconnected"},
          Case{"videotestsrc is-live=true num-buffers=3 ! video/x-raw,width=640,height=480,framerate=30/1",
               "The camera was disconnected"},
          Case{"videotestsrc is-live=true ! video/x-raw,width=640,height=480,framerate=30/1 ! valve drop=true",
               "The camera does not send any picture", 500},
          // Bytes without sense, as raw pixels of a size they don't have and as JPEG, of which none is ever whole.
          Case{"fakesrc is-live=true sizetype=fixed sizemax=9000 filltype=pattern ! video/x-raw,format=BGRx,width=640,"
               "height=480,framerate=30/1",
               "The camera sends pictures that can't be read"},
          Case{"fakesrc is-live=true sync=true datarate=270000 sizetype=fixed sizemax=9000 filltype=pattern ! "
               "image/jpeg,width=640,height=480,framerate=30/1",
               "The camera does not send any picture", 500, "image/jpeg,width=640,height=480,framerate=30/1"},
          Case{"v4l2src device=/dev/null ! video/x-raw,width=640,height=480", ""}}) {
        SCOPED_TRACE(row.line);
        GstVideoCapX tried(list, {/*opening=*/row.patience, /*silence=*/row.patience, /*retry=*/100, /*idle=*/200});
        failure.clear();
        list.caps = row.caps;
        Connect(tried, row.line);
        ASSERT_TRUE(QTest::qWaitFor([&] { return (Pull(tried), !failure.isEmpty()); }, kLong));
        EXPECT_TRUE(*row.told ? failure == row.told : !failure.endsWith('.')) << failure.toStdString();
        list.lines = {kRed};
        list.caps = Case{}.caps;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Pull(tried).isNull(); }, kLong)) << "plugged in again, it goes on";
    }
}

TEST_F(GstVideoCapXTest, ACameraThatChangesItsSizeIsFollowed) {
    list.caps = nullptr;
    Connect(
        "concat name=all videotestsrc num-buffers=60 ! video/x-raw,width=640,height=480,framerate=30/1 ! all. "
        "videotestsrc ! video/x-raw,width=320,height=200,framerate=30/1 ! all. all. ! identity sync=true");
    for (const QSize size : {QSize(640, 480), QSize(266, 200)})
        EXPECT_TRUE(QTest::qWaitFor([&] { return Pull().size() == size; }, kLong))
            << size.width() << failure.toStdString();
}

TEST_F(GstVideoCapXTest, NoCallHoldsUpTheInterfaceThread) {
    // A device whose opening takes long: the caller must not notice.
    Connect("videotestsrc is-live=true ! identity sleep-time=300000 ! video/x-raw,width=640,height=480,framerate=30/1");
    qint64 longest = 0;
    QElapsedTimer total, call;
    total.start();
    while (total.elapsed() < 1500) {
        call.start();
        Pull();
        longest = std::max(longest, call.elapsed());
        QTest::qWait(10);
    }
    call.start();
    PlaySoundFile(QStringLiteral("/there/is/no/such.snd"));
    camera.SetConnected(false);
    EXPECT_LT(call.elapsed(), 250);
    EXPECT_LT(longest, 250);
}

}  // namespace
}  // namespace kelu
