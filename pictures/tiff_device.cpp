// The TIFF library on an open device.
// SPDX-License-Identifier: MIT
#include "pictures/tiff_device.h"

#include <cstdio>

namespace kelu {
namespace {

QIODevice& Device(thandle_t handle) { return *static_cast<QIODevice*>(handle); }

tmsize_t Read(thandle_t handle, void* bytes, tmsize_t count) {
    return Device(handle).read(static_cast<char*>(bytes), count);
}

tmsize_t Write(thandle_t handle, void* bytes, tmsize_t count) {
    return Device(handle).write(static_cast<const char*>(bytes), count);
}

toff_t Seek(thandle_t handle, toff_t offset, int from) {
    QIODevice& device = Device(handle);
    const qint64 begin = from == SEEK_CUR ? device.pos() : from == SEEK_END ? device.size() : 0;
    const qint64 target = begin + static_cast<qint64>(offset);
    return device.seek(target) ? static_cast<toff_t>(target) : static_cast<toff_t>(-1);
}

}  // namespace

TiffHandle OpenTiff(QIODevice& device, const char* mode) {
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    return TiffHandle(TIFFClientOpen(
        "", mode, &device, &Read, &Write, &Seek, [](thandle_t) { return 0; },
        [](thandle_t handle) { return static_cast<toff_t>(Device(handle).size()); }, nullptr, nullptr));
}

}  // namespace kelu
