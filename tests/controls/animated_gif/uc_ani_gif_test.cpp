// The player of animations: the clock of frames and passes, the ways to fit, and the control: loading from file, array
// and URL, playing by timer, actions, painting, mouse.
// SPDX-License-Identifier: MIT
#include "controls/animated_gif/uc_ani_gif.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <climits>

#include "controls/animated_gif/frame_clock.h"
#include "controls/animated_gif/gif_fit.h"
#include "tests/pictures/gif/gif_bytes.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

TEST(FrameClock, PlaysTheWantedPassesAndStandsOnTheFirstFrame) {
    FrameClock clock;
    clock.Load({100, 0, 300});
    clock.SetLoops(2);
    ASSERT_TRUE(clock.Start());
    struct Expected {
        int frame, delay, remaining;
        bool ended;
    };
    const Expected steps[] = {{2, 50, 2, false}, {3, 300, 2, false}, {1, 100, 1, false},
                              {2, 50, 1, false}, {3, 300, 1, false}, {1, 100, 2, true}};
    for (const Expected& expected : steps) {
        EXPECT_EQ(clock.Step(), expected.ended);
        EXPECT_EQ(clock.CurrentFrame(), expected.frame);
        EXPECT_EQ(clock.CurrentDelay(), expected.delay);
        EXPECT_EQ(clock.LoopsRemaining(), expected.remaining);
    }
    EXPECT_EQ(clock.State(), FrameClock::kStopped);
}

TEST(FrameClock, WantedPassesLoweredWhilePlayingStillEnd) {
    FrameClock clock;
    clock.Load({10, 10});
    clock.SetLoops(5);
    clock.Start();
    for (int i = 0; i < 6; ++i) clock.Step();  // three passes
    clock.SetLoops(2);
    EXPECT_FALSE(clock.Step());
    EXPECT_TRUE(clock.Step());
}

TEST(GifFit, FitsInFiveWays) {
    struct Case {
        GifStretch stretch;
        QSize wanted, size;
        double scaleX, scaleY;
    };
    const QSize screen(40, 20);
    const Case cases[] = {
        {kNaturalSize, {100, 10}, {40, 10}, 1, 1},
        {kNaturalSize, {30, 100}, {30, 20}, 1, 1},
        {kProportional, {80, 80}, {80, 40}, 2, 2},
        {kProportional, {80, 10}, {20, 10}, 0.5, 0.5},
        {kEachAxis, {80, 10}, {80, 10}, 2, 0.5},
        {kShrinkOnly, {80, 80}, {40, 20}, 1, 1},
        {kShrinkOnly, {80, 10}, {20, 10}, 0.5, 0.5},
        {kShrinkOnly, {20, 90}, {20, 10}, 0.5, 0.5},
        {kControlToImage, {7, 9}, {40, 20}, 1, 1},
        {kProportional, {25, 99}, {25, 12}, 0.625, 0.625},  // 12.5: to even
        {kProportional, {0, 0}, {0, 0}, 0, 0},
    };
    for (const Case& test : cases) {
        const GifFit fit = FitToControl(test.stretch, test.wanted, screen);
        EXPECT_EQ(fit.size, test.size) << test.stretch << " " << test.wanted.width() << " x " << test.wanted.height();
        EXPECT_DOUBLE_EQ(fit.scaleX, test.scaleX);
        EXPECT_DOUBLE_EQ(fit.scaleY, test.scaleY);
    }
    EXPECT_EQ(FitToControl(kControlToImage, {5, 6}, {0, 0}).size, QSize(5, 6)) << "nothing loaded";
}

using namespace test;

// 20 x 10 frames of one colour each.
QByteArray Plain(int colour) { return Image(0, 0, 20, 10, std::vector<int>(200, colour)); }

QByteArray Animation(int loops = 0, int delay = 1) {
    return Header(20, 10) + Netscape(loops) + Control(1, delay) + Plain(0) + Control(1, delay) + Plain(1) +
           Control(1, delay) + Plain(2) + kTrailer;
}

unsigned CentreOf(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    return image.pixel(image.width() / 2, image.height() / 2);
}

