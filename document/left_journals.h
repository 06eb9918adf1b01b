// The journals that earlier runs of the program left because something in them was not saved.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "document/recipe.h"

namespace kelu {

class JournalFile;

struct LeftJournal {
    QString path;
    Recipe recipe;                      ///< as far as it is certain
    bool damaged = false;               ///< more is missing than the line that was under way
    std::shared_ptr<JournalFile> file;  ///< locked, and ready to go on behind what is certain

    QString PictureName() const;
};

/// Throws Error(kFileError) when it can't be read.
LeftJournal ReadLeftJournal(const QString& path);

/// The journals in `folder` that hold something unsaved, the newest first. Those that hold nothing are removed, those
/// of which nothing can be read are set aside under another name, those that another process writes are left alone.
/// For a worker.
std::vector<LeftJournal> FindLeftJournals(const QString& folder);

}  // namespace kelu
