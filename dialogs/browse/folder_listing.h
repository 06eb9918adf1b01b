// What lies in a folder: its subfolders and the files that match some patterns, in an order to look things up by.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

namespace kelu {

/// What a file was when it was looked at: any write to it changes one of the two.
struct FileStamp {
    qint64 size = 0;  ///< bytes
    QDateTime changed;
    bool operator==(const FileStamp&) const = default;
};

struct FolderEntry {
    QString name;  ///< to be shown, one line
    QString path;
    bool isFile = false;
    FileStamp stamp;  ///< of a folder: only the time
    bool operator==(const FolderEntry&) const = default;
};

struct FolderListing {
    enum class State { Reading, Listed, NoRights, Gone };
    State state = State::Reading;
    std::vector<FolderEntry> entries;
    bool operator==(const FolderListing&) const = default;
};

struct FolderRequest {
    enum Column { kName, kSize, kType, kChanged, kColumns };
    QString folder;        ///< empty: the list of drives and places
    QStringList patterns;  ///< such as "*.bmp", without regard to case
    int sortColumn = kName;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
};

/// Looks at the disk; any thread. Folders come first, hidden names are left out.
FolderListing ReadFolder(const FolderRequest& request);

}  // namespace kelu
