// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_model.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>
#include <algorithm>

#include "controls/theme/icons.h"
#include "platform/language.h"

namespace kelu {

namespace {
constexpr int kSettleTime = 150;  // ms
}

FolderModel::FolderModel(ThumbnailCache cache, QObject* parent)
    : QAbstractTableModel(parent), folder_(QString::fromLatin1(kComputer)), loader_(std::move(cache)) {
    settle_.setSingleShot(true);
    settle_.setInterval(kSettleTime);
    connect(&settle_, &QTimer::timeout, this, &FolderModel::Refresh);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &settle_, qOverload<>(&QTimer::start));
    connect(&loader_, &ThumbnailLoader::Ready, this, &FolderModel::OnThumbnail);
}

void FolderModel::SetFolder(const QString& path) {
    beginResetModel();
    folder_ = path;
    thumbnails_.clear();
    loader_.Wish({});
    Take(Read());
    endResetModel();
    Watch();
}

void FolderModel::SetFilter(const QString& patterns) {
    patterns_ = patterns.split(u';', Qt::SkipEmptyParts);
    Refresh();
}

void FolderModel::Refresh() {
    std::vector<Entry> now = Read();
    if (now == entries_) return;
    // Selections are kept by path: whoever holds a persistent index finds its file again, or nothing.
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QStringList paths;
    for (const QModelIndex& index : before) paths += entries_[static_cast<std::size_t>(index.row())].path;
    Take(std::move(now));
    for (qsizetype i = 0; i < before.size(); ++i) {
        const QModelIndex row = RowOf(paths[i]);
        changePersistentIndex(before[i], row.isValid() ? row.siblingAtColumn(before[i].column()) : QModelIndex());
    }
    Q_EMIT layoutChanged();
}

void FolderModel::Watch() {
    if (const QStringList watched = watcher_.directories(); !watched.isEmpty()) watcher_.removePaths(watched);
    if (!folder_.isEmpty() && QFileInfo(folder_).isDir()) watcher_.addPath(folder_);
}

void FolderModel::Take(std::vector<Entry> entries) {
    entries_ = std::move(entries);
    rows_.clear();
    rows_.reserve(static_cast<qsizetype>(entries_.size()));
    for (std::size_t row = 0; row < entries_.size(); ++row) rows_.insert(entries_[row].path, static_cast<int>(row));
}

std::vector<FolderModel::Entry> FolderModel::Read() const {
    if (folder_ == QLatin1String(kComputer)) return ReadComputer();
    std::vector<Entry> entries;
    const QDir folder(folder_);
    for (const QFileInfo& info : folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        entries.push_back({info.fileName(), info.absoluteFilePath(), false, 0, info.lastModified()});
    for (const QFileInfo& info : folder.entryInfoList(patterns_, QDir::Files))
        entries.push_back({info.fileName(), info.absoluteFilePath(), true, info.size(), info.lastModified()});
    Sort(entries);
    return entries;
}

std::vector<FolderModel::Entry> FolderModel::ReadComputer() const {
    std::vector<Entry> entries{
        {PlaceName(QStandardPaths::HomeLocation), QDir::homePath(), false, 0, {}},
        {QStringLiteral("/"), QStringLiteral("/"), false, 0, {}},
    };
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        // Sticks, cards and disks of the user; the rest of the mounts are the system's own.
        if (!volume.isReady() ||
            !(root.startsWith(u"/media/") || root.startsWith(u"/run/media/") || root.startsWith(u"/mnt")))
            continue;
        entries.push_back({volume.displayName(), root, false, 0, {}});
    }
    return entries;
}

