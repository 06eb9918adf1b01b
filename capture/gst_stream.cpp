// SPDX-License-Identifier: MIT
#include "capture/gst_stream.h"

#include <gst/app/gstappsink.h>
#include <gst/video/video.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "capture/camera_mode.h"
#include "capture/detached_job.h"
#include "pictures/picture.h"
#include "platform/error.h"

namespace kelu {

namespace {

[[noreturn]] void Fail(const char* why) { throw Error(kFileError, GstStream::tr(why), QStringLiteral("VideoCapX")); }

/// What the user can do something about is told in plain words; the rest as GStreamer puts it.
[[noreturn]] void FailAs(GstMessage* message) {
    GError* raised = nullptr;
    gst_message_parse_error(message, &raised, nullptr);
    const std::unique_ptr<GError, void (*)(GError*)> error(raised, g_error_free);
    if (error->domain == GST_RESOURCE_ERROR) switch (error->code) {
            case GST_RESOURCE_ERROR_BUSY:
                Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera is in use by another program"));
            case GST_RESOURCE_ERROR_NOT_AUTHORIZED:
                Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "This user may not use the camera"));
            case GST_RESOURCE_ERROR_NOT_FOUND:
            case GST_RESOURCE_ERROR_READ:
                Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera was disconnected"));
            case GST_RESOURCE_ERROR_OPEN_READ:
            case GST_RESOURCE_ERROR_OPEN_READ_WRITE:
                Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera can't be opened"));
            default:
                break;
        }
    if (error->domain == GST_STREAM_ERROR)
        Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera sends pictures that can't be read"));
    QString words = QString::fromUtf8(error->message).trimmed();
    if (words.endsWith(u'.')) words.chop(1);
    throw Error(kFileError, words, QStringLiteral("VideoCapX"));
}

/// The largest 4:3 part around the middle.
QRect FourToThree(int width, int height) {
    const int fitting = height * 4 / 3;
    if (width > fitting) return {(width - fitting) / 2, 0, fitting, height};
    const int lower = width * 3 / 4;
    return {0, (height - lower) / 2, width, lower};
}

QImage ImageOf(GstSample* sample) {
    GstVideoInfo info;
    GstVideoFrame frame;
    if (!gst_video_info_from_caps(&info, gst_sample_get_caps(sample))) return {};
    if (!gst_video_frame_map(&frame, &info, gst_sample_get_buffer(sample), GST_MAP_READ)) return {};
    const std::unique_ptr<GstVideoFrame, void (*)(GstVideoFrame*)> mapped(&frame, gst_video_frame_unmap);
    const QRect part = FourToThree(GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info));
    if (part.isEmpty()) return {};
    QImage image = MakePicture(part.width(), part.height(), QImage::Format_RGB32);
    const auto* const pixels = static_cast<const std::uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(&frame, 0));
    const std::ptrdiff_t stride = GST_VIDEO_FRAME_PLANE_STRIDE(&frame, 0);
    for (int y = 0; y < part.height(); ++y) {
        const std::uint8_t* const from = pixels + (part.top() + y) * stride + std::ptrdiff_t{4} * part.left();
        auto* const to = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
        for (int x = 0; x < part.width(); ++x) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, from + std::ptrdiff_t{4} * x, 4);
            to[x] = pixel | 0xff000000u;  // the fourth byte of BGRx is anything
        }
    }
    return image;
}

/// Copies memory that may be unmapped meanwhile; false when it was.
bool CopySafely(void* to, const void* from, std::size_t size) {
    const iovec local{to, size};
    const iovec remote{const_cast<void*>(from), size};
    // The kernel looks the pages up itself and reports those that are gone, where a plain copy would end the program.
    const ssize_t copied = process_vm_readv(getpid(), &local, 1, &remote, 1, 0);
    if (copied < 0 && (errno == ENOSYS || errno == EPERM)) {
        std::memcpy(to, from, size);
        return true;
    }
    return copied == static_cast<ssize_t>(size);
}

/// The buffer in memory of our own; null when its memory has gone.
GstBuffer* OwnCopy(GstBuffer* theirs) {
    GstBuffer* const ours = gst_buffer_new_allocate(nullptr, gst_buffer_get_size(theirs), nullptr);
    gst_buffer_copy_into(ours, theirs, GST_BUFFER_COPY_METADATA, 0, static_cast<gsize>(-1));
    GstMapInfo to;
    gst_buffer_map(ours, &to, GST_MAP_WRITE);
    std::size_t at = 0;
    bool whole = true;
    for (guint i = 0; whole && i < gst_buffer_n_memory(theirs); ++i) {
        GstMapInfo from;
        whole = gst_memory_map(gst_buffer_peek_memory(theirs, i), &from, GST_MAP_READ);
        if (!whole) break;
        whole = CopySafely(to.data + at, from.data, from.size);
        at += from.size;
        gst_memory_unmap(from.memory, &from);
    }
    gst_buffer_unmap(ours, &to);
    if (!whole) gst_buffer_unref(ours);
    return whole ? ours : nullptr;
}

