// SPDX-License-Identifier: MIT
#include "document/left_journals.h"

#include <QDir>
#include <QFileInfo>

#include "document/document.h"
#include "document/journal_file.h"
#include "platform/error.h"

namespace kelu {

QString LeftJournal::PictureName() const { return FileNameOfPath(recipe.file); }

LeftJournal ReadLeftJournal(const QString& path) {
    LeftJournal left;
    left.path = path;
    const QByteArray text = ReadRecipeBytes(path);
    left.recipe = ReadRecipeText(text);
    left.recipe.folder = QFileInfo(path).path();
    // A program that is killed may have been in the middle of a line.
    left.damaged = text.indexOf('\n', left.recipe.certainBytes) >= 0 || text.endsWith('\0');
    left.file = std::make_shared<JournalFile>(path, left.recipe.certainBytes, left.recipe.check);
    return left;
}

std::vector<LeftJournal> FindLeftJournals(const QString& folder) {
    std::vector<LeftJournal> found;
    const QStringList names = {u'*' + QLatin1String(JournalFile::kSuffix)};
    for (const QFileInfo& file : QDir(folder).entryInfoList(names, QDir::Files, QDir::Time)) {
        Attempt([&] {
            LeftJournal left = ReadLeftJournal(file.filePath());
            if (left.file->IsBusy()) return;
            if (left.recipe.unsaved)
                found.push_back(std::move(left));
            else if (left.damaged)
                QFile::rename(left.path, left.path + QStringLiteral(".damaged"));
            else
                left.file->Remove();
        });
    }
    return found;
}

}  // namespace kelu
