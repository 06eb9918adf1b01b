// The folder for the program's temporary files.
// SPDX-License-Identifier: MIT
#include "platform/temporary_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "platform/error.h"
#include "platform/private_folder.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::TemporaryFolder)
};

bool Usable(const QString& folder) {
    const QFileInfo info(folder);
    return !folder.isEmpty() && info.isDir() && info.isWritable();
}

/// The last resort: a folder of this process alone, gone with it.
QString FolderOfThisProcess(const QString& parent) {
    static QTemporaryDir folder(parent + QStringLiteral("/kelu-XXXXXX"));
    if (!folder.isValid())
        throw Error(kFileError, Texts::tr("There is no folder for temporary files"), QStringLiteral("TemporaryFolder"));
    return folder.path();
}

}  // namespace

QString TemporaryFolder() {
    const QString named = qEnvironmentVariable("TEMP");
    if (Usable(named)) {
        const QString folder = QDir(named).absolutePath();
        if (!OthersCanWrite(folder)) return folder;
        // A name that another user could have taken before is of no use; then the folder gets a name of its own.
        const QString inside = folder + QStringLiteral("/kelu-") + UserTag();
        return MakePrivateFolder(inside) ? inside : FolderOfThisProcess(folder);
    }
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    const QString folder = cache + QStringLiteral("/Tarvane/Kelu/Temp");
    return !cache.isEmpty() && MakePrivateFolder(folder) ? folder : FolderOfThisProcess(QDir::tempPath());
}

}  // namespace kelu
