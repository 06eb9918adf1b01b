// A camera for tests: devices, frames and failures by script.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <functional>
#include <optional>

#include "capture/video_cap_x.h"
#include "platform/error.h"

namespace kelu {

class ScriptedCamera : public VideoCapX {
 public:
    QStringList devices;
    bool answersAtOnce = true;     ///< else the search ends with Answer()
    QImage frame;                  ///< the newest frame
    std::optional<Error> failure;  ///< thrown instead of a frame

    QStringList calls;  ///< what was set, in order
    int pulls = 0;

    void Answer() {
        if (whenDone_) whenDone_();
        whenDone_ = {};
    }

    void Search(std::function<void()> whenDone) override {
        whenDone_ = std::move(whenDone);
        if (answersAtOnce) Answer();
    }
    int VideoDeviceCount() override { return static_cast<int>(devices.size()); }
    QString VideoDeviceName(int index) const override { return devices.at(index); }
    bool Connected() const override { return connected_; }
    void SetConnected(bool connected) override {
        calls.append(QStringLiteral("Connected %1").arg(connected));
        if (connected && devices.isEmpty()) throw Error(kNoCamera, QStringLiteral("No device"));
        connected_ = connected;
    }
    bool ComponentPreview() const override { return false; }
    void SetComponentPreview(bool preview) override {
        calls.append(QStringLiteral("ComponentPreview %1").arg(preview));
    }
    int VideoDevice() const override { return device_; }
    void SetVideoDevice(int index) override {
        calls.append(QStringLiteral("VideoDevice %1").arg(index));
        device_ = index;
    }
    int FrameMode() const override { return frameMode_; }
    void SetFrameMode(int mode) override {
        calls.append(QStringLiteral("FrameMode %1").arg(mode));
        frameMode_ = mode;
    }
    QImage CurrentFrame() override {
        ++pulls;
        if (failure) throw *failure;
        return frame;
    }

 private:
    std::function<void()> whenDone_;
    bool connected_ = false;
    int device_ = -1;
    int frameMode_ = kNoFrames;
};

}  // namespace kelu
