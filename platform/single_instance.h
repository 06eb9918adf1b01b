// One running instance of the program for each user.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "platform/file_lock.h"

namespace kelu {

/// Keep the object for the life of the process. The place is free again when the process ends, however it ends.
class SingleInstance {
 public:
    /// `name` tells programs apart and is part of a file name: letters and digits.
    explicit SingleInstance(const QString& name);

    /// False when another process of this user holds the place. True when it can't be known: better two instances
    /// than none.
    bool IsFirst() const { return first_; }

 private:
    FileLock lock_;
    bool first_;
};

}  // namespace kelu
