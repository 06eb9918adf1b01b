// Hands things over to the user's desktop.
// SPDX-License-Identifier: MIT
#include "platform/shell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace kelu {

bool OpenDocument(const QString& path) {
    const QFileInfo file(path);
    return file.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

bool OpenAddress(const QString& url) { return QDesktopServices::openUrl(QUrl(url)); }

}  // namespace kelu
