// Capture mode: the canvas shows the camera, a snapshot goes through a temporary file, and an accepted one becomes the
// open picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <optional>

#include "capture/capture_settings.h"
#include "capture/video_cap_x.h"
#include "document/document.h"
#include "document/shared_state.h"
#include "platform/msg_dialog.h"

namespace kelu {

/// What capture mode needs of the system; all must outlive it.
struct CaptureServices {
    VideoCapX& VCX1;
    MsgDialog& dialog;
    Settings& settings;
    std::function<void(const QString& path)> playSound;  ///< must not wait for the sound's end; may be empty
    QString dataFolder;                                  ///< of kelu.snd
    std::function<void()> showPlaceholder;               ///< on the canvas
};

/// The camera is looked for in the background, so that it holds up neither start nor window: whatever depends on the
/// answer (the connection, the device list, the stored device, F8) is done in the told order when the answer is there.
/// A search that answers at once does all of it within Connect2Camera.
class CameraCapture : public QObject {
    Q_OBJECT

 public:
    /// `preview` is the picture of picCapPreview, `previewView` its widget.
    CameraCapture(Document& document, Surface& preview, SurfaceView& canvasView, SurfaceView& previewView,
                  SharedState& state, const CaptureServices& services);

    /// With no device: CameraMissing, and a message unless the user wants no more of it.
    void Connect2Camera();
    /// Adds the names of the devices to the list; it is not cleared before.
    void LoadDevices();
    /// Chooses a row of the list and hands it to the connection. Throws Error(kInvalidProperty) when there is no such
    /// row; while the search goes on it is only kept, and a row that then proves missing sets CameraMissing.
    void SelectDevice(int index);
    /// Without a size snapshots are not saved.
    void SetVideoSize(std::optional<CaptureSize> size) { videoSize_ = size; }
    /// Lets the camera go.
    void Unload();

    // The four buttons.
    void WebCamClick();
    void CaptureNow();
    void OKClick();
    void CancelClick();

    /// Capture mode is on, from entering it to OK or Cancel.
    bool Capturing() const { return capturing_; }
    const QStringList& Devices() const { return cboDevices_; }

 Q_SIGNALS:
    void PanelShown(bool shown);        ///< picCapContainer
    void PreviewShown(bool shown);      ///< picCapPreview
    void ZoomButtonsShown(bool shown);  ///< picZoomContainer

 private:
    void DevicesFound();
    void Connect();
    void LookAnew();
    void Shoot();
    void ShowFrame(const QImage& frame);
    void ShowFailure(const QString& why);
    void Leave();
    QString SnapshotPath() const;

    Document& document_;
    Surface& preview_;
    SurfaceView& canvasView_;
    SurfaceView& previewView_;
    SharedState& state_;
    CaptureServices services_;

    QStringList cboDevices_;
    int listIndex_ = -1;
    std::optional<CaptureSize> videoSize_;
    QTimer tmrShooter_;
    bool found_ = false;  ///< the search has ended
    bool capturing_ = false;
    bool live_ = false;  ///< the canvas shows, or has shown, frames since capture mode was entered
    bool failureTold_ = false;
    // Asked for while the search went on.
    bool loadsLater_ = false;
    bool entersLater_ = false;
};

}  // namespace kelu