void FolderModel::Sort(std::vector<Entry>& entries) const {
    // Without a language of its own the system sorts by bytes: not what anybody looks for a file by.
    const QLocale locale = QLocale::system().language() == QLocale::C ? QLocale(QLocale::English) : QLocale::system();
    QCollator order(locale);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    order.setNumericMode(true);
    std::vector<std::pair<QCollatorSortKey, Entry>> keyed;
    keyed.reserve(entries.size());
    for (Entry& entry : entries) keyed.emplace_back(order.sortKey(entry.name), std::move(entry));
    const auto before = [this](const auto& a, const auto& b) {
        if (a.second.isFile != b.second.isFile) return b.second.isFile;
        const auto& first = sortOrder_ == Qt::AscendingOrder ? a : b;
        const auto& second = sortOrder_ == Qt::AscendingOrder ? b : a;
        switch (sortColumn_) {
            case kSize:
                if (first.second.size != second.second.size) return first.second.size < second.second.size;
                break;
            case kType: {
                const QString x = QFileInfo(first.second.name).suffix().toLower();
                const QString y = QFileInfo(second.second.name).suffix().toLower();
                if (x != y) return x < y;
                break;
            }
            case kChanged:
                if (first.second.changed != second.second.changed) return first.second.changed < second.second.changed;
                break;
            default:
                break;
        }
        return first.first.compare(second.first) < 0;
    };
    std::stable_sort(keyed.begin(), keyed.end(), before);
    for (std::size_t i = 0; i < keyed.size(); ++i) entries[i] = std::move(keyed[i].second);
}

void FolderModel::sort(int column, Qt::SortOrder order) {
    sortColumn_ = column;
    sortOrder_ = order;
    Refresh();
}

void FolderModel::WishThumbnails(const QModelIndexList& rows) {
    QStringList paths;
    for (const QModelIndex& row : rows) {
        const Entry& entry = entries_[static_cast<std::size_t>(row.row())];
        const auto known = thumbnails_.find(entry.path);
        if (entry.isFile && (known == thumbnails_.end() || known->second.changed != entry.changed)) paths += entry.path;
    }
    loader_.Wish(paths);
}

void FolderModel::OnThumbnail(const QString& path, const QImage& image) {
    const QModelIndex row = RowOf(path);
    if (!row.isValid()) return;  // of a folder left meanwhile
    thumbnails_[path] = {QPixmap::fromImage(image), image.isNull(),
                         entries_[static_cast<std::size_t>(row.row())].changed};
    Q_EMIT dataChanged(row, row, {kThumbnailRole, kBrokenRole, Qt::DecorationRole});
}

QModelIndex FolderModel::RowOf(const QString& path) const {
    const auto row = rows_.constFind(path);
    return row == rows_.cend() ? QModelIndex() : index(*row, 0);
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int FolderModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant FolderModel::Text(const Entry& entry, int column) const {
    switch (column) {
        case kName:
            return entry.name;
        case kSize:
            return entry.isFile ? LanguageLocale().formattedDataSize(entry.size, 0) : QString();
        case kType:
            return entry.isFile ? QFileInfo(entry.name).suffix().toUpper() : QString();
        case kChanged:
            return LanguageLocale().toString(entry.changed, QLocale::ShortFormat);
        default:
            return {};
    }
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Entry& entry = entries_[static_cast<std::size_t>(index.row())];
    const auto thumbnail = thumbnails_.find(entry.path);
    const bool known = thumbnail != thumbnails_.end();
    switch (role) {
        case Qt::DisplayRole:
            return Text(entry, index.column());
        case Qt::ToolTipRole:
            return entry.isFile ? QStringLiteral("%1\n%2").arg(entry.name, Text(entry, kSize).toString()) : entry.name;
        case Qt::TextAlignmentRole:
            return index.column() == kSize ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
        case Qt::DecorationRole:
            if (index.column() != kName) return {};
            if (!entry.isFile)
                return theme::Icon(folder_.isEmpty() ? QStringLiteral("drive") : QStringLiteral("folder"));
            return theme::Icon(known && thumbnail->second.broken ? QStringLiteral("broken_picture")
                                                                 : QStringLiteral("picture"));
        case kPathRole:
            return entry.path;
        case kIsFileRole:
            return entry.isFile;
        case kThumbnailRole:
            return known ? QVariant(thumbnail->second.pixmap) : QVariant();
        case kBrokenRole:
            return known && thumbnail->second.broken;
        default:
            return {};
    }
}

QVariant FolderModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const QString titles[kColumns] = {tr("Name"), tr("Size"), tr("Type"), tr("Date")};
    return titles[section];
}

QString FolderModel::ComputerName() { return tr("Computer"); }

QString FolderModel::PlaceName(QStandardPaths::StandardLocation place) {
    switch (place) {
        case QStandardPaths::HomeLocation:
            return tr("Home");
        case QStandardPaths::PicturesLocation:
            return tr("Pictures");
        case QStandardPaths::DocumentsLocation:
            return tr("Documents");
        default:
            return QStandardPaths::displayName(place);
    }
}

}  // namespace kelu
