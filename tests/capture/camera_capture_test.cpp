// Capture mode with a camera by script: messages, snapshots through the file, OK, Cancel, and cameras that fail.
// SPDX-License-Identifier: MIT
#include "capture/camera_capture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include "pictures/picture_file.h"
#include "platform/temporary_folder.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_camera.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

const QString kNoDevice = QStringLiteral("Unable to find a capture device!\r\nThis feature will be disabled.");

QImage Frame(QRgb colour, int width = 640, int height = 480) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QImage Halves(int width, int height) {
    QImage image = Frame(qRgb(200, 0, 0), width, height);
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x) image.setPixel(x, y, qRgb(0, 0, 200));
    return image;
}

struct CameraCaptureTest : testing::Test {
    QTemporaryDir data;
    Surfaces surfaces;
    Surface preview;
    NullView canvasView, originalView, previewView;
    SharedState state;
    Document document{surfaces, canvasView, originalView, state};
    ScriptedCamera camera;
    ScriptedDialog dialog;
    MemorySettings settings;
    QStringList sounds;
    CameraCapture capture{document,
                          preview,
                          canvasView,
                          previewView,
                          state,
                          {camera, dialog, settings, [this](const QString& path) { sounds.append(path); }, data.path(),
                           [this] { surfaces.picCanvas.LoadFile(data.filePath("ploader.rs")); }}};
    bool panel = false, previewShown = false, zoom = true;
    QString status;
    const QString snapshot = QDir(TemporaryFolder()).filePath("Kelu_Cap.png");

    CameraCaptureTest() {
        Frame(qRgb(1, 2, 3), 30, 20).save(data.filePath("ploader.rs"), "PNG");
        camera.devices = {"First", "Second"};
        camera.frame = Halves(640, 480);
        QObject::connect(&capture, &CameraCapture::PanelShown, [this](bool shown) { panel = shown; });
        QObject::connect(&capture, &CameraCapture::PreviewShown, [this](bool shown) { previewShown = shown; });
        QObject::connect(&capture, &CameraCapture::ZoomButtonsShown, [this](bool shown) { zoom = shown; });
        QObject::connect(&document, &Document::StatusTextChanged, [this](const QString& text) { status = text; });
        QObject::connect(&document, &Document::Opened, [this] { zoom = true; });
    }
    ~CameraCaptureTest() override {
        QFile::remove(snapshot);
        QDir(snapshot).removeRecursively();
    }

    /// As the window does: the camera first, the settings after the splash.
    void StartUp(std::optional<CaptureSize> size = CaptureSize::Large, int device = 0) {
        capture.Connect2Camera();
        capture.SetVideoSize(size);
        capture.LoadDevices();
        capture.SelectDevice(device);
    }
    void WaitForTick() {
        const int before = camera.pulls;
        ASSERT_TRUE(QTest::qWaitFor([&] { return camera.pulls > before; }));
    }
    void Enter() {
        capture.WebCamClick();
        WaitForTick();
    }
    const QImage Canvas() const { return surfaces.picCanvas.Picture(); }
};

TEST_F(CameraCaptureTest, WithoutCameraTellsAtTheStartAndAtEachClick) {
    camera.devices.clear();
    dialog.ticks = true;
    capture.Connect2Camera();
    EXPECT_TRUE(state.CameraMissing);
    EXPECT_EQ(camera.calls, QStringList({"Connected 1"})) << "the steps behind the failing one don't run";
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].text, kNoDevice);
    EXPECT_EQ(dialog.shown[0].title, "Error");
    EXPECT_EQ(dialog.shown[0].checkbox, "Don't Show This Again");
    capture.Connect2Camera();
    EXPECT_EQ(dialog.shown.size(), 1u) << "the user had enough of it";
    capture.LoadDevices();
    EXPECT_THROW(capture.SelectDevice(0), Error);

    for (int click = 2; click <= 3; ++click) {
        capture.WebCamClick();
        ASSERT_EQ(dialog.shown.size(), static_cast<std::size_t>(click));
        EXPECT_EQ(dialog.shown.back().text, kNoDevice);
        EXPECT_EQ(dialog.shown.back().heading, "Error");
        EXPECT_EQ(dialog.shown.back().icon, MsgIcon::Error);
    }
    QTest::qWait(120);
    EXPECT_FALSE(capture.Capturing() || panel || state.CaptureBusy);
    EXPECT_EQ(camera.pulls, 0);

    camera.devices = {"Plugged in later"};
    Enter();
    EXPECT_TRUE(capture.Capturing() && !state.CameraMissing);
    EXPECT_EQ(Canvas(), camera.frame);
    EXPECT_EQ(capture.Devices(), camera.devices);
}

