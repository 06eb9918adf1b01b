// The combo of drives and folders: the way down to the present folder, and the user's places. It keeps the folders
// that were shown, for stepping back.
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QStringList>

class QLineEdit;

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
    /// Lets the user type or paste a path in the place of the present folder.
    void EditPath();
    /// Lists the way down to the present folder, and shows it.
    void SyncDisplay();

 Q_SIGNALS:
    /// The user chose a folder; it is the present one by then.
    void FolderChosen(const QString& path);
    /// What was typed, followed by Enter.
    void PathTyped(const QString& text);
    /// Typing has ended, either way.
    void EditEnded();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Turning the wheel over the closed combo scrolls nothing and leads nowhere.
    void wheelEvent(QWheelEvent* event) override;

 private:
    void Add(const QString& text, const QString& path, const char* icon, int depth);

    QLineEdit* const path_;  // lies over the combo while a path is typed
    QStringList shown_;      // the present folder is the last
};

}  // namespace kelu
