// SPDX-License-Identifier: MIT
#include "capture/gst_video_cap_x.h"

#include <algorithm>

#include "capture/detached_job.h"

namespace kelu {

namespace {

constexpr int kLongestClose = 1000;  // ms at the end of the program

Error CameraError(const char* why) { return {kFileError, GstVideoCapX::tr(why), QStringLiteral("VideoCapX")}; }

}  // namespace

GstVideoCapX::GstVideoCapX(GstCameraList& cameras) : GstVideoCapX(cameras, Patience{}) {}

GstVideoCapX::GstVideoCapX(GstCameraList& cameras, const Patience& patience) : cameras_(cameras), patience_(patience) {
    idle_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, this, &GstVideoCapX::StopStream);
}

GstVideoCapX::~GstVideoCapX() {
    StopStream();
    if (closing_.valid()) IsReady(closing_, kLongestClose);
}

int GstVideoCapX::VideoDeviceCount() {
    counted_ = cameras_.Cameras();
    return static_cast<int>(counted_.size());
}

QString GstVideoCapX::VideoDeviceName(int index) const {
    if (index < 0 || index >= static_cast<int>(counted_.size()))
        throw Error(kInvalidProperty, tr("Invalid property value"), QStringLiteral("VideoDeviceName"));
    return counted_[static_cast<std::size_t>(index)].name;
}

void GstVideoCapX::SetConnected(bool connected) {
    if (connected && VideoDeviceCount() == 0)
        throw Error(kNoCamera, tr("There is no capture device"), QStringLiteral("VideoCapX"));
    connected_ = connected;
    if (!connected) StopStream();
}

void GstVideoCapX::SetComponentPreview(bool preview) {
    if (preview) throw Error(kInvalidProperty, tr("Invalid property value"), QStringLiteral("ComponentPreview"));
}

void GstVideoCapX::SetVideoDevice(int index) {
    if (index == videoDevice_) return;
    videoDevice_ = index;
    StopStream();
}

void GstVideoCapX::SetFrameMode(int mode) {
    frameMode_ = mode;
    if (mode != kNewestFrame) StopStream();
}

QImage GstVideoCapX::CurrentFrame() {
    if (!connected_ || frameMode_ != kNewestFrame) return {};
    idle_.start(patience_.idle);
    if (failure_ && failed_.elapsed() < patience_.retry) throw *failure_;
    failure_.reset();
    if (!waiting_.isValid()) waiting_.start();
    try {
        PullFrame();
    } catch (const Error& error) {
        const Error told = StillPlugged()
                               ? error
                               : CameraError(QT_TRANSLATE_NOOP("kelu::GstVideoCapX", "The camera was disconnected"));
        StopStream();
        failure_ = told;
        failed_.start();
        idle_.start(patience_.idle);
        throw *failure_;
    }
    return frame_;
}

void GstVideoCapX::PullFrame() {
    // A device that is still closing would be found busy.
    const bool free = !closing_.valid() || IsReady(closing_);
    if (!stream_ && free) StartStream();
    const QImage newest = stream_ ? stream_->TakeFrame() : QImage();
    if (!newest.isNull()) {
        frame_ = newest;
        waiting_.start();
    } else if (waiting_.elapsed() > (frame_.isNull() ? patience_.opening : patience_.silence)) {
        throw CameraError(QT_TRANSLATE_NOOP("kelu::GstVideoCapX", "The camera does not send any picture"));
    }
}

void GstVideoCapX::StartStream() {
    const std::vector<GstCamera> cameras = cameras_.Cameras();
    if (cameras.empty()) throw CameraError(QT_TRANSLATE_NOOP("kelu::GstVideoCapX", "The camera was disconnected"));
    const auto wanted = static_cast<std::size_t>(std::max(videoDevice_, 0));
    const GstCamera& camera = cameras[wanted < cameras.size() ? wanted : 0];
    streaming_ = camera.id;
    stream_ = std::make_unique<GstStream>(camera);
}

void GstVideoCapX::StopStream() {
    idle_.stop();
    if (stream_) closing_ = stream_->Close();
    stream_.reset();
    frame_ = {};
    waiting_.invalidate();
    failure_.reset();
}

bool GstVideoCapX::StillPlugged() const {
    const std::vector<GstCamera> cameras = cameras_.Cameras();
    return std::any_of(cameras.begin(), cameras.end(),
                       [this](const GstCamera& camera) { return camera.id == streaming_; });
}

}  // namespace kelu
