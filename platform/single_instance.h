// One running instance of the program for each folder of settings.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "platform/file_lock.h"

namespace kelu {

/// Keep the object for the life of the process. The place is free again when the process ends, however it ends.
class SingleInstance {
 public:
    /// `folder` is what two instances would quarrel about, made when it is missing. `name` tells programs apart and is
    /// part of a file name: letters and digits.
    SingleInstance(const QString& folder, const QString& name);

    /// False when another process holds the place. True when it can't be known: better two instances
    /// than none.
    bool IsFirst() const { return first_; }

 private:
    FileLock lock_;
    bool first_;
};

}  // namespace kelu
