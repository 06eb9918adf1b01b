// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_model.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <algorithm>
#include <chrono>
#include <future>

#include "controls/theme/icons.h"
#include "platform/language.h"
#include "platform/pool_job.h"

namespace kelu {

namespace {
constexpr int kSettleTime = 150;                    // ms from a change to reading the folder anew
constexpr int kLongestUnrest = 1000;                // ms; where changes never end it is read at least so often
constexpr std::chrono::milliseconds kPatience(30);  // that reading may hold the caller
constexpr qsizetype kThumbnailBudget = qsizetype{64} * 1024;  // KB
}  // namespace

FolderModel::FolderModel(ThumbnailCache cache, QObject* parent)
    : QAbstractTableModel(parent), thumbnails_(kThumbnailBudget), loader_(std::move(cache)) {
    settle_.setSingleShot(true);
    settle_.setInterval(kSettleTime);
    connect(&settle_, &QTimer::timeout, this, &FolderModel::Refresh);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &FolderModel::SettleSoon);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &FolderModel::SettleSoon);
    connect(&loader_, &ThumbnailLoader::Ready, this, &FolderModel::OnThumbnail);
}

void FolderModel::SetFolder(const QString& path) {
    beginResetModel();
    request_.folder = path;
    listing_ = {};
    rows_.clear();
    thumbnails_.clear();
    loader_.Wish({});
    endResetModel();
    WatchFolder();
    Refresh();
}

void FolderModel::SetFilter(const QString& patterns) {
    request_.patterns = patterns.split(u';', Qt::SkipEmptyParts);
    Refresh();
}

void FolderModel::RefreshAll() {
    thumbnails_.clear();
    Refresh();
    Q_EMIT ListingChanged();
}

void FolderModel::Refresh() {
    settle_.stop();
    unsettled_.invalidate();
    const auto token = std::make_shared<int>();
    reading_ = token;
    auto promise = std::make_shared<std::promise<FolderListing>>();
    const std::shared_future<FolderListing> listing = promise->get_future().share();
    StartJob([promise, listing, token, request = request_, self = QPointer(this)] {
        promise->set_value(ReadFolder(request));
        HandBack(qApp, [=] {
            if (self && self->reading_ == token) self->Take(listing.get());
        });
    });
    if (listing.wait_for(kPatience) == std::future_status::ready) Take(listing.get());
}

void FolderModel::Take(FolderListing listing) {
    reading_.reset();
    if (listing == listing_) return;
    // Selections are kept by path: whoever holds a persistent index finds its file again, or nothing.
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QStringList paths;
    for (const QModelIndex& index : before) paths += index.data(kPathRole).toString();
    listing_ = std::move(listing);
    rows_.clear();
    rows_.reserve(static_cast<qsizetype>(listing_.entries.size()));
    for (int row = 0; row < rowCount(); ++row) rows_.insert(At(row).path, row);
    for (qsizetype i = 0; i < before.size(); ++i) {
        const QModelIndex row = RowOf(paths[i]);
        changePersistentIndex(before[i], row.isValid() ? row.siblingAtColumn(before[i].column()) : QModelIndex());
    }
    Q_EMIT layoutChanged();
    Q_EMIT ListingChanged();
}

void FolderModel::SettleSoon() {
    if (!unsettled_.isValid()) unsettled_.start();
    if (!settle_.isActive() || unsettled_.elapsed() < kLongestUnrest) settle_.start();
}

void FolderModel::WatchFolder() {
    const QStringList watched = watcher_.directories() + watcher_.files();
    if (!watched.isEmpty()) watcher_.removePaths(watched);
    if (!request_.folder.isEmpty() && QFileInfo(request_.folder).isDir()) watcher_.addPath(request_.folder);
}

void FolderModel::sort(int column, Qt::SortOrder order) {
    request_.sortColumn = column;
    request_.sortOrder = order;
    Refresh();
}

void FolderModel::WishThumbnails(const QModelIndexList& rows) {
    QStringList wishes;
    QStringList inView;
    for (const QModelIndex& row : rows) {
        const FolderEntry& entry = At(row.row());
        if (!entry.isFile) continue;
        inView += entry.path;
        const Thumbnail* known = thumbnails_.object(entry.path);
        if (!known || known->stamp != entry.stamp) wishes += entry.path;
    }
    loader_.Wish(wishes);
    // The watch on the folder tells of files that come and go, not of those that are written.
    const QStringList watched = watcher_.files();
    if (watched == inView) return;
    if (!watched.isEmpty()) watcher_.removePaths(watched);
    if (!inView.isEmpty()) watcher_.addPaths(inView);
}

void FolderModel::OnThumbnail(const QString& path, const FileStamp& stamp, const QImage& image) {
    const QModelIndex row = RowOf(path);
    if (!row.isValid()) return;  // of a folder left meanwhile
    thumbnails_.insert(path, new Thumbnail{QPixmap::fromImage(image), image.isNull(), stamp},
                       image.sizeInBytes() / 1024 + 1);
    if (stamp != At(row.row()).stamp) SettleSoon();  // written since the folder was read
    Q_EMIT dataChanged(row, row, {kThumbnailRole, kBrokenRole, Qt::DecorationRole});
}

QModelIndex FolderModel::RowOf(const QString& path) const {
    const auto row = rows_.constFind(path);
    return row == rows_.cend() ? QModelIndex() : index(*row, 0);
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(listing_.entries.size());
}

int FolderModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : FolderRequest::kColumns; }

QString FolderModel::Text(const FolderEntry& entry, int column) const {
    switch (column) {
        case FolderRequest::kName:
            return entry.name;
        case FolderRequest::kSize:
            return entry.isFile ? LanguageLocale().formattedDataSize(entry.stamp.size, 0) : QString();
        case FolderRequest::kType:
            return entry.isFile ? QFileInfo(entry.name).suffix().toUpper() : QString();
        case FolderRequest::kChanged:
            return LanguageLocale().toString(entry.stamp.changed, QLocale::ShortFormat);
        default:
            return {};
    }
}

/// Names are taken as they are, whatever marks they hold.
QString FolderModel::Tip(const FolderEntry& entry) const {
    const QString size = entry.isFile ? QStringLiteral("<br>") + Text(entry, FolderRequest::kSize) : QString();
    return QStringLiteral("<span>%1%2</span>").arg(entry.name.toHtmlEscaped(), size);
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const FolderEntry& entry = At(index.row());
    const Thumbnail* thumbnail = thumbnails_.object(entry.path);
    const bool broken = thumbnail && thumbnail->broken;
    switch (role) {
        case Qt::DisplayRole:
            return Text(entry, index.column());
        case Qt::ToolTipRole:
            return Tip(entry);
        case Qt::TextAlignmentRole:
            return index.column() == FolderRequest::kSize ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
        case Qt::DecorationRole:
            if (index.column() != FolderRequest::kName) return {};
            if (!entry.isFile)
                return theme::Icon(request_.folder.isEmpty() ? QStringLiteral("drive") : QStringLiteral("folder"));
            return theme::Icon(broken ? QStringLiteral("broken_picture") : QStringLiteral("picture"));
        case kPathRole:
            return entry.path;
        case kIsFileRole:
            return entry.isFile;
        case kThumbnailRole:
            return thumbnail ? QVariant(thumbnail->pixmap) : QVariant();
        case kBrokenRole:
            return broken;
        default:
            return {};
    }
}

QVariant FolderModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const QString titles[FolderRequest::kColumns] = {tr("Name"), tr("Size"), tr("Type"), tr("Date")};
    return titles[section];
}

}  // namespace kelu
