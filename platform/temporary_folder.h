// The folder for the program's temporary files.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// The folder that the environment variable TEMP names, else a private folder of the user. A folder in which others
/// can write is never used openly: the result is then a private folder (mode 0700) inside it. Exists on return;
/// throws Error(kFileError) when no folder can be had.
QString TemporaryFolder();

}  // namespace kelu
