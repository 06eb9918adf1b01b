// The camera as the program sees it: devices by index, and the newest frame pulled when somebody wants to show it.
// The real one is GstVideoCapX; tests play one by script (tests/support/scripted_camera.h).
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QStringList>
#include <functional>

namespace kelu {

class VideoCapX {
 public:
    /// Values of FrameMode. The device itself is open only while frames are pulled, so that a camera is neither lit
    /// nor kept from other programs before somebody looks at its picture.
    static constexpr int kNoFrames = 0;     ///< the start value
    static constexpr int kNewestFrame = 1;  ///< CurrentFrame is the newest frame

    virtual ~VideoCapX() = default;

    /// Looks for devices without holding up the caller. `whenDone` is called once, on the interface thread, when the
    /// operations below can tell what there is; it may be called before Search returns. A system that does not answer
    /// within some seconds counts as one without devices.
    virtual void Search(std::function<void()> whenDone) = 0;

    /// Devices that are there now; 0 as long as the search goes on.
    virtual int VideoDeviceCount() = 0;
    /// Name of a device as counted last, fit to be listed. Throws Error(kInvalidProperty) for another index.
    virtual QString VideoDeviceName(int index) const = 0;

    virtual bool Connected() const = 0;
    /// True throws Error(kNoCamera) with no device. False lets the device go.
    virtual void SetConnected(bool connected) = 0;
    virtual bool ComponentPreview() const = 0;
    /// Frames are only handed out, never drawn, so true throws Error(kInvalidProperty).
    virtual void SetComponentPreview(bool preview) = 0;
    virtual int VideoDevice() const = 0;
    /// Index from 0; any other one (-1 before a choice is known, or one of a device that has gone) means the first.
    virtual void SetVideoDevice(int index) = 0;
    virtual int FrameMode() const = 0;
    virtual void SetFrameMode(int mode) = 0;

    /// The newest frame, RGB32, 4:3 (wider pictures lose their sides, so that the snapshot sizes don't squeeze them);
    /// null before the first one. The same picture (cacheKey) until there is a newer one. Never waits for the device.
    /// Throws Error as long as the device is unplugged, taken by another program or silent; it is tried again by later
    /// calls.
    virtual QImage CurrentFrame() = 0;
};

/// The names of the devices that are there now, by index.
QStringList DeviceNames(VideoCapX& camera);
/// Connects for the choice of a device alone: no frame is taken. Throws Error(kNoCamera) with no device.
void ConnectDevice(VideoCapX& camera, int device);

}  // namespace kelu
