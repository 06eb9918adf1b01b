// A camera without hardware: publishes a PipeWire node that sends 640 x 480 BGRx, 30 frames a second: four quarters
// (red, green, blue, grey) and a white square that moves along the middle row. Ends with its input, or when killed.
// virtual_camera [NAME]
// SPDX-License-Identifier: MIT
#include <pipewire/pipewire.h>
#include <spa/param/video/format-utils.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr int kStride = kWidth * 4;
constexpr int kSquare = 32;  // pixels

struct Camera {
    pw_main_loop* loop = nullptr;
    pw_stream* stream = nullptr;
    spa_source* timer = nullptr;
    int frame = 0;
};

void Draw(std::uint8_t* data, int frame) {
    const int left = frame * 4 % (kWidth - kSquare);
    for (int y = 0; y < kHeight; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(data + y * kStride);
        const bool upper = y < kHeight / 2;
        for (int x = 0; x < kWidth; ++x) {
            const bool west = x < kWidth / 2;
            row[x] = upper ? (west ? 0xc80000u : 0x00c800u) : (west ? 0x0000c8u : 0x808080u);
            if (y >= (kHeight - kSquare) / 2 && y < (kHeight + kSquare) / 2 && x >= left && x < left + kSquare)
                row[x] = 0xffffffu;
        }
    }
}

void OnProcess(void* data) {
    auto& camera = *static_cast<Camera*>(data);
    pw_buffer* const buffer = pw_stream_dequeue_buffer(camera.stream);
    if (!buffer) return;
    spa_data& plane = buffer->buffer->datas[0];
    if (plane.data) {
        Draw(static_cast<std::uint8_t*>(plane.data), camera.frame++);
        plane.chunk->offset = 0;
        plane.chunk->stride = kStride;
        plane.chunk->size = kStride * kHeight;
    }
    pw_stream_queue_buffer(camera.stream, buffer);
}

void OnTimer(void* data, std::uint64_t) { pw_stream_trigger_process(static_cast<Camera*>(data)->stream); }

void OnStateChanged(void* data, pw_stream_state, pw_stream_state state, const char*) {
    auto& camera = *static_cast<Camera*>(data);
    timespec wait{0, state == PW_STREAM_STATE_STREAMING ? 1 : 0};
    timespec interval{0, state == PW_STREAM_STATE_STREAMING ? 1000000000 / 30 : 0};
    pw_loop_update_timer(pw_main_loop_get_loop(camera.loop), camera.timer, &wait, &interval, false);
}

void OnParamChanged(void* data, std::uint32_t id, const spa_pod* param) {
    if (!param || id != SPA_PARAM_Format) return;
    std::uint8_t space[512];
    spa_pod_builder builder = SPA_POD_BUILDER_INIT(space, sizeof space);
    const spa_pod* params[] = {static_cast<const spa_pod*>(spa_pod_builder_add_object(
        &builder, SPA_TYPE_OBJECT_ParamBuffers, SPA_PARAM_Buffers, SPA_PARAM_BUFFERS_buffers,
        SPA_POD_CHOICE_RANGE_Int(4, 2, 8), SPA_PARAM_BUFFERS_blocks, SPA_POD_Int(1), SPA_PARAM_BUFFERS_size,
        SPA_POD_Int(kStride * kHeight), SPA_PARAM_BUFFERS_stride, SPA_POD_Int(kStride), SPA_PARAM_BUFFERS_dataType,
        SPA_POD_CHOICE_FLAGS_Int(1 << SPA_DATA_MemFd)))};
    pw_stream_update_params(static_cast<Camera*>(data)->stream, params, 1);
}

}  // namespace

int main(int argc, char** argv) {
    pw_init(nullptr, nullptr);
    Camera camera;
    camera.loop = pw_main_loop_new(nullptr);
    pw_loop* const loop = pw_main_loop_get_loop(camera.loop);
    camera.timer = pw_loop_add_timer(loop, OnTimer, &camera);
    const char* const name = argc > 1 ? argv[1] : "Virtual Camera";
    pw_properties* const properties =
        pw_properties_new(PW_KEY_MEDIA_CLASS, "Video/Source", PW_KEY_MEDIA_ROLE, "Camera", PW_KEY_NODE_NAME,
                          "virtual-camera", PW_KEY_NODE_DESCRIPTION, name, nullptr);
    pw_stream_events events{};
    events.version = PW_VERSION_STREAM_EVENTS;
    events.process = OnProcess;
    events.state_changed = OnStateChanged;
    events.param_changed = OnParamChanged;
    camera.stream = pw_stream_new_simple(loop, "virtual-camera", properties, &events, &camera);

    std::uint8_t space[512];
    spa_pod_builder builder = SPA_POD_BUILDER_INIT(space, sizeof space);
    spa_video_info_raw info{};
    info.format = SPA_VIDEO_FORMAT_BGRx;
    info.size = {kWidth, kHeight};
    info.framerate = {30, 1};
    const spa_pod* params[] = {spa_format_video_raw_build(&builder, SPA_PARAM_EnumFormat, &info)};
    const auto flags = static_cast<pw_stream_flags>(PW_STREAM_FLAG_DRIVER | PW_STREAM_FLAG_MAP_BUFFERS);
    if (!camera.stream || pw_stream_connect(camera.stream, PW_DIRECTION_OUTPUT, PW_ID_ANY, flags, params, 1) < 0) {
        std::fputs("virtual_camera: no PipeWire to publish in\n", stderr);
        return 1;
    }
    pw_main_loop_run(camera.loop);
}
