// The real save dialog: the desktop's own file dialog where there is one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "document/open_save.h"

namespace kelu {

/// "A (*.a)|*.a|B (*.b)|*.b" as the descriptions alone, one for each filter.
QStringList NameFilters(const QString& filter);

class SaveFileDialog : public SaveDialog {
 public:
    bool Show(QString& fileName, int& filterIndex) override;

 private:
    QString folder_;  // of the last save in this run; at first the user's pictures
};

}  // namespace kelu
