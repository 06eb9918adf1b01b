// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_paths.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>

#include "platform/error.h"
#include "platform/file_lock.h"
#include "platform/temporary_folder.h"

namespace kelu {

namespace {

constexpr char kNames[] = "names-";

/// Held as long as the process lives: tells a folder in use from one that a killed process left.
QString LockOf(const QString& folder) { return folder + QStringLiteral("/.lock"); }

struct LinkFolder {
    LinkFolder() {
        if (folder.isValid()) lock.Lock(std::chrono::milliseconds(0));
    }

    QTemporaryDir folder{TemporaryFolder() + u'/' + QLatin1String(kNames) + QStringLiteral("XXXXXX")};
    FileLock lock{LockOf(folder.path())};
};

std::atomic<bool> linked = false;

const QTemporaryDir& Links() {
    static const LinkFolder links;
    linked = true;
    return links.folder;
}

/// Names that can't be read as UTF-8 have marks in the place of what is no letter.
QString Decoded(const std::string& native, bool& faithful) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(QByteArray::fromStdString(native));
    faithful = !decoder.hasError();
    return text;
}

struct Places {
    Q_DECLARE_TR_FUNCTIONS(kelu::Places)
};

}  // namespace

QString ToolkitPath(const std::string& native) {
    bool faithful = false;
    const QString path = Decoded(native, faithful);
    if (faithful) return path;
    const std::filesystem::path target(native);
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(native), QCryptographicHash::Sha1).toHex().left(16);
    const QString folder = Links().filePath(QString::fromLatin1(hash));
    const QString link = folder + u'/' + Decoded(target.filename().native(), faithful);
    QDir().mkpath(folder);
    std::error_code ignored;  // it may be there from an earlier look
    std::filesystem::create_symlink(target, link.toStdString(), ignored);
    return link;
}

QString ParentFolder(const QString& path) {
    if (IsPassingPath(path)) {
        std::error_code none;
        const std::filesystem::path target = std::filesystem::read_symlink(path.toStdString(), none);
        if (!none) return ToolkitPath(target.parent_path().native());
    }
    const QString clean = QDir::cleanPath(path);
    const qsizetype slash = clean.lastIndexOf(u'/');
    if (slash < 0 || clean.size() == 1) return {};
    return slash == 0 ? QStringLiteral("/") : clean.left(slash);
}

bool IsPassingPath(const QString& path) { return linked && path.startsWith(Links().path() + u'/'); }

void RemoveLeftLinks() {
    const QDir::Filters folders = QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot;
    Attempt([&] {
        for (const QFileInfo& left : QDir(TemporaryFolder()).entryInfoList({QLatin1String(kNames) + u'*'}, folders)) {
            FileLock lock(LockOf(left.filePath()));
            if (lock.Lock(std::chrono::milliseconds(0)) == FileLock::Answer::Locked)
                QDir(left.filePath()).removeRecursively();
        }
    });
}

QString OneLine(QString name) {
    std::replace_if(
        name.begin(), name.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, u' ');
    return name;
}

QString PlaceName(QStandardPaths::StandardLocation place) {
    switch (place) {
        case QStandardPaths::HomeLocation:
            return Places::tr("Home");
        case QStandardPaths::PicturesLocation:
            return Places::tr("Pictures");
        case QStandardPaths::DocumentsLocation:
            return Places::tr("Documents");
        default:
            return QStandardPaths::displayName(place);
    }
}

QString ComputerName() { return Places::tr("Computer"); }

}  // namespace kelu
