// Hands things over to the user's desktop.
// SPDX-License-Identifier: MIT
#include "app/shell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace kelu {

bool OpenDocument(const QString& path) {
    const QFileInfo file(path);
    return file.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

}  // namespace kelu
