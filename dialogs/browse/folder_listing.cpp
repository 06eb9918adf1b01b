// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_listing.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QStorageInfo>
#include <algorithm>
#include <filesystem>

#include "dialogs/browse/folder_paths.h"

namespace kelu {

namespace {

namespace fs = std::filesystem;

std::vector<FolderEntry> Drives() {
    std::vector<FolderEntry> entries{
        {PlaceName(QStandardPaths::HomeLocation), QDir::homePath(), false, {}},
        {QStringLiteral("/"), QStringLiteral("/"), false, {}},
    };
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        // Sticks, cards and disks of the user; the rest of the mounts are the system's own.
        if (!volume.isReady() ||
            !(root.startsWith(u"/media/") || root.startsWith(u"/run/media/") || root.startsWith(u"/mnt")))
            continue;
        entries.push_back({OneLine(volume.displayName()), root, false, {}});
    }
    return entries;
}

void Sort(std::vector<FolderEntry>& entries, const FolderRequest& request) {
    // Without a language of its own the system sorts by bytes: not what anybody looks for a file by.
    const QLocale locale = QLocale::system().language() == QLocale::C ? QLocale(QLocale::English) : QLocale::system();
    QCollator order(locale);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    order.setNumericMode(true);
    std::vector<std::pair<QCollatorSortKey, FolderEntry>> keyed;
    keyed.reserve(entries.size());
    for (FolderEntry& entry : entries) keyed.emplace_back(order.sortKey(entry.name), std::move(entry));
    const auto before = [&request](const auto& a, const auto& b) {
        if (a.second.isFile != b.second.isFile) return b.second.isFile;
        const auto& first = request.sortOrder == Qt::AscendingOrder ? a : b;
        const auto& second = request.sortOrder == Qt::AscendingOrder ? b : a;
        switch (request.sortColumn) {
            case FolderRequest::kSize:
                if (first.second.stamp.size != second.second.stamp.size)
                    return first.second.stamp.size < second.second.stamp.size;
                break;
            case FolderRequest::kType: {
                const QString x = QFileInfo(first.second.name).suffix().toLower();
                const QString y = QFileInfo(second.second.name).suffix().toLower();
                if (x != y) return x < y;
                break;
            }
            case FolderRequest::kChanged:
                if (first.second.stamp.changed != second.second.stamp.changed)
                    return first.second.stamp.changed < second.second.stamp.changed;
                break;
            default:
                break;
        }
        return first.first.compare(second.first) < 0;
    };
    std::stable_sort(keyed.begin(), keyed.end(), before);
    for (std::size_t i = 0; i < keyed.size(); ++i) entries[i] = std::move(keyed[i].second);
}

/// Adds what was found unless it is neither a folder nor a file that is asked for.
void Add(const fs::directory_entry& found, const QRegularExpression& wanted, std::vector<FolderEntry>& entries) {
    const std::string native = found.path().filename().native();
    if (native.starts_with('.')) return;
    std::error_code gone;
    const bool isFolder = found.is_directory(gone);
    // A pipe or a device would hold up whoever reads it.
    if (!isFolder && !(found.is_regular_file(gone) && wanted.match(QString::fromStdString(native)).hasMatch())) return;
    const QFileInfo info(ToolkitPath(found.path().native()));
    entries.push_back(
        {OneLine(info.fileName()), info.filePath(), !isFolder, {isFolder ? 0 : info.size(), info.lastModified()}});
}

/// One expression for all patterns.
QRegularExpression Wanted(const QStringList& patterns) {
    QStringList parts;
    for (const QString& pattern : patterns) parts += QRegularExpression::wildcardToRegularExpression(pattern);
    return QRegularExpression(parts.join(u'|'), QRegularExpression::CaseInsensitiveOption);
}

}  // namespace

FolderListing ReadFolder(const FolderRequest& request) {
    FolderListing listing{FolderListing::State::Listed, {}};
    if (request.folder.isEmpty()) {
        listing.entries = Drives();
        return listing;
    }
    std::error_code failure;
    fs::directory_iterator at(request.folder.toStdString(), failure);
    if (failure) {
        listing.state =
            failure == std::errc::permission_denied ? FolderListing::State::NoRights : FolderListing::State::Gone;
        return listing;
    }
    const QRegularExpression wanted = Wanted(request.patterns);
    for (; !failure && at != fs::directory_iterator(); at.increment(failure)) Add(*at, wanted, listing.entries);
    Sort(listing.entries, request);
    return listing;
}

}  // namespace kelu
