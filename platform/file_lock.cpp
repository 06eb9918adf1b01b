// A lock between processes, tied to a file.
// SPDX-License-Identifier: MIT
#include "platform/file_lock.h"

#include <QFile>
#include <QtGlobal>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>
#else
#include <QLockFile>
#endif

namespace kelu {

#ifdef Q_OS_UNIX

// flock rather than a file that exists or not: the system takes it back when its owner dies, so nothing grows stale.
struct FileLock::Holder {
    QByteArray path;
    int descriptor = -1;
};

FileLock::FileLock(const QString& path) : holder_(new Holder{QFile::encodeName(path)}) {}

FileLock::~FileLock() { Unlock(); }

FileLock::Answer FileLock::Lock(std::chrono::milliseconds patience) {
    Unlock();
    const int descriptor = ::open(holder_->path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) return Answer::Impossible;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    Answer answer = Answer::Locked;
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) continue;
        answer = errno == EWOULDBLOCK ? Answer::Busy : Answer::Impossible;
        if (answer == Answer::Impossible || std::chrono::steady_clock::now() >= deadline) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        answer = Answer::Locked;
    }
    if (answer == Answer::Locked)
        holder_->descriptor = descriptor;
    else
        ::close(descriptor);
    return answer;
}

void FileLock::Unlock() {
    if (holder_->descriptor >= 0) ::close(holder_->descriptor);
    holder_->descriptor = -1;
}

#else

struct FileLock::Holder {
    explicit Holder(const QString& path) : file(path) { file.setStaleLockTime(0); }
    QLockFile file;
};

FileLock::FileLock(const QString& path) : holder_(new Holder(path)) {}

FileLock::~FileLock() { Unlock(); }

FileLock::Answer FileLock::Lock(std::chrono::milliseconds patience) {
    if (holder_->file.tryLock(static_cast<int>(patience.count()))) return Answer::Locked;
    return holder_->file.error() == QLockFile::LockFailedError ? Answer::Busy : Answer::Impossible;
}

void FileLock::Unlock() { holder_->file.unlock(); }

#endif

}  // namespace kelu
