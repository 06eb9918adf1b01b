// Where a picture lies that comes or goes by a pipe.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

namespace kelu::cli {

/// A folder for the files behind one pipe. It goes with its owner, and when a signal ends the program.
class StreamFolder {
 public:
    /// Throws Error.
    StreamFolder();
    ~StreamFolder();
    StreamFolder(const StreamFolder&) = delete;
    StreamFolder& operator=(const StreamFolder&) = delete;

    QString FilePath(const QString& name) const { return folder_.filePath(name); }

 private:
    QTemporaryDir folder_;
};

/// From now on these folders go before the program does, whatever signal ends it, and a reader that takes no more is a
/// failure like others. Before any other thread runs.
void RemoveStreamFoldersAtEnd();

}  // namespace kelu::cli
