// One running instance of the program for each user.
// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include <QDir>
#include <QStandardPaths>

#include "platform/private_folder.h"

namespace kelu {

namespace {

/// The user's run-time folder, which is gone with the last log-out; else the cache, which every session shares too.
QString LockPath(const QString& name) {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QDir(runtime).exists() && !OthersCanWrite(runtime))
        return runtime + u'/' + name + QStringLiteral(".lock");
    const QString cache =
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + QStringLiteral("/Tarvane/Kelu");
    MakePrivateFolder(cache);
    return cache + u'/' + name + QStringLiteral(".lock");
}

}  // namespace

SingleInstance::SingleInstance(const QString& name)
    : lock_(LockPath(name)), first_(lock_.Lock(std::chrono::milliseconds(0)) != FileLock::Answer::Busy) {}

}  // namespace kelu