TEST_F(CameraCaptureTest, WhatIsAskedDuringTheSearchIsDoneAfterIt) {
    camera.answersAtOnce = false;
    StartUp(CaptureSize::Large, 1);
    capture.WebCamClick();
    EXPECT_TRUE(camera.calls.isEmpty());
    EXPECT_FALSE(capture.Capturing() || state.CameraMissing);
    camera.Answer();
    EXPECT_EQ(camera.VideoDevice(), 1);
    EXPECT_EQ(capture.Devices(), camera.devices);
    EXPECT_TRUE(capture.Capturing() && panel);
    EXPECT_THROW(capture.SelectDevice(2), Error);
    EXPECT_EQ(camera.VideoDevice(), 1) << "a refused choice changes nothing";
    capture.Unload();
    EXPECT_FALSE(camera.Connected());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(CameraCaptureTest, ASearchWithoutTheStoredDeviceTakesWhatThereIs) {
    for (const bool any : {true, false}) {
        ScriptedCamera late;
        late.answersAtOnce = false;
        if (any) late.devices = {"Only"};
        SharedState fresh;
        CameraCapture other(document, preview, canvasView, previewView, fresh,
                            {late, dialog, settings, {}, data.path(), {}});
        dialog.shown.clear();
        other.Connect2Camera();
        other.LoadDevices();
        other.SelectDevice(3);
        other.WebCamClick();
        late.Answer();
        EXPECT_EQ(fresh.CameraMissing, !any);
        EXPECT_EQ(other.Capturing(), any);
        EXPECT_EQ(dialog.shown.size(), any ? 0u : 1u) << "one message answers the start and the click";
    }
}

TEST_F(CameraCaptureTest, TakesSnapshotsOfTheChosenSizeThroughTheFile) {
    struct Case {
        std::optional<CaptureSize> chosen;
        QSize size;
        const char* status;
    };
    for (const Case& row : {Case{CaptureSize::Small, {160, 120}, "Kelu_Cap.png - [160 x 120 / 24 bits / 100%]"},
                            Case{CaptureSize::Middle, {320, 240}, "Kelu_Cap.png - [320 x 240 / 24 bits / 100%]"},
                            Case{CaptureSize::Large, {640, 480}, "Kelu_Cap.png - [640 x 480 / 24 bits / 100%]"},
                            Case{std::nullopt, {1280, 960}, "Kelu_Cap.png - [1280 x 960 / 24 bits / 100%]"}}) {
        SCOPED_TRACE(row.status);
        QFile::remove(snapshot);
        camera.frame = Halves(1280, 960);
        state = {};
        StartUp(row.chosen);
        Enter();
        capture.CaptureNow();
        EXPECT_EQ(preview.Picture().size(), row.size);
        EXPECT_EQ(preview.Picture(), Canvas());
        EXPECT_EQ(QFile::exists(snapshot), row.chosen.has_value());
        if (row.chosen) {
            const QImage file = ReadPicture(snapshot);
            EXPECT_EQ(file, Canvas());
            EXPECT_EQ(file.pixel(5, 5), qRgb(200, 0, 0));
            EXPECT_EQ(file.pixel(row.size.width() - 5, 5), qRgb(0, 0, 200));
        }
        EXPECT_TRUE(state.ImageActive && state.CaptureReady && state.CaptureBusy);
        EXPECT_EQ(state.CurrentFileName, "Kelu_Cap.png");
        EXPECT_EQ(status, row.status);
        EXPECT_TRUE(previewShown && panel);
        EXPECT_FALSE(zoom);
        EXPECT_EQ(sounds.takeLast(), data.filePath("kelu.snd"));
        WaitForTick();
        EXPECT_EQ(Canvas(), camera.frame) << "the live picture goes on, though the camera sent nothing new";
        capture.CancelClick();
    }
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(CameraCaptureTest, OKOpensTheSnapshotNotTheLivePicture) {
    StartUp(CaptureSize::Middle);
    Enter();
    capture.OKClick();
    EXPECT_TRUE(capture.Capturing() && panel) << "there is no snapshot yet";
    capture.CaptureNow();
    camera.frame = Frame(qRgb(0, 255, 0));
    WaitForTick();
    capture.OKClick();
    EXPECT_FALSE(capture.Capturing() || state.CaptureBusy || panel || previewShown);
    EXPECT_TRUE(state.CaptureReady && state.ImageActive && zoom);
    const QImage opened = Halves(320, 240);
    EXPECT_EQ(Canvas(), opened);
    EXPECT_EQ(surfaces.picPen.Picture(), opened);
    EXPECT_EQ(surfaces.picOriginal.Picture(), opened);
    EXPECT_EQ(originalView.ViewMode(), ViewKind::Fitted);

    // Again, without a new snapshot: the earlier file counts.
    Enter();
    EXPECT_EQ(Canvas(), camera.frame);
    capture.OKClick();
    EXPECT_EQ(Canvas(), opened);
    const int pulls = camera.pulls;
    QTest::qWait(120);
    EXPECT_EQ(camera.pulls, pulls) << "the timer has stopped";
}

TEST_F(CameraCaptureTest, CancelShowsThePlaceholderAndKeepsTheRest) {
    StartUp();
    Enter();
    capture.CaptureNow();
    capture.CancelClick();
    EXPECT_FALSE(capture.Capturing() || state.CaptureBusy || state.CaptureReady || panel || previewShown || zoom);
    EXPECT_TRUE(state.ImageActive);
    EXPECT_EQ(state.CurrentFileName, "Kelu_Cap.png");
    EXPECT_EQ(Canvas().size(), QSize(30, 20));
    Enter();
    capture.OKClick();
    EXPECT_TRUE(capture.Capturing()) << "the snapshot was given up";
}

TEST_F(CameraCaptureTest, AFailedStepLeavesTheStepsBehindItUndone) {
    StartUp();
    Enter();
    ASSERT_TRUE(QDir().mkpath(snapshot + "/in the way"));
    capture.CaptureNow();
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(dialog.shown[0].text.startsWith("The following error has occured:"))
        << dialog.shown[0].text.toStdString();
    EXPECT_FALSE(state.CaptureReady || state.ImageActive || previewShown);
    EXPECT_TRUE(capture.Capturing());
    QFile::remove(data.filePath("ploader.rs"));
    capture.CancelClick();
    EXPECT_EQ(dialog.shown.size(), 2u);
    EXPECT_FALSE(capture.Capturing() || state.CaptureBusy);
    EXPECT_EQ(Canvas(), camera.frame);
}

TEST_F(CameraCaptureTest, ACameraThatNeverGivesAFrameLeavesTheDocumentAlone) {
    StartUp();
    surfaces.picCanvas.SetPicture(Frame(qRgb(9, 9, 9), 800, 600));
    const QImage document = Canvas();
    camera.frame = {};
    Enter();
    capture.CaptureNow();
    EXPECT_EQ(Canvas(), document) << "there is nothing to take yet";
    EXPECT_FALSE(state.CaptureReady);

    camera.failure = Error(kFileError, "The camera is in use by another program");
    dialog.whileShown = [this](const auto&) { QTest::qWait(120); };
    WaitForTick();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialog.shown.empty(); }));
    EXPECT_EQ(dialog.Texts(),
              QStringList({"The camera gives no picture.\r\nThe camera is in use by another program."}));
    EXPECT_FALSE(capture.Capturing() || state.CaptureBusy || panel);
    EXPECT_EQ(Canvas(), document);
    EXPECT_FALSE(state.CameraMissing);

    camera.failure.reset();
    camera.frame = Halves(640, 480);
    Enter();
    EXPECT_EQ(Canvas(), camera.frame) << "the next try succeeds";
}

TEST_F(CameraCaptureTest, UnpluggingKeepsTheSnapshotAndTellsOnce) {
    StartUp();
    Enter();
    capture.CaptureNow();
    const QImage taken = preview.Picture();
    camera.failure = Error(kFileError, "The camera was disconnected");
    dialog.whileShown = [this](const auto&) { QTest::qWait(120); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialog.shown.empty(); }));
    QTest::qWait(200);
    EXPECT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(capture.Capturing() && panel && state.CaptureBusy);

    camera.failure.reset();
    camera.frame = Frame(qRgb(0, 255, 0));
    WaitForTick();
    EXPECT_EQ(Canvas(), camera.frame) << "plugged in again, it goes on";
    camera.failure = Error(kFileError, "The camera was disconnected");
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.shown.size() == 2; })) << "a second loss is told as well";
    capture.OKClick();
    EXPECT_EQ(Canvas(), taken);
    EXPECT_FALSE(capture.Capturing());
}

}  // namespace
}  // namespace kelu
