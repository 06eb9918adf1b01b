// One running instance of the program for each folder of settings.
// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include "platform/private_folder.h"

namespace kelu {

namespace {

QString LockPath(const QString& folder, const QString& name) {
    MakePrivateFolder(folder);
    return folder + u'/' + name + QStringLiteral(".lock");
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder, const QString& name)
    : lock_(LockPath(folder, name)), first_(lock_.Lock(std::chrono::milliseconds(0)) != FileLock::Answer::Busy) {}

}  // namespace kelu
