// The contents of one folder as rows for the views: subfolders first, then the pictures that match the patterns.
// Changes on the disk show by themselves, also those of a picture in view.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QHash>
#include <QPixmap>
#include <QTimer>
#include <memory>

#include "dialogs/browse/folder_listing.h"
#include "dialogs/browse/thumbnail_loader.h"

namespace kelu {

class FolderModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Role { kPathRole = Qt::UserRole, kIsFileRole, kThumbnailRole, kBrokenRole };
    /// The list of drives and places in the place of a folder.
    static constexpr const char* kComputer = "";

    explicit FolderModel(ThumbnailCache cache, QObject* parent = nullptr);

    QString Folder() const { return request_.folder; }
    /// Shows a folder. The disk is read elsewhere; what takes longer than a moment comes later by ListingChanged.
    void SetFolder(const QString& path);
    /// Patterns such as "*.bmp;*.gif", without regard to case.
    void SetFilter(const QString& patterns);
    /// Reads the folder again.
    void Refresh();
    /// Makes all thumbnails anew, too.
    void RefreshAll();
    FolderListing::State State() const { return listing_.state; }

    /// Rows whose thumbnails are wanted, the most urgent first. Their files are watched.
    void WishThumbnails(const QModelIndexList& rows);
    /// How large they are shown, pixels; larger pictures are scaled down to it.
    void SetThumbnailSize(QSize size) { loader_.SetSize(size); }
    /// The row of a path, or an invalid index.
    QModelIndex RowOf(const QString& path) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

 Q_SIGNALS:
    /// Rows, state or wishes are others now.
    void ListingChanged();

 private:
    struct Thumbnail {
        QPixmap pixmap;
        bool broken = false;
        FileStamp stamp;  ///< of the file when it was made
    };

    const FolderEntry& At(int row) const { return listing_.entries[static_cast<std::size_t>(row)]; }
    void Take(FolderListing listing);
    void SettleSoon();
    void WatchFolder();
    void OnThumbnail(const QString& path, const FileStamp& stamp, const QImage& image);
    QString Text(const FolderEntry& entry, int column) const;
    QString Tip(const FolderEntry& entry) const;

    FolderRequest request_;
    FolderListing listing_;
    QHash<QString, int> rows_;               // by path
    QCache<QString, Thumbnail> thumbnails_;  // by path, for the present folder; costs in KB
    std::shared_ptr<int> reading_;           // what is being read; a new one makes the result of the old one void
    QFileSystemWatcher watcher_;
    QTimer settle_;  // a burst of changes is read once
    QElapsedTimer unsettled_;
    ThumbnailLoader loader_;
};

}  // namespace kelu
