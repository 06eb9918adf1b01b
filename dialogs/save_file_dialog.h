// The real save dialog: the desktop's own file dialog where there is one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "document/open_save.h"

class QFileDialog;

namespace kelu {

/// "A (*.a)|*.a|B (*.b)|*.b" as the descriptions alone, one for each filter.
QStringList NameFilters(const QString& filter);

/// `name`, with the extension of the filter (counted from 1) behind it when its own tells no format that can be saved.
QString NameForFilter(const QString& name, int filterIndex);

/// Whether a file may be written there: asks in the program's own frame when there is one.
bool MayReplaceFile(const QString& path, MsgDialog& questions);

/// The program's own frame, and columns that are read whole.
void DressFileDialog(QFileDialog& dialog);

class SaveFileDialog : public SaveDialog {
 public:
    /// `questions` asks before a file is replaced.
    explicit SaveFileDialog(MsgDialog& questions) : questions_(questions) {}

    /// The window that the dialog blocks.
    void SetParent(QWidget* parent) { owner_ = parent; }
    bool Show(QString& fileName, int& filterIndex) override;

 private:
    MsgDialog& questions_;
    QPointer<QWidget> owner_;
    QString folder_;         // of the last save in this run; at first the user's pictures
    QString refusedFolder_;  // proposed for it, when another one was taken
};

}  // namespace kelu
