// SPDX-License-Identifier: MIT
#include "capture/gst_device_list.h"

#include <utility>

#include "capture/detached_job.h"

namespace kelu {

namespace {

constexpr int kPollTime = 20;  // ms

/// A monitor that follows the cameras; null when GStreamer itself can't start.
GstDeviceMonitor* StartMonitor() {
    if (!gst_init_check(nullptr, nullptr, nullptr)) return nullptr;
    GstDeviceMonitor* const monitor = gst_device_monitor_new();
    gst_device_monitor_add_filter(monitor, "Video/Source", nullptr);
    // Nobody reads the monitor's messages; without this they would pile up.
    gst_bus_set_flushing(OwnObject(gst_device_monitor_get_bus(monitor)).get(), TRUE);
    // A provider that can't start is not an error here: the others still list theirs.
    gst_device_monitor_start(monitor);
    return monitor;
}

/// One monitor for the process, started by the first call and never stopped: stopping PipeWire's part of it damages the
/// heap now and then (seen with 0.3.65: every fifth stop from another thread ends in an abort).
const std::shared_future<GstDeviceMonitor*>& Monitor() {
    static const std::shared_future<GstDeviceMonitor*> monitor = RunDetached(StartMonitor);
    return monitor;
}

GstCamera CameraOf(GstDevice* device) {
    const auto shared = OwnObject(GST_DEVICE(gst_object_ref(device)));
    const std::unique_ptr<gchar, void (*)(gpointer)> name(gst_device_get_display_name(device), g_free);
    return {QString::fromUtf8(name.get()), device,
            [shared] { return gst_device_create_element(shared.get(), nullptr); },
            OwnMini(gst_device_get_caps(device))};
}

}  // namespace

GstDeviceList::GstDeviceList(int delay) : delay_(delay) {
    poll_.setInterval(kPollTime);
    connect(&poll_, &QTimer::timeout, this, &GstDeviceList::Poll);
}

void GstDeviceList::Search(std::function<void()> whenDone) {
    if (done_) return whenDone();
    waiting_.push_back(std::move(whenDone));
    if (std::exchange(begun_, true)) return;
    QTimer::singleShot(delay_, this, &GstDeviceList::Begin);
}

void GstDeviceList::Begin() {
    Monitor();
    poll_.start();
}

void GstDeviceList::Poll() {
    if (IsReady(Monitor()) || ++polls_ * kPollTime >= kLongestSearch) Finish();
}

void GstDeviceList::Finish() {
    poll_.stop();
    done_ = true;
    for (const auto& whenDone : std::exchange(waiting_, {})) whenDone();
}

std::vector<GstCamera> GstDeviceList::Cameras() {
    std::vector<GstCamera> cameras;
    if (!done_ || !IsReady(Monitor()) || !Monitor().get()) return cameras;
    GList* const devices = gst_device_monitor_get_devices(Monitor().get());
    for (const GList* at = devices; at; at = at->next) cameras.push_back(CameraOf(GST_DEVICE(at->data)));
    g_list_free_full(devices, gst_object_unref);
    return cameras;
}

}  // namespace kelu
