// The cameras of this machine. GStreamer is first touched here, on a thread of its own and after the window's first
// paint: its start costs up to 300 ms for a user who never ran it. Afterwards the list follows what is plugged.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

#include "capture/gst_camera.h"

namespace kelu {

class GstDeviceList : public QObject, public GstCameraList {
    Q_OBJECT

 public:
    static constexpr int kAfterFirstPaint = 300;  // ms; the window is up in half of it, and the splash covers the rest
    static constexpr int kLongestSearch = 5000;   // ms

    /// `delay`: from the first Search until it really begins, in ms.
    explicit GstDeviceList(int delay = kAfterFirstPaint);

    void Search(std::function<void()> whenDone) override;
    std::vector<GstCamera> Cameras() override;

 private:
    void Begin();
    void Poll();
    void Finish();

    std::vector<std::function<void()>> waiting_;
    QTimer poll_;
    int delay_;
    int polls_ = 0;
    bool begun_ = false;
    bool done_ = false;
};

}  // namespace kelu
