// SPDX-License-Identifier: MIT
#include "dialogs/save_file_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

#include "controls/title_row/dialog_frame.h"

namespace kelu {

QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList descriptions;
    for (qsizetype i = 0; i < parts.size(); i += 2) descriptions += parts[i];
    return descriptions;
}

bool SaveFileDialog::Show(QString& fileName, int& filterIndex) {
    if (folder_.isEmpty()) folder_ = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    // A folder that is not there would be taken for the name of a file.
    if (!QDir(folder_).exists()) folder_ = QDir::homePath();
    const QStringList filters = NameFilters(Filter());
    QFileDialog dialog(QApplication::activeWindow(), QString::fromLatin1(kTitle), folder_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);  // asks before a file is replaced
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(filterIndex - 1));
    dialog.setDefaultSuffix(QString::fromLatin1(kDefaultExtension));
    // The toolkit's dialog has a layout; the desktop's own is not ours to dress.
    if (dialog.layout()) AddWindowFrame(dialog);
    if (!fileName.isEmpty()) dialog.selectFile(fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
    folder_ = dialog.directory().absolutePath();
    fileName = dialog.selectedFiles().first();
    filterIndex = static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1;
    return true;
}

}  // namespace kelu
