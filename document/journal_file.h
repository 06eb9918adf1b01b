// The journal's file, as a worker writes it: appended to, line by line, and on the disk when an append returns.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QString>

#include "pictures/metadata.h"
#include "platform/file_lock.h"

namespace kelu {

/// All operations throw Error(kFileError); the journal is then of no further use but to be removed. The file is locked
/// for as long as the object lives, so that no other instance takes it for a left one.
class JournalFile {
 public:
    static constexpr const char* kSuffix = ".journal";

    /// The user's own folder for what the program must remember from one run to the next.
    static QString UserFolder();

    /// A new file in `folder`, which is made (mode 0700) when it is not there, with the header in it.
    explicit JournalFile(const QString& folder);
    /// Goes on with the file that was found: what lies behind its first `certainBytes` is cut off at the first append.
    /// `check` is that of the last line before.
    JournalFile(const QString& path, qint64 certainBytes, std::uint32_t check);

    /// Whether another process, or another object, writes this file.
    bool IsBusy() const { return busy_; }
    const QString& Path() const { return path_; }

    /// `lines` without checks.
    void Append(const QByteArray& lines);
    /// Size, time and checksum of the picture's file. A file that can't be read gets no such line.
    void AppendStamp(const QString& picturePath);
    /// Puts the picture beside the journal and returns its name.
    QString Keep(const Photograph& kept);
    /// The same, and the line that tells of it.
    void KeepOpened(const Photograph& opened);
    /// The file and all that lies beside it.
    void Remove();

 private:
    void OpenForAppend();
    [[noreturn]] void Fail() const;

    QString path_;
    FileLock lock_;
    bool busy_ = false;
    QFile file_;
    qint64 certainBytes_ = 0;
    std::uint32_t check_ = 0;
    int kept_ = 0;
};

/// SHA-1 of a file as hexadecimal text; empty when it can't be read.
QByteArray FileSum(const QString& path);

}  // namespace kelu
