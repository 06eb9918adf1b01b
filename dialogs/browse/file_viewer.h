// The folder's contents as a list in five views, with the operations that the browse dialog works by.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStackedWidget>
#include <QTimer>
#include <optional>

#include "dialogs/browse/folder_model.h"

class QAbstractItemDelegate;
class QAbstractItemView;
class QLabel;
class QListView;
class QTreeView;

namespace kelu {

class FileViewer : public QStackedWidget {
    Q_OBJECT

 public:
    enum class ViewKind { LargeIcons, SmallIcons, List, Details, Thumbnails };
    struct Item {
        QString path;
        bool isFile = false;  ///< a picture that can be loaded, no folder
    };

    explicit FileViewer(ThumbnailCache cache, QWidget* parent = nullptr);

    QString Folder() const { return model_.Folder(); }
    /// Shows a folder; raises FolderChanged when it is another one.
    void SetFolder(const QString& path);
    void SetFilter(const QString& patterns) { model_.SetFilter(patterns); }
    ViewKind View() const { return view_; }
    void SetView(ViewKind view);
    void Refresh() { model_.Refresh(); }
    /// One level up; from a root to the list of drives.
    void GoUp();
    std::optional<Item> CurrentItem() const;
    /// Assigns the texts in the language in use.
    void LoadTexts();
    FolderModel& Model() { return model_; }

 Q_SIGNALS:
    void FolderChanged(const QString& folder);
    /// The current row changed, or was clicked again.
    void ItemSelected();
    /// A double click or Enter. A folder has been entered by then.
    void ItemActivated();

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    QAbstractItemView* Current() const;
    void SetUp(QAbstractItemView& view);
    void Activate(const QModelIndex& index);
    void WishVisible();
    void ShowEmptyText();

    FolderModel model_;
    QListView* list_;
    QTreeView* details_;
    QLabel* emptyText_;
    QAbstractItemDelegate* plainLook_;
    QAbstractItemDelegate* thumbnailLook_;
    ViewKind view_ = ViewKind::Thumbnails;
    QTimer wish_;  // scrolling asks for thumbnails when it rests for a moment
};

}  // namespace kelu
