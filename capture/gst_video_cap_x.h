// The camera by GStreamer: the device opens with the first frame that is pulled and closes soon after the last.
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <future>
#include <memory>
#include <optional>
#include <vector>

#include "capture/gst_camera.h"
#include "capture/gst_stream.h"
#include "capture/video_cap_x.h"
#include "platform/error.h"

namespace kelu {

class GstVideoCapX : public QObject, public VideoCapX {
    Q_OBJECT

 public:
    /// Times in ms.
    struct Patience {
        int opening = 5000;  ///< from the first pull to the first frame
        int silence = 2000;  ///< between frames
        int retry = 2000;    ///< from a failure to the next try
        int idle = 1000;     ///< from the last pull to closing the device
    };

    /// `cameras` may be shared between several; it must outlive this.
    explicit GstVideoCapX(GstCameraList& cameras);
    GstVideoCapX(GstCameraList& cameras, const Patience& patience);
    /// Waits at most a second for the device to close.
    ~GstVideoCapX() override;

    void Search(std::function<void()> whenDone) override { cameras_.Search(std::move(whenDone)); }
    int VideoDeviceCount() override;
    QString VideoDeviceName(int index) const override;
    bool Connected() const override { return connected_; }
    void SetConnected(bool connected) override;
    bool ComponentPreview() const override { return false; }
    void SetComponentPreview(bool preview) override;
    int VideoDevice() const override { return videoDevice_; }
    void SetVideoDevice(int index) override;
    int FrameMode() const override { return frameMode_; }
    void SetFrameMode(int mode) override;
    QImage CurrentFrame() override;

 private:
    void StartStream();
    void StopStream();
    void PullFrame();
    bool StillPlugged() const;

    GstCameraList& cameras_;
    Patience patience_;
    std::vector<GstCamera> counted_;
    bool connected_ = false;
    int videoDevice_ = -1;
    int frameMode_ = kNoFrames;

    std::unique_ptr<GstStream> stream_;
    const void* streaming_ = nullptr;  ///< id of the camera of stream_
    std::shared_future<void> closing_;
    QImage frame_;
    QElapsedTimer waiting_;  ///< since the last frame, or since the first pull; not valid when nothing is awaited
    std::optional<Error> failure_;
    QElapsedTimer failed_;
    QTimer idle_;
};

}  // namespace kelu