TEST(AniGif, LoadsFromFilesAndArrays) {
    QTemporaryDir folder;
    const QString name = folder.filePath("a.gif");
    WriteBytes(name, Animation(3));

    ucAniGIF gif;
    gif.resize(100, 100);
    EXPECT_TRUE(gif.LoadAnimatedGIF_File(name));
    EXPECT_EQ(gif.FrameCount(), 3);
    EXPECT_EQ(gif.Loops(), 3);
    EXPECT_EQ(gif.ActualWidth(), 300) << "twips";
    EXPECT_EQ(gif.ActualHeight(), 150);
    EXPECT_EQ(gif.size(), QSize(100, 50)) << "fitted";
    EXPECT_TRUE(gif.LoadAnimatedGIF_Array(Header(1, 1) + Image(0, 0, 1, 1, {1}) + kTrailer));
    EXPECT_EQ(gif.FrameCount(), 1);
    EXPECT_EQ(gif.Loops(), 0) << "of the new file";
    EXPECT_FALSE(gif.LoadAnimatedGIF_File(folder.filePath("missing.gif")));
    EXPECT_EQ(gif.FrameCount(), 0) << "what was loaded is gone";
    EXPECT_FALSE(gif.LoadAnimatedGIF_Array("no GIF at all"));
    EXPECT_TRUE(gif.AnimatedGIF().isNull());
    EXPECT_EQ(gif.LoopsRemaining(), -1);
}

TEST(AniGif, PlaysAndEndsOnTheFirstFrame) {
    ucAniGIF gif;
    gif.SetStretch(4);
    gif.SetMinFrameDelay(10);
    QSignalSpy ended(&gif, &ucAniGIF::LoopsEnded);
    ASSERT_TRUE(gif.LoadAnimatedGIF_Array(Animation(2)));
    gif.show();
    std::vector<int> frames;
    while (ended.isEmpty() && frames.size() < 1000) {
        if (frames.empty() || frames.back() != gif.CurrentFrame()) frames.push_back(gif.CurrentFrame());
        QTest::qWait(1);
    }
    frames.push_back(gif.CurrentFrame());
    EXPECT_EQ(frames, (std::vector<int>{1, 2, 3, 1, 2, 3, 1}));
    EXPECT_EQ(ended.count(), 1);
    EXPECT_EQ(gif.Action(), 0);
    EXPECT_EQ(CentreOf(gif), kRed);
    gif.hide();
    gif.show();
    EXPECT_EQ(gif.Action(), 1) << "showing starts it again";
    gif.hide();
    EXPECT_EQ(gif.Action(), 2) << "hiding pauses";
}

TEST(AniGif, ActionsSteerIt) {
    ucAniGIF gif;
    gif.SetDelayAnimation(3);
    gif.SetMinFrameDelay(5000);
    gif.resize(20, 10);
    gif.SetAction(1);
    EXPECT_EQ(gif.Action(), 0) << "nothing loaded";
    ASSERT_TRUE(gif.LoadAnimatedGIF_Array(Animation()));
    QTest::qWait(60);
    EXPECT_EQ(gif.CurrentFrame(), 1);
    EXPECT_EQ(gif.Action(), 0) << "not started by itself";
    const struct {
        int action, frame, state;
        unsigned colour;
    } steps[] = {{3, 2, 2, kGreen}, {3, 3, 2, kBlue},  {3, 1, 2, kRed}, {3, 2, 2, kGreen},
                 {1, 2, 1, kGreen}, {2, 2, 2, kGreen}, {4, 1, 1, kRed}, {3, 2, 2, kGreen},
                 {0, 1, 0, kRed},   {2, 1, 0, kRed},   {9, 1, 0, kRed}};
    for (const auto& step : steps) {
        gif.SetAction(step.action);
        EXPECT_EQ(gif.CurrentFrame(), step.frame) << step.action;
        EXPECT_EQ(gif.Action(), step.state) << step.action;
        EXPECT_EQ(CentreOf(gif), step.colour) << step.action;
    }
    // Steered by hand before the later frames were due, it has them all.
    gif.LoadAnimatedGIF_Array(Animation());
    gif.SetAction(3);
    EXPECT_EQ(CentreOf(gif), kGreen);
}

