// The desktop's own list of files that were used lately, which file managers and open dialogs of other programs show.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// Puts the file on the list or renews its entry; what others put there stays. A list that can't be read or written is
/// left as it is. Reads and writes a file, so not for the interface thread.
void RememberRecentFile(const QString& path);

}  // namespace kelu
