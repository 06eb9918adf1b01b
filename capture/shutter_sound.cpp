// SPDX-License-Identifier: MIT
#include "capture/shutter_sound.h"

#include <QUrl>

#include "capture/detached_job.h"
#include "capture/gst_camera.h"

namespace kelu {

namespace {

constexpr GstClockTime kLongestSound = 5 * GST_SECOND;
constexpr int kAudioOnly = 2;  // playbin's flag for sound; no window for a file that holds a picture

void Play(const QByteArray& uri) {
    if (!gst_init_check(nullptr, nullptr, nullptr)) return;
    GstElement* const made = gst_element_factory_make("playbin", nullptr);
    if (!made) return;
    const auto player = OwnObject(GST_ELEMENT(gst_object_ref_sink(made)));
    g_object_set(made, "uri", uri.constData(), "flags", kAudioOnly, nullptr);
    gst_element_set_state(made, GST_STATE_PLAYING);
    OwnMini(gst_bus_timed_pop_filtered(OwnObject(gst_element_get_bus(made)).get(), kLongestSound,
                                       static_cast<GstMessageType>(GST_MESSAGE_ERROR | GST_MESSAGE_EOS)));
    gst_element_set_state(made, GST_STATE_NULL);
}

}  // namespace

void PlaySoundFile(const QString& path) {
    RunDetached([uri = QUrl::fromLocalFile(path).toEncoded()] { Play(uri); });
}

}  // namespace kelu
