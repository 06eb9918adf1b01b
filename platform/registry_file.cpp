// The registry store in one text file that a person can read and edit.
// SPDX-License-Identifier: MIT
#include "platform/registry_file.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cerrno>
#include <chrono>

#include "platform/atomic_file.h"
#include "platform/error.h"
#include "platform/private_folder.h"
#include "platform/registry_text.h"
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::RegistryFile)
};

constexpr std::chrono::milliseconds kLockPatience{5000};
/// A file written again within this time of its reading could keep its stamp: clocks of file systems tick coarsely.
constexpr qint64 kStampGrain = 50'000'000;

qint64 NowNanoseconds() {
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

}  // namespace

RegistryFile::RegistryFile(const QString& path)
    : path_(QFileInfo(path).absoluteFilePath()), lock_(new FileLock(path_ + QStringLiteral(".lock"))) {}

RegistryFile::~RegistryFile() {
    batches_ = qMin(batches_, 1);
    if (batches_ > 0) EndBatch();
}

QString RegistryFile::UserPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Tarvane/Kelu/settings.txt");
}

RegistryFile::Stamp RegistryFile::Look() const {
    Stamp stamp;
#ifdef Q_OS_UNIX
    struct stat state {};
    if (::stat(QFile::encodeName(path_).constData(), &state) == 0)
        stamp = {state.st_size, static_cast<qint64>(state.st_ino),
                 qint64{state.st_mtim.tv_sec} * 1'000'000'000 + state.st_mtim.tv_nsec};
#else
    const QFileInfo info(path_);
    if (info.exists()) stamp = {info.size(), 0, info.lastModified().toMSecsSinceEpoch() * 1'000'000};
#endif
    return stamp;
}

/// Brings tree_ up to the file. False when there is a file that can't be read.
bool RegistryFile::Read() {
    const Stamp now = Look();
    if (stampTrusted_ && now == stamp_) return readable_;
    const qint64 readAt = NowNanoseconds();
    QFile file(path_);
    readable_ = true;
    QByteArray bytes;
    if (now.size >= 0) {
        readable_ = file.open(QIODevice::ReadOnly);
        if (readable_) bytes = file.readAll();
        if (file.error() != QFileDevice::NoError) readable_ = false;
    }
    if (!readable_) return Fail(file.errorString());
    stamp_ = now;
    stampTrusted_ = readAt - now.modified > kStampGrain;
    if (bytes == bytes_) return true;
    RegistryTextRead read = ReadRegistryText(bytes);
    tree_ = std::move(read.tree);
    bytes_ = bytes;
    damaged_ = read.damagedLine > 0;
    repairTried_ = false;
    if (damaged_) qWarning().noquote() << QStringLiteral("%1: line %2 is damaged").arg(path_).arg(read.damagedLine);
    return true;
}

const RegistryTree& RegistryFile::Tree() {
    if (batches_ > 0) return tree_;
    if (Read() && damaged_ && !repairTried_) {
        repairTried_ = true;
        if (lock_->Lock(std::chrono::milliseconds(0)) == FileLock::Answer::Locked) {
            // Another process may have put it right meanwhile.
            if (Read() && damaged_) Keep();
            lock_->Unlock();
        }
    }
    return tree_;
}

bool RegistryFile::Apply(const Change& change) {
    const bool alone = batches_ == 0;
    if (alone && !BeginBatch()) return false;
    const bool done = change(tree_);
    batchChanged_ = batchChanged_ || done;
    return (!alone || EndBatch()) && done;
}

bool RegistryFile::BeginBatch() {
    if (batches_++ > 0) return true;
    failure_.clear();
    const QString folder = QFileInfo(path_).absolutePath();
    if (!QFileInfo(folder).isDir() && !MakePrivateFolder(folder)) {
        Fail(Texts::tr("the folder %1 can't be made").arg(folder));
    } else if (const FileLock::Answer answer = lock_->Lock(kLockPatience); answer != FileLock::Answer::Locked) {
        Fail(answer == FileLock::Answer::Busy ? Texts::tr("another program holds it") : qt_error_string(errno));
    } else {
        stampTrusted_ = false;
        if (Read()) return true;
        lock_->Unlock();
    }
    batches_ = 0;
    return false;
}

/// Always false.
bool RegistryFile::Fail(const QString& reason) {
    failure_ = QStringLiteral("%1: %2").arg(path_, reason);
    return false;
}

bool RegistryFile::EndBatch() {
    if (batches_ == 0) return false;
    if (--batches_ > 0) return true;
    const bool kept = !batchChanged_ || Keep();
    batchChanged_ = false;
    lock_->Unlock();
    return kept;
}

/// Under the lock. When the tree can't be kept the object goes back to what the file holds.
bool RegistryFile::Keep() {
    try {
        const QByteArray bytes = WriteRegistryText(tree_);
        if (damaged_) SetAside();
        if (bytes == bytes_) return true;
        AtomicFile file(path_, AtomicFile::Access::Private);
        file.Write(bytes);
        file.Commit();
        bytes_ = bytes;
        stampTrusted_ = false;
        damaged_ = false;
        return true;
    } catch (const Error& error) {
        failure_ = error.Description();
        qWarning().noquote() << failure_;
        tree_ = ReadRegistryText(bytes_).tree;
        return false;
    }
}

/// Copies rather than renames: should the program end here, the readable values are still in their place.
void RegistryFile::SetAside() {
    const QString stem =
        path_ + QStringLiteral(".damaged-") + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString aside = stem;
    for (int number = 2; QFileInfo::exists(aside); ++number) aside = stem + QStringLiteral("-%1").arg(number);
    AtomicFile copy(aside, AtomicFile::Access::Private);
    copy.Write(bytes_);
    copy.Commit();
    qWarning().noquote() << QStringLiteral("%1: kept as %2").arg(path_, aside);
}

}  // namespace kelu
