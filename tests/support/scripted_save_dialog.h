// A save dialog for tests: answers with the names put into it; an empty list, or an empty name, cancels.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "document/open_save.h"

namespace kelu {

class ScriptedSaveDialog : public SaveDialog {
 public:
    QStringList names;
    int chosenFilter = kPngFilter;
    int shown = 0;
    int offeredFilter = 0;
    QString offeredName;

    bool Show(QString& fileName, int& filterIndex) override {
        ++shown;
        offeredFilter = filterIndex;
        offeredName = fileName;
        if (names.isEmpty()) return false;
        fileName = names.takeFirst();
        filterIndex = chosenFilter;
        return !fileName.isEmpty();
    }
};

}  // namespace kelu
