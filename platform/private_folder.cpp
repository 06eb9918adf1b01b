// Folders and files that nobody but the user can read or write.
// SPDX-License-Identifier: MIT
#include "platform/private_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace kelu {

#ifdef Q_OS_UNIX

bool MakePrivateFolder(const QString& path) {
    const QString clean = QDir::cleanPath(path);
    const QString above = QFileInfo(clean).path();
    if (above != clean && !QFileInfo(above).isDir() && !MakePrivateFolder(above)) return false;
    const QByteArray name = QFile::encodeName(clean);
    if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST) return false;
    struct stat state {};
    if (::lstat(name.constData(), &state) != 0 || !S_ISDIR(state.st_mode) || state.st_uid != ::geteuid()) return false;
    return (state.st_mode & 0077) == 0 || ::chmod(name.constData(), 0700) == 0;
}

bool MakePrivateFile(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0) return false;
    const bool closed = ::fchmod(file, 0600) == 0;
    ::close(file);
    return closed;
}

bool OthersCanWrite(const QString& path) {
    struct stat state {};
    if (::stat(QFile::encodeName(path).constData(), &state) != 0) return true;
    if (state.st_uid != ::geteuid() && state.st_uid != 0) return true;
    return (state.st_mode & S_IWOTH) != 0 || ((state.st_mode & S_IWGRP) != 0 && state.st_gid != ::getegid());
}

QString UserTag() { return QString::number(::geteuid()); }

#else

// The user's own folders are closed to others by the system's inherited access lists.
bool MakePrivateFolder(const QString& path) { return QDir().mkpath(path); }

bool MakePrivateFile(const QString& path) { return QFile(path).open(QIODevice::WriteOnly | QIODevice::Append); }

bool OthersCanWrite(const QString&) { return false; }

QString UserTag() { return qEnvironmentVariable("USERNAME"); }

#endif

}  // namespace kelu
