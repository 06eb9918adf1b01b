// A camera as GStreamer offers it, and the list of those that are there.
// SPDX-License-Identifier: MIT
#pragma once

#include <gst/gst.h>

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace kelu {

template <typename T>
using GstShared = std::shared_ptr<T>;

/// Takes over one reference of an object (element, device, bus, monitor); null stays null.
template <typename T>
GstShared<T> OwnObject(T* object) {
    return GstShared<T>(object, [](T* one) {
        if (one) gst_object_unref(one);
    });
}

/// The same for what counts its references as a mini object: caps, samples, messages.
template <typename T>
GstShared<T> OwnMini(T* object) {
    return GstShared<T>(object, [](T* one) {
        if (one) gst_mini_object_unref(GST_MINI_OBJECT_CAST(one));
    });
}

struct GstCamera {
    QString name;
    const void* id = nullptr;                 ///< the same as long as the device is plugged in
    std::function<GstElement*()> makeSource;  ///< a new floating element; null when the device has gone
    GstShared<GstCaps> caps;                  ///< what it can send; null or any: unknown
};

class GstCameraList {
 public:
    virtual ~GstCameraList() = default;

    /// See VideoCapX::Search.
    virtual void Search(std::function<void()> whenDone) = 0;
    /// The cameras that are there now; none while the search goes on.
    virtual std::vector<GstCamera> Cameras() = 0;
};

}  // namespace kelu
