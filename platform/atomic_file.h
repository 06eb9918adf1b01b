// Writes a file so that it is either whole and on the disk, or the old one stays as it was.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <functional>

namespace kelu {

/// Write into Device() (seekable, readable, starts empty), then Commit(). Without a Commit nothing happens to the
/// target and nothing is left behind. A target that is a symbolic link is followed; an existing target keeps its
/// permissions. A file that may be written in a folder that may not is replaced in its place, after a copy was put
/// into the folder for temporary files. Failures are thrown as Error(kFileError) whose description begins with the
/// path.
class AtomicFile {
    Q_DECLARE_TR_FUNCTIONS(kelu::AtomicFile)

 public:
    enum class Access {
        AsUsual,  ///< a new file gets the permissions that the user's files get, an old one keeps its own
        Private   ///< readable and writable by the user alone (0600), whatever it was before
    };

    /// Opens the new file beside `path`, whose folder must exist.
    explicit AtomicFile(const QString& path, Access access = Access::AsUsual);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// For writers that take a device. Errors of the device are also seen by Commit().
    QFile& Device() { return file_; }
    void Write(const QByteArray& bytes);
    /// Lets `fill` write the whole file and commits. Where the device refuses bytes, its reason is what is thrown,
    /// whatever `fill` makes of that.
    void FillAndCommit(const std::function<void(QFile&)>& fill);
    /// Flushes to the disk and puts the new file in the target's place in one step. May be called once.
    void Commit();

 private:
    /// Takes all bytes or knows why not, and takes no more after a failure: not every writer looks, and the toolkit's
    /// own file forgets a failure at the next write, and gives no reason for a write that was taken in part, as the
    /// first one on a full disk is. Opened without a buffer, or the rest would be refused behind our back.
    class WholeFile : public QFile {
     public:
        const QString& Failure() const { return failure_; }

     protected:
        qint64 writeData(const char* bytes, qint64 count) override;

     private:
        QString failure_;
    };

    void Open(Access access);
    void OpenNamed(const QString& folder);
    void GiveName();
    void ReplaceInPlace();
    void Discard();
    [[noreturn]] void Fail(const QString& reason) const;

    QString path_;           ///< as the caller names it, for messages
    QString target_;         ///< behind all links
    QString folder_;         ///< of the target
    QString temporaryPath_;  ///< empty as long as the new file has no name
    bool inPlace_ = false;   ///< the target's folder takes no new file
    WholeFile file_;
};

/// The whole file in one step, as above.
void WriteFile(const QString& path, const QByteArray& bytes);

}  // namespace kelu
