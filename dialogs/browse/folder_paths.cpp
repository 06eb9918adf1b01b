// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_paths.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStringDecoder>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>

#include "platform/temporary_folder.h"

namespace kelu {

namespace {

const QTemporaryDir& Links() {
    static const QTemporaryDir links(TemporaryFolder() + QStringLiteral("/names-XXXXXX"));
    return links;
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

bool IsPassingPath(const QString& path) { return path.startsWith(Links().path() + u'/'); }

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
