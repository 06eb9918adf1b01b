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

class ThumbnailDelegate;

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
    void RefreshAll() { model_.RefreshAll(); }
    /// One level up; from a root to the list of drives.
    void GoUp();
    /// Makes the row of this path the current one as soon as it is there.
    void Mark(const QString& path);
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
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QAbstractItemView* Current() const;
    void SetUp(QAbstractItemView& view);
    void Activate(const QModelIndex& index);
    void WishVisible();
    void FollowListing();
    void FitCells();
    void ShowEmptyText();

    FolderModel model_;
    QListView* list_;
    QTreeView* details_;
    QLabel* emptyText_;
    QAbstractItemDelegate* plainLook_;
    ThumbnailDelegate* iconLook_;
    ThumbnailDelegate* thumbnailLook_;
    ViewKind view_ = ViewKind::Thumbnails;
    QString toMark_;
    QTimer wish_;  // scrolling asks for thumbnails when it rests for a moment
};

}  // namespace kelu
