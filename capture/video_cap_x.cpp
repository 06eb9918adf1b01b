// SPDX-License-Identifier: MIT
#include "capture/video_cap_x.h"

namespace kelu {

QStringList DeviceNames(VideoCapX& camera) {
    QStringList names;
    const int count = camera.VideoDeviceCount();
    for (int index = 0; index < count; ++index) names.append(camera.VideoDeviceName(index));
    return names;
}

void ConnectDevice(VideoCapX& camera, int device) {
    camera.SetComponentPreview(false);
    camera.SetConnected(true);
    camera.SetVideoDevice(device);
}

}  // namespace kelu
