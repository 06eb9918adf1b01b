// Hands things over to the user's desktop.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// Opens a file with the program that the user's desktop has for its kind. False when there is no such file or the
/// desktop refuses; true says only that the desktop took it.
bool OpenDocument(const QString& path);

}  // namespace kelu
