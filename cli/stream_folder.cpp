// SPDX-License-Identifier: MIT
#include "cli/stream_folder.h"

#include <QDir>
#include <QMutex>
#include <QSet>
#include <system_error>
#include <thread>
#ifdef Q_OS_UNIX
#include <signal.h>
#endif

#include "platform/error.h"
#include "platform/temporary_folder.h"

namespace kelu::cli {

namespace {

constexpr int kTries = 100;  // somebody may be writing into it

struct Folders {
    QMutex mutex;
    QSet<QString> paths;
};

/// Never destroyed: the thread that waits for signals outlives main.
Folders& All() {
    static auto* const all = new Folders;
    return *all;
}

#ifdef Q_OS_UNIX
void EndAt(const sigset_t& signals) {
    int number = 0;
    if (::sigwait(&signals, &number) != 0) return;
    const QMutexLocker lock(&All().mutex);
    for (const QString& path : All().paths)
        for (int tries = 0; tries < kTries && !QDir(path).removeRecursively();) ++tries;
    ::signal(number, SIG_DFL);
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    ::raise(number);
}
#endif

}  // namespace

StreamFolder::StreamFolder() : folder_(QDir(TemporaryFolder()).filePath(QStringLiteral("kelu-cli-XXXXXX"))) {
    if (!folder_.isValid()) throw Error(kFileError, folder_.errorString());
    const QMutexLocker lock(&All().mutex);
    All().paths.insert(folder_.path());
}

StreamFolder::~StreamFolder() {
    const QMutexLocker lock(&All().mutex);
    All().paths.remove(folder_.path());
    folder_.remove();
}

void RemoveStreamFoldersAtEnd() {
#ifdef Q_OS_UNIX
    ::signal(SIGPIPE, SIG_IGN);
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction now {};
        ::sigaction(number, nullptr, &now);
        if (now.sa_handler != SIG_IGN) ::sigaddset(&signals, number);  // as nohup asks for it
    }
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);  // all threads inherit it
    try {
        std::thread([signals] { EndAt(signals); }).detach();
    } catch (const std::system_error&) {
        ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    }
#endif
}

}  // namespace kelu::cli
