// SPDX-License-Identifier: MIT
#include "capture/camera_capture.h"

#include <QDir>
#include <QPointer>
#include <utility>

#include "platform/error.h"
#include "platform/private_folder.h"
#include "platform/temporary_folder.h"

namespace kelu {

namespace {

constexpr int kShooterTime = 50;  // ms
const char kNoDevice[] =
    QT_TRANSLATE_NOOP("kelu::CameraCapture", "Unable to find a capture device!\r\nThis feature will be disabled.");

/// Image pixels.
QSize SizeOf(CaptureSize size) {
    return size == CaptureSize::Small    ? QSize(160, 120)
           : size == CaptureSize::Middle ? QSize(320, 240)
                                         : QSize(640, 480);
}

}  // namespace

CameraCapture::CameraCapture(Document& document, Surface& preview, SurfaceView& canvasView, SurfaceView& previewView,
                             SharedState& state, const CaptureServices& services)
    : document_(document),
      preview_(preview),
      canvasView_(canvasView),
      previewView_(previewView),
      state_(state),
      services_(services) {
    tmrShooter_.setInterval(kShooterTime);
    connect(&tmrShooter_, &QTimer::timeout, this, &CameraCapture::Shoot);
}

void CameraCapture::Connect2Camera() {
    services_.VCX1.Search([self = QPointer(this)] {
        if (self) self->DevicesFound();
    });
}

void CameraCapture::DevicesFound() {
    found_ = true;
    RunShowingErrors(services_.dialog, [this] {
        try {
            Connect();
        } catch (const Error& error) {
            if (error.Number() != kNoCamera) throw;
            state_.CameraMissing = true;
            const bool asked = std::exchange(entersLater_, false);  // the message answers the key as well
            if (!asked && services_.settings.Read(settings::kCameraReminder) == false) return;
            Message message{tr("Error"), tr(kNoDevice), MsgIcon::Error};
            message.checkbox = tr("Don't Show This Again");
            message.title = tr("Error");
            if (services_.dialog.ShowMessage(message).ticked) services_.settings.Keep(settings::kCameraReminder, false);
        }
    });
    if (std::exchange(loadsLater_, false)) {
        const int wanted = std::exchange(listIndex_, -1);
        LoadDevices();
        try {
            SelectDevice(wanted);
        } catch (const Error&) {
            state_.CameraMissing = true;
        }
    }
    if (std::exchange(entersLater_, false)) WebCamClick();
}

void CameraCapture::Connect() {
    services_.VCX1.SetConnected(true);
    services_.VCX1.SetComponentPreview(false);
    services_.VCX1.SetVideoDevice(listIndex_);
    services_.VCX1.SetFrameMode(VideoCapX::kNewestFrame);
}

// A camera may have been plugged in since the last look.
void CameraCapture::LookAnew() {
    if (!state_.CameraMissing && services_.VCX1.Connected()) return;
    state_.CameraMissing = true;
    Attempt([this] {
        Connect();
        cboDevices_ = DeviceNames(services_.VCX1);
        state_.CameraMissing = false;
    });
}

void CameraCapture::LoadDevices() {
    if (!found_) {
        loadsLater_ = true;
        return;
    }
    RunShowingErrors(services_.dialog, [this] { cboDevices_.append(DeviceNames(services_.VCX1)); });
}

void CameraCapture::SelectDevice(int index) {
    if (found_ && (index < -1 || index >= cboDevices_.size()))
        throw Error(kInvalidProperty, tr("Invalid property value"), QStringLiteral("cboDevices"));
    listIndex_ = index;
    if (found_) services_.VCX1.SetVideoDevice(index);
}

void CameraCapture::Unload() {
    capturing_ = false;
    tmrShooter_.stop();
    Attempt([this] { services_.VCX1.SetConnected(false); });
}

void CameraCapture::WebCamClick() {
    if (!found_) {
        entersLater_ = true;
        return;
    }
    LookAnew();
    if (state_.CameraMissing) {
        services_.dialog.ShowMessage({tr("Error"), tr(kNoDevice), MsgIcon::Error});
        return;
    }
    if (std::exchange(capturing_, true)) return;
    live_ = false;
    failureTold_ = false;
    tmrShooter_.start();
    Q_EMIT PanelShown(true);
}

void CameraCapture::Shoot() {
    state_.CaptureBusy = true;
    try {
        ShowFrame(services_.VCX1.CurrentFrame());
    } catch (const std::exception& error) {
        if (!failureTold_) ShowFailure(QString::fromUtf8(error.what()));
    }
}

void CameraCapture::ShowFrame(const QImage& frame) {
    if (!frame.isNull() && frame.cacheKey() != document_.Canvas().Picture().cacheKey()) {
        document_.Canvas().SetPicture(frame);
        live_ = true;
        failureTold_ = false;
    }
    canvasView_.ShowWhole();
}

// A failing tick is passed over, as the next one may succeed, but not in silence: the first of a row tells why the
// picture stands still. If there never was one, capture mode ends as if it had not been entered: what the canvas holds
// was not touched. Else it stays on, so that a snapshot can still be used, and goes on when the camera is back.
void CameraCapture::ShowFailure(const QString& why) {
    failureTold_ = true;
    tmrShooter_.stop();
    if (!live_) Leave();
    services_.dialog.ShowMessage({tr("Error"), tr("The camera gives no picture.\r\n%1.").arg(why), MsgIcon::Error});
    if (capturing_) tmrShooter_.start();
}

void CameraCapture::CaptureNow() {
    // Before the first frame the canvas still holds the document; that is no snapshot.
    if (!capturing_ || !live_) return;
    RunShowingErrors(services_.dialog, [this] {
        if (services_.playSound) services_.playSound(QDir(services_.dataFolder).filePath(QStringLiteral("kelu.snd")));
        Surface& canvas = document_.Canvas();
        if (videoSize_) {
            const QSize size = SizeOf(*videoSize_);
            canvas.ResizeImage(size.width(), size.height());
            MakePrivateFile(SnapshotPath());
            canvas.SaveFile(SnapshotPath());
        }
        canvasView_.ShowWhole();
        preview_.SetPicture(canvas.Picture());
        previewView_.ShowWhole();
        Q_EMIT PreviewShown(true);
        state_.ImageActive = true;
        state_.CaptureReady = true;
        state_.CurrentFileName = FileNameOfPath(SnapshotPath());
        document_.ShowLongStatusText();
        Q_EMIT ZoomButtonsShown(false);
    });
}

void CameraCapture::OKClick() {
    if (!state_.CaptureReady) return;
    RunShowingErrors(services_.dialog, [this] {
        Leave();
        document_.Open(SnapshotPath(), Document::Source::Capture);
    });
}

void CameraCapture::CancelClick() {
    RunShowingErrors(services_.dialog, [this] {
        state_.CaptureReady = false;
        Leave();
        services_.showPlaceholder();
        canvasView_.SetViewAnchor(Anchor::Fitted);
        Q_EMIT ZoomButtonsShown(false);
    });
}

void CameraCapture::Leave() {
    state_.CaptureBusy = false;
    capturing_ = false;
    tmrShooter_.stop();
    Q_EMIT PreviewShown(false);
    Q_EMIT PanelShown(false);
}

QString CameraCapture::SnapshotPath() const { return QDir(TemporaryFolder()).filePath(QStringLiteral("Kelu_Cap.png")); }

}  // namespace kelu
