// Writes a file so that it is either whole and on the disk, or the old one stays as it was.
// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <filesystem>
#include <system_error>

#include "platform/error.h"
#include "platform/temporary_folder.h"
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#endif

namespace kelu {

namespace {

namespace fs = std::filesystem;

constexpr int kLongestLinkChain = 40;
constexpr int kNameTries = 100;
constexpr QIODevice::OpenMode kOpenMode = QIODevice::ReadWrite | QIODevice::Unbuffered;

/// The path behind all links, also when nothing is there yet; empty for a circle of links.
QString FollowLinks(const QString& path) {
    fs::path target = QFileInfo(path).filesystemAbsoluteFilePath();
    std::error_code error;
    for (int step = 0; step < kLongestLinkChain; ++step) {
        if (!fs::is_symlink(target, error)) return QString::fromStdU16String(target.u16string());
        const fs::path next = fs::read_symlink(target, error);
        if (error) return {};
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return {};
}

QString NewName(const QString& folder) {
    return folder + QStringLiteral("/.kelu-%1.tmp").arg(QRandomGenerator::system()->generate64(), 16, 16, QChar(u'0'));
}

#ifdef Q_OS_UNIX
QString Reason(int code) { return QString::fromLocal8Bit(std::strerror(code)); }
#endif

/// To the disk. Why not, or nothing.
QString Flush(QFile& file) {
    if (!file.flush()) return file.errorString();
#ifdef Q_OS_UNIX
    if (::fsync(file.handle()) != 0) return Reason(errno);
#endif
    return {};
}

/// The whole of `from` takes the place of what `target` holds. Why not, or nothing.
QString Refill(QFile& target, QFile& from) {
    if (!from.seek(0) || !target.resize(0) || !target.seek(0)) return target.errorString();
    while (!from.atEnd()) {
        const QByteArray piece = from.read(1 << 20);
        if (piece.isEmpty()) return from.errorString();
        if (target.write(piece) != piece.size()) return target.errorString();
    }
    return Flush(target);
}

#ifdef Q_OS_UNIX
/// Held by whoever writes the file, until it has its last name or its writer is gone.
bool Claim(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

/// Removes what killed processes of this user left in the folder.
void RemoveOrphans(const QString& folder) {
    for (const QFileInfo& file :
         QDir(folder).entryInfoList({QStringLiteral(".kelu-*.tmp")}, QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        const QByteArray name = QFile::encodeName(file.filePath());
        const int descriptor = ::open(name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (descriptor < 0) continue;
        if (file.ownerId() == ::geteuid() && Claim(descriptor)) ::unlink(name.constData());
        ::close(descriptor);
    }
}

/// The folder's entry for a renamed file reaches the disk with the folder, not with the file. Some file systems can't
/// do this; the rename itself stands all the same.
void FlushFolder(const QString& folder) {
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}
#endif

}  // namespace

qint64 AtomicFile::WholeFile::writeData(const char* bytes, qint64 count) {
    for (qint64 done = 0; done < count && failure_.isEmpty();) {
        const qint64 taken = QFile::writeData(bytes + done, count - done);
        if (taken <= 0) failure_ = errorString();
        done += taken;
    }
    return failure_.isEmpty() ? count : -1;
}

AtomicFile::AtomicFile(const QString& path, Access access) : path_(path) {
    target_ = FollowLinks(path);
    if (target_.isEmpty()) Fail(tr("the link leads nowhere"));
    const QFileInfo old(target_);
    if (old.isDir()) Fail(tr("this is a folder"));
    if (old.exists() && !old.isFile()) Fail(tr("this is not a file"));
    if (old.exists() && !old.isWritable()) Fail(tr("the file is read-only"));
    folder_ = old.absolutePath();
    if (!QFileInfo(folder_).isDir()) Fail(tr("the folder does not exist"));
    Open(access);
}

AtomicFile::~AtomicFile() { Discard(); }

#ifdef Q_OS_UNIX

// The new file has no name until it is complete, where the file system can do that: then even a killed process leaves
// nothing behind.
void AtomicFile::Open(Access access) {
    int descriptor = -1;
    RemoveOrphans(folder_);
#ifdef O_TMPFILE
    if (::access("/proc/self/fd", X_OK) == 0)
        descriptor = ::open(QFile::encodeName(folder_).constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
#endif
    if (descriptor >= 0) {
        if (!file_.open(descriptor, kOpenMode, QFileDevice::AutoCloseHandle)) Fail(file_.errorString());
        Claim(descriptor);
    } else {
        inPlace_ = ::access(QFile::encodeName(folder_).constData(), W_OK) != 0;
        if (inPlace_ && !QFileInfo::exists(target_)) Fail(tr("the folder cannot be written to"));
        OpenNamed(inPlace_ ? TemporaryFolder() : folder_);
        if (inPlace_) {
            ::fchmod(file_.handle(), 0600);
            return;
        }
    }

    struct stat old {};
    const bool replaces = ::stat(QFile::encodeName(target_).constData(), &old) == 0;
    if (access == Access::Private) {
        ::fchmod(file_.handle(), 0600);
    } else if (replaces) {
        // Group and owner only where the system allows it; never more rights for anybody than the old file gave.
        mode_t mode = old.st_mode & 0777;
        if (::fchown(file_.handle(), old.st_uid, old.st_gid) != 0 &&
            ::fchown(file_.handle(), uid_t(-1), old.st_gid) != 0)
            mode &= 0707;
        ::fchmod(file_.handle(), mode);
    }
}

void AtomicFile::GiveName() {
    if (!temporaryPath_.isEmpty()) return;
    const QByteArray source = "/proc/self/fd/" + QByteArray::number(file_.handle());
    for (int tries = 0; tries < kNameTries; ++tries) {
        const QString name = NewName(folder_);
        if (::linkat(AT_FDCWD, source.constData(), AT_FDCWD, QFile::encodeName(name).constData(), AT_SYMLINK_FOLLOW) ==
            0) {
            temporaryPath_ = name;
            return;
        }
        if (errno != EEXIST) break;
    }
    Fail(Reason(errno));
}

#else

void AtomicFile::Open(Access) { OpenNamed(folder_); }

void AtomicFile::GiveName() {}

#endif

void AtomicFile::OpenNamed(const QString& folder) {
    for (int tries = 0; tries < kNameTries; ++tries) {
        temporaryPath_ = NewName(folder);
        file_.setFileName(temporaryPath_);
        if (file_.open(kOpenMode | QIODevice::NewOnly)) {
#ifdef Q_OS_UNIX
            // Another process may take it for an orphan before it is claimed; then it has no name any more.
            struct stat state {};
            if (Claim(file_.handle()) && ::fstat(file_.handle(), &state) == 0 && state.st_nlink == 0) {
                file_.close();
                continue;
            }
#endif
            return;
        }
        if (!QFileInfo::exists(temporaryPath_)) break;
    }
    temporaryPath_.clear();
    Fail(file_.errorString());
}

void AtomicFile::Write(const QByteArray& bytes) {
    if (file_.write(bytes) != bytes.size()) Fail(file_.errorString());
}

void AtomicFile::FillAndCommit(const std::function<void(QFile&)>& fill) {
    try {
        fill(file_);
    } catch (const Error&) {
        if (file_.Failure().isEmpty()) throw;
    }
    Commit();
}

void AtomicFile::Commit() {
    if (!file_.isOpen()) Fail(tr("already written"));
    if (!file_.Failure().isEmpty()) Fail(file_.Failure());
    if (file_.error() != QFileDevice::NoError) Fail(file_.errorString());
    if (const QString reason = Flush(file_); !reason.isEmpty()) Fail(reason);
    if (inPlace_) return ReplaceInPlace();
    GiveName();
    file_.close();
    if (file_.error() != QFileDevice::NoError) Fail(file_.errorString());
    std::error_code error;
    fs::rename(QFileInfo(temporaryPath_).filesystemFilePath(), QFileInfo(target_).filesystemFilePath(), error);
    if (error) Fail(QString::fromStdString(error.message()));
    temporaryPath_.clear();
#ifdef Q_OS_UNIX
    FlushFolder(folder_);
#endif
}

void AtomicFile::ReplaceInPlace() {
    // Both the new and the old file lie whole in the temporary folder while the target is written.
    const QString old = temporaryPath_.chopped(4) + QStringLiteral("-") + QFileInfo(target_).fileName();
    if (!QFile::copy(target_, old)) Fail(tr("the folder cannot be written to, and there is no room for a copy"));
    WholeFile target;
    target.setFileName(target_);
    QString reason;
    if (!target.open(kOpenMode)) {
        reason = target.errorString();
    } else if (reason = Refill(target, file_); !reason.isEmpty()) {
        QFile again(target_), copy(old);
        if (!again.open(kOpenMode) || !copy.open(QIODevice::ReadOnly) || !Refill(again, copy).isEmpty())
            Fail(tr("%1; the old file is kept as %2").arg(reason, old));
    }
    QFile::remove(old);
    Discard();
    if (!reason.isEmpty()) Fail(reason);
}

void AtomicFile::Discard() {
    if (file_.isOpen()) file_.close();
    if (!temporaryPath_.isEmpty()) QFile::remove(temporaryPath_);
    temporaryPath_.clear();
}

void AtomicFile::Fail(const QString& reason) const {
    throw Error(kFileError, path_ + QStringLiteral(": ") + reason, QStringLiteral("AtomicFile"));
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
}

}  // namespace kelu