TEST(AniGif, PaintsScaledAndMirrored) {
    // Left half red, right half blue.
    const QByteArray file = Header(2, 1) + Image(0, 0, 2, 1, {0, 2}) + kTrailer;
    ucAniGIF gif;
    gif.SetStretch(2);
    gif.resize(60, 30);
    ASSERT_TRUE(gif.LoadAnimatedGIF_Array(file));
    const auto ends = [&] {
        const QImage image = gif.grab().toImage();
        return std::pair(image.pixel(2, 15), image.pixel(image.width() - 3, 15));
    };
    EXPECT_EQ(ends(), (std::pair(kRed, kBlue)));
    gif.SetMirrored(1);
    EXPECT_EQ(ends(), (std::pair(kBlue, kRed)));
    EXPECT_EQ(gif.AnimatedGIF().pixel(0, 0), kBlue) << "the frame as a picture is turned as well";
    gif.SetMirrored(0);
    EXPECT_EQ(ends(), (std::pair(kRed, kBlue)));
}

// A server on loopback that answers each request with the same bytes.
class Server {
 public:
    explicit Server(const QByteArray& answer) {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, [this, answer] {
            QTcpSocket* socket = server_.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [socket, answer] {
                socket->write(answer);
                socket->disconnectFromHost();
            });
        });
    }
    QString Url() const { return QString("http://127.0.0.1:%1/a.gif").arg(server_.serverPort()); }

 private:
    QTcpServer server_;
};

QByteArray Answer(const QByteArray& body, const char* status = "200 OK") {
    return QByteArray("HTTP/1.1 ") + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

TEST(AniGif, LoadsByUrl) {
    QTemporaryDir folder;
    WriteBytes(folder.filePath("a.gif"), Animation());
    const Server good(Answer(Animation())), bad(Answer("<html>not a picture</html>")),
        missing(Answer(Animation(), "404 Not Found")), tiny(Answer("GIF89a")), cut(Answer(Animation()).chopped(20));
    struct Case {
        const char* what;
        QString url;
        bool cancel;
        int completes, failures, frames;
    };
    const Case cases[] = {
        {"http", good.Url(), false, 1, 0, 3},
        {"file", QUrl::fromLocalFile(folder.filePath("a.gif")).toString(), false, 1, 0, 3},
        {"cancelled by the host", good.Url(), true, 1, 0, 1},
        {"no GIF", bad.Url(), false, 0, 1, 1},
        {"not found", missing.Url(), false, 0, 1, 1},
        {"too short", tiny.Url(), false, 0, 1, 1},
        {"cut connection", cut.Url(), false, 0, 1, 1},
        {"missing file", QUrl::fromLocalFile(folder.filePath("b.gif")).toString(), false, 0, 1, 1},
        {"unknown scheme", "mailto:somebody", false, 0, 1, 1},
        {"empty", "", false, 0, 0, 1},
    };
    for (const Case& test : cases) {
        ucAniGIF gif;
        ASSERT_TRUE(gif.LoadAnimatedGIF_Array(Header(1, 1) + Image(0, 0, 1, 1, {1}) + kTrailer));
        int completes = 0, width = 0;
        QObject::connect(&gif, &ucAniGIF::RemoteLoadComplete, [&](bool* cancel, int twips, int) {
            ++completes;
            width = twips;
            *cancel = test.cancel;
            EXPECT_EQ(gif.FrameCount(), 1) << "the old one plays on until now";
        });
        QSignalSpy failures(&gif, &ucAniGIF::RemoteLoadFailure);
        gif.LoadAnimatedGIF_Remote(test.url);
        (void)QTest::qWaitFor([&] { return completes + failures.count() > 0 || test.url.isEmpty(); }, 5000);
        EXPECT_EQ(completes, test.completes) << test.what;
        EXPECT_EQ(failures.count(), test.failures) << test.what;
        EXPECT_EQ(gif.FrameCount(), test.frames) << test.what;
        if (completes > 0) {
            EXPECT_EQ(width, 300) << test.what;
        }
    }
}

}  // namespace
}  // namespace kelu
