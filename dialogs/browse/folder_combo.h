// The combo of drives and folders: the way down to the present folder, and the user's places. It keeps the folders
// that were shown, for stepping back.
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QStringList>

namespace kelu {

class FolderCombo : public QComboBox {
    Q_OBJECT

 public:
    explicit FolderCombo(QWidget* parent = nullptr);

    QString Folder() const { return shown_.isEmpty() ? QString() : shown_.last(); }
    /// Becomes the present folder; the one before is kept for StepBack.
    void SetFolder(const QString& path);
    /// The folder before becomes the present one; without one nothing happens.
    void StepBack();
    /// Lists the way down to the present folder, and shows it.
    void SyncDisplay();

 Q_SIGNALS:
    /// The user chose a folder; it is the present one by then.
    void FolderChosen(const QString& path);

 private:
    void Add(const QString& text, const QString& path, const char* icon, int depth);

    QStringList shown_;  // the present folder is the last
};

}  // namespace kelu
