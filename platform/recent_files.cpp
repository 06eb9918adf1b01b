// SPDX-License-Identifier: MIT
#include "platform/recent_files.h"

#include <glib.h>

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <QUrl>
#include <memory>

#include "platform/private_folder.h"

namespace kelu {

void RememberRecentFile(const QString& path) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QFileInfo(folder).isDir() && !MakePrivateFolder(folder)) return;
    const QString list = QDir(folder).filePath(QStringLiteral("recently-used.xbel"));
    const QByteArray listName = QFile::encodeName(list);
    const std::unique_ptr<GBookmarkFile, decltype(&g_bookmark_file_free)> entries(g_bookmark_file_new(),
                                                                                  &g_bookmark_file_free);
    if (QFile::exists(list) && !g_bookmark_file_load_from_file(entries.get(), listName.constData(), nullptr)) return;

    const QByteArray url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toEncoded();
    const QByteArray type = QMimeDatabase().mimeTypeForFile(path).name().toLatin1();
    g_bookmark_file_set_mime_type(entries.get(), url.constData(), type.constData());
    g_bookmark_file_add_group(entries.get(), url.constData(), "Graphics");
    g_bookmark_file_add_application(entries.get(), url.constData(), "Kelu", "kelu %f");
    // A new file takes the old one's place; the names in it are nobody else's business.
    if (g_bookmark_file_to_file(entries.get(), listName.constData(), nullptr))
        QFile::setPermissions(list, QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace kelu
