// A lock between processes, tied to a file. It ends with its owner, also when the owner is killed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>
#include <memory>

namespace kelu {

class FileLock {
 public:
    enum class Answer {
        Locked,
        Busy,       ///< somebody else held it for the whole waiting time
        Impossible  ///< the file can't be made or can't be locked
    };

    /// Makes the file (mode 0600) if needed; its folder must exist. Nothing is locked yet.
    explicit FileLock(const QString& path);
    ~FileLock();

    Answer Lock(std::chrono::milliseconds patience);
    void Unlock();

 private:
    struct Holder;
    std::unique_ptr<Holder> holder_;
};

}  // namespace kelu