// PipeWire takes the memory of a camera's frames away when the camera goes, also of those that are still held or read.
// So each is copied where it comes in, and nobody behind this reads anything but the copy.
GstPadProbeReturn TakeOver(GstPad*, GstPadProbeInfo* info, gpointer) {
    GstBuffer* const theirs = GST_PAD_PROBE_INFO_BUFFER(info);
    GstBuffer* const ours = OwnCopy(theirs);
    if (!ours) return GST_PAD_PROBE_DROP;
    gst_buffer_unref(theirs);
    info->data = ours;
    return GST_PAD_PROBE_OK;
}

GstElement* Make(const char* factory) {
    GstElement* const element = gst_element_factory_make(factory, nullptr);
    if (!element) throw Error(kFileError, GstStream::tr("GStreamer lacks its part \"%1\"").arg(QLatin1String(factory)));
    return element;
}

/// The next of the wanted messages; the others up to it are dropped. Null when there is none.
GstShared<GstMessage> NextMessage(GstElement* pipeline, GstMessageType wanted) {
    return OwnMini(gst_bus_pop_filtered(OwnObject(gst_element_get_bus(pipeline)).get(), wanted));
}

}  // namespace

GstStream::GstStream(const GstCamera& camera) : opened_(RunDetached([camera] { return Open(camera); })) {}

GstStream::Pipeline GstStream::Open(const GstCamera& camera) {
    const std::optional<CameraMode> mode = ChooseMode(camera.caps.get());
    if (!mode) Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera sends a picture format that is not known here"));
    GstElement* last = camera.makeSource();
    if (!last) Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera was disconnected"));

    const auto pipeline = OwnObject(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    gst_bin_add(GST_BIN(pipeline.get()), last);
    if (const auto pad = OwnObject(gst_element_get_static_pad(last, "src")))
        gst_pad_add_probe(pad.get(), GST_PAD_PROBE_TYPE_BUFFER, TakeOver, nullptr, nullptr);
    const auto append = [&](const char* factory) {
        GstElement* const next = Make(factory);
        gst_bin_add(GST_BIN(pipeline.get()), next);
        if (!gst_element_link(last, next))
            Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera sends a picture format that is not known here"));
        return last = next;
    };
    GstElement* const filter = append("capsfilter");
    if (mode->caps) g_object_set(filter, "caps", mode->caps.get(), nullptr);
    // The decoder is named outright: with PipeWire's source, one that looks for itself (decodebin) never starts.
    if (mode->jpeg) append("jpegdec");
    append("videoconvert");
    const auto sink = OwnObject(GST_ELEMENT(gst_object_ref(append("appsink"))));
    const auto wanted = OwnMini(gst_caps_new_simple("video/x-raw", "format", G_TYPE_STRING, "BGRx", nullptr));
    g_object_set(sink.get(), "caps", wanted.get(), "max-buffers", 1u, "drop", TRUE, "sync", FALSE, "enable-last-sample",
                 FALSE, nullptr);

    if (gst_element_set_state(pipeline.get(), GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) {
        const auto message = NextMessage(pipeline.get(), GST_MESSAGE_ERROR);
        gst_element_set_state(pipeline.get(), GST_STATE_NULL);
        if (message) FailAs(message.get());
        Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera can't be opened"));
    }
    return {pipeline, sink};
}

QImage GstStream::TakeFrame() {
    if (!IsReady(opened_)) return {};
    const Pipeline& open = opened_.get();
    if (const auto sample = OwnMini(gst_app_sink_try_pull_sample(GST_APP_SINK(open.sink.get()), 0)))
        return ImageOf(sample.get());
    const auto message =
        NextMessage(open.pipeline.get(), static_cast<GstMessageType>(GST_MESSAGE_ERROR | GST_MESSAGE_EOS));
    if (message && GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_ERROR) FailAs(message.get());
    if (message) Fail(QT_TRANSLATE_NOOP("kelu::GstStream", "The camera was disconnected"));
    return {};
}

std::shared_future<void> GstStream::Close() {
    return RunDetached([opened = std::move(opened_)] {
        Attempt([&] { gst_element_set_state(opened.get().pipeline.get(), GST_STATE_NULL); });
    });
}

}  // namespace kelu
