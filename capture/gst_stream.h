// The frames of one open camera. Opening and closing happen on threads of their own; taking a frame never waits.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QImage>
#include <future>

#include "capture/gst_camera.h"

namespace kelu {

class GstStream {
    Q_DECLARE_TR_FUNCTIONS(kelu::GstStream)

 public:
    /// Begins to open the camera.
    explicit GstStream(const GstCamera& camera);
    GstStream(const GstStream&) = delete;
    GstStream& operator=(const GstStream&) = delete;

    /// Closes the camera; ready when it can be opened again. To be called once, and nothing else after it.
    std::shared_future<void> Close();

    /// The newest frame since the last call, RGB32, 4:3; null when there is none. Throws Error when the camera could
    /// not be opened or has stopped.
    QImage TakeFrame();

 private:
    struct Pipeline {
        GstShared<GstElement> pipeline;
        GstShared<GstElement> sink;
    };

    static Pipeline Open(const GstCamera& camera);

    std::shared_future<Pipeline> opened_;
};

}  // namespace kelu
