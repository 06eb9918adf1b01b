// SPDX-License-Identifier: MIT
#include "document/journal_file.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <atomic>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include "document/recipe.h"
#include "pictures/picture_file.h"
#include "platform/error.h"
#include "platform/private_folder.h"

namespace kelu {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::Journal)
};

QString NewPath(const QString& folder) {
    static std::atomic<int> count = 0;
    return QStringLiteral("%1/%2-%3-%4%5")
        .arg(folder, QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-hhmmss")))
        .arg(QCoreApplication::applicationPid())
        .arg(++count)
        .arg(QLatin1String(JournalFile::kSuffix));
}

QString MadeFolder(const QString& folder) {
    if (!MakePrivateFolder(folder))
        throw Error(kFileError, Texts::tr("the folder %1 can't be made").arg(folder), QStringLiteral("Journal"));
    return folder;
}

}  // namespace

QString JournalFile::UserFolder() {
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(state)) {
#ifdef Q_OS_UNIX
        state = QDir::homePath() + QStringLiteral("/.local/state");
#else
        state = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#endif
    }
    return state + QStringLiteral("/Tarvane/Kelu");
}

JournalFile::JournalFile(const QString& folder) : path_(NewPath(MadeFolder(folder))), lock_(path_), file_(path_) {
    busy_ = lock_.Lock(std::chrono::milliseconds(0)) != FileLock::Answer::Locked;  // makes the file, mode 0600
    OpenForAppend();
    Append(HeaderLine(/*isJournal=*/true));
}

JournalFile::JournalFile(const QString& path, qint64 certainBytes, std::uint32_t check)
    : path_(path), lock_(path_), file_(path_), certainBytes_(certainBytes), check_(check) {
    busy_ = lock_.Lock(std::chrono::milliseconds(0)) == FileLock::Answer::Busy;
    // Names of kept pictures must not meet.
    const QFileInfo info(path_);
    kept_ = static_cast<int>(info.dir().entryList({info.completeBaseName() + QStringLiteral("-*.png")}).size());
}

void JournalFile::OpenForAppend() {
    if (file_.isOpen()) return;
    // The lock has made a new one, or the system says here why it could not. One that somebody removed stays away.
    const auto made = certainBytes_ > 0 ? QIODevice::ExistingOnly : QIODevice::NotOpen;
    if (!file_.open(QIODevice::ReadWrite | QIODevice::Unbuffered | made)) Fail();
    if (file_.size() > certainBytes_ && !file_.resize(certainBytes_)) Fail();
    if (!file_.seek(file_.size())) Fail();
}

void JournalFile::Append(const QByteArray& lines) {
    OpenForAppend();
    const QByteArray text = WithChecks(lines, check_);
    if (file_.write(text) != text.size()) Fail();
#ifdef Q_OS_UNIX
    // The page cache outlives a killed program, but not a power cut.
    if (::fsync(file_.handle()) != 0) throw Error(kFileError, qt_error_string(errno), QStringLiteral("Journal"));
#endif
}

void JournalFile::AppendStamp(const QString& picturePath) {
    const QFileInfo picture(picturePath);
    const QByteArray sum = FileSum(picturePath);
    if (sum.isEmpty()) return;
    Append("stamp " + QByteArray::number(picture.size()) + ' ' +
           QByteArray::number(picture.lastModified().toMSecsSinceEpoch()) + ' ' + sum + '\n');
}

QString JournalFile::Keep(const Photograph& kept) {
    const QFileInfo info(path_);
    const QString name = QStringLiteral("%1-%2.png").arg(info.completeBaseName()).arg(++kept_);
    WriteOptions options;
    options.metadata = kept.metadata;
    MakePrivateFile(info.dir().filePath(name));
    WritePicture(kept.picture, info.dir().filePath(name), options);
    return name;
}

void JournalFile::KeepOpened(const Photograph& opened) {
    Append("kept " + Keep(opened).toLatin1() + (opened.picture.hasAlphaChannel() ? " 32\n" : " 24\n"));
}

void JournalFile::Remove() {
    const QFileInfo info(path_);
    QDir folder = info.dir();
    for (const QString& name : folder.entryList({info.completeBaseName() + QStringLiteral("-*.png")}))
        folder.remove(name);
    file_.close();
    QFile::remove(path_);
}

void JournalFile::Fail() const { throw Error(kFileError, file_.errorString(), QStringLiteral("Journal")); }

QByteArray FileSum(const QString& path) {
    QFile file(path);
    QCryptographicHash sum(QCryptographicHash::Sha1);
    if (!file.open(QIODevice::ReadOnly) || !sum.addData(&file)) return {};
    return sum.result().toHex();
}

}  // namespace kelu
