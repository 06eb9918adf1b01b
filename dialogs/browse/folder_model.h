// The contents of one folder as rows for the views: subfolders first, then the pictures that match the patterns.
// Changes on the disk show by themselves.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QStandardPaths>
#include <QTimer>
#include <map>
#include <vector>

#include "dialogs/browse/thumbnail_loader.h"

namespace kelu {

class FolderModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column { kName, kSize, kType, kChanged, kColumns };
    enum Role { kPathRole = Qt::UserRole, kIsFileRole, kThumbnailRole, kBrokenRole };
    /// The list of drives and places in the place of a folder.
    static constexpr const char* kComputer = "";

    explicit FolderModel(ThumbnailCache cache, QObject* parent = nullptr);

    QString Folder() const { return folder_; }
    /// What the list of drives and places calls them.
    static QString ComputerName();
    static QString PlaceName(QStandardPaths::StandardLocation place);

    /// Shows a folder; a missing or unreadable one shows as empty.
    void SetFolder(const QString& path);
    /// Patterns such as "*.bmp;*.gif", without regard to case.
    void SetFilter(const QString& patterns);
    void Refresh();
    /// Rows whose thumbnails are wanted, the most urgent first.
    void WishThumbnails(const QModelIndexList& rows);
    /// The row of a path, or an invalid index.
    QModelIndex RowOf(const QString& path) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

 private:
    struct Entry {
        QString name;
        QString path;
        bool isFile = false;
        qint64 size = 0;
        QDateTime changed;
        bool operator==(const Entry&) const = default;
    };
    struct Thumbnail {
        QPixmap pixmap;
        bool broken = false;
        QDateTime changed;  ///< of the file it was made from
    };

    std::vector<Entry> Read() const;
    void Take(std::vector<Entry> entries);
    std::vector<Entry> ReadComputer() const;
    void Sort(std::vector<Entry>& entries) const;
    void Watch();
    void OnThumbnail(const QString& path, const QImage& image);
    QVariant Text(const Entry& entry, int column) const;

    QString folder_;
    QStringList patterns_;
    std::vector<Entry> entries_;
    QHash<QString, int> rows_;                 // by path
    std::map<QString, Thumbnail> thumbnails_;  // by path, for the present folder
    int sortColumn_ = kName;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    QFileSystemWatcher watcher_;
    QTimer settle_;  // a burst of changes is read once
    ThumbnailLoader loader_;
};

}  // namespace kelu
