// SPDX-License-Identifier: MIT
#include "dialogs/browse/file_viewer.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <ranges>

#include "controls/theme/theme.h"
#include "dialogs/browse/thumbnail_delegate.h"

namespace kelu {

namespace {

constexpr int kWishTime = 30;  // ms

struct Look {
    QListView::ViewMode mode;
    QListView::Flow flow;
    bool wraps;
    QSize icon;  // device-independent pixels
    QSize cell;
};

Look LookOf(FileViewer::ViewKind view) {
    switch (view) {
        case FileViewer::ViewKind::LargeIcons:
            return {QListView::IconMode, QListView::LeftToRight, true, {48, 48}, {104, 88}};
        case FileViewer::ViewKind::SmallIcons:
            return {QListView::ListMode, QListView::LeftToRight, true, {18, 18}, {200, 26}};
        case FileViewer::ViewKind::Thumbnails:
            return {QListView::IconMode, QListView::LeftToRight, true, ThumbnailDelegate::kPicture,
                    ThumbnailDelegate::kCell};
        case FileViewer::ViewKind::List:
        case FileViewer::ViewKind::Details:
            break;
    }
    return {QListView::ListMode, QListView::TopToBottom, true, {18, 18}, {220, 26}};
}

}  // namespace

FileViewer::FileViewer(ThumbnailCache cache, QWidget* parent)
    : QStackedWidget(parent),
      model_(std::move(cache)),
      list_(new QListView(this)),
      details_(new QTreeView(this)),
      emptyText_(new QLabel(this)),
      plainLook_(new QStyledItemDelegate(this)),
      thumbnailLook_(new ThumbnailDelegate(this)) {
    addWidget(list_);
    addWidget(details_);
    SetUp(*list_);
    SetUp(*details_);
    details_->setSelectionModel(list_->selectionModel());
    list_->setResizeMode(QListView::Adjust);
    list_->setMovement(QListView::Static);
    list_->setUniformItemSizes(true);
    list_->setTextElideMode(Qt::ElideMiddle);
    details_->setRootIsDecorated(false);
    details_->setUniformRowHeights(true);
    details_->setItemsExpandable(false);
    details_->setAllColumnsShowFocus(true);
    details_->header()->setSortIndicator(FolderModel::kName, Qt::AscendingOrder);
    details_->setSortingEnabled(true);
    details_->setColumnWidth(FolderModel::kName, 260);

    emptyText_->setAttribute(Qt::WA_TransparentForMouseEvents);
    emptyText_->setAlignment(Qt::AlignCenter);
    QPalette quiet = emptyText_->palette();
    quiet.setColor(QPalette::WindowText, theme::kMutedText);
    emptyText_->setPalette(quiet);
    connect(&model_, &QAbstractItemModel::modelReset, this, &FileViewer::ShowEmptyText);
    connect(&model_, &QAbstractItemModel::layoutChanged, this, &FileViewer::ShowEmptyText);

    wish_.setSingleShot(true);
    wish_.setInterval(kWishTime);
    connect(&wish_, &QTimer::timeout, this, &FileViewer::WishVisible);
    connect(&model_, &QAbstractItemModel::modelReset, &wish_, qOverload<>(&QTimer::start));
    connect(&model_, &QAbstractItemModel::layoutChanged, this, [this] { wish_.start(); });
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FileViewer::ItemSelected);
    SetView(ViewKind::Thumbnails);
}

void FileViewer::SetUp(QAbstractItemView& view) {
    view.setModel(&model_);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(&view, &QAbstractItemView::clicked, this, &FileViewer::ItemSelected);
    connect(&view, &QAbstractItemView::activated, this, &FileViewer::Activate);
    for (const QScrollBar* bar : {view.verticalScrollBar(), view.horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, &wish_, [this] {
            if (!wish_.isActive()) wish_.start();
        });
}

QAbstractItemView* FileViewer::Current() const {
    return view_ == ViewKind::Details ? static_cast<QAbstractItemView*>(details_) : list_;
}

void FileViewer::SetView(ViewKind view) {
    view_ = view;
    if (view != ViewKind::Details) {
        const Look look = LookOf(view);
        list_->setViewMode(look.mode);
        list_->setFlow(look.flow);
        list_->setWrapping(look.wraps);
        list_->setIconSize(look.icon);
        list_->setGridSize(look.cell);
        list_->setMovement(QListView::Static);  // the icon mode would let rows be dragged about
        list_->setWordWrap(false);
        list_->setItemDelegate(view == ViewKind::Thumbnails ? thumbnailLook_ : plainLook_);
    }
    setCurrentWidget(Current());
    setFocusProxy(Current());
    ShowEmptyText();
    if (const QModelIndex current = list_->currentIndex(); current.isValid()) Current()->scrollTo(current);
    wish_.start();
}

void FileViewer::SetFolder(const QString& path) {
    const bool another = path != model_.Folder();
    model_.SetFolder(path);
    if (another) Q_EMIT FolderChanged(path);
}

void FileViewer::GoUp() {
    const QString left = model_.Folder();
    if (left == QLatin1String(FolderModel::kComputer)) return;
    QDir folder(left);
    SetFolder(folder.cdUp() && folder.absolutePath() != left ? folder.absolutePath()
                                                             : QLatin1String(FolderModel::kComputer));
    // The folder just left is marked, so that a wrong step is easily taken back.
    if (const QModelIndex row = model_.RowOf(left); row.isValid()) {
        Current()->setCurrentIndex(row);
        Current()->scrollTo(row);
    }
}

std::optional<FileViewer::Item> FileViewer::CurrentItem() const {
    const QModelIndexList chosen = list_->selectionModel()->selectedIndexes();
    if (chosen.isEmpty()) return std::nullopt;
    const QModelIndex row = chosen.first();
    return Item{row.data(FolderModel::kPathRole).toString(), row.data(FolderModel::kIsFileRole).toBool()};
}

void FileViewer::Activate(const QModelIndex& index) {
    if (!index.data(FolderModel::kIsFileRole).toBool()) SetFolder(index.data(FolderModel::kPathRole).toString());
    Q_EMIT ItemActivated();
}

void FileViewer::WishVisible() {
    if (view_ != ViewKind::Thumbnails) return;
    const QRect view = list_->viewport()->rect();
    // One screen beyond what is seen, so that a calm scroll finds its pictures ready; what is seen comes first.
    QModelIndexList inView;
    QModelIndexList near;
    const QRect wider = view.adjusted(0, -view.height() / 2, 0, view.height());
    const auto placeOf = [this](int row) { return list_->visualRect(model_.index(row, 0)); };
    // The rows lie in reading order, so the first one near is found by halving.
    const auto rows = std::views::iota(0, model_.rowCount());
    const auto first = std::ranges::partition_point(rows, [&](int row) { return placeOf(row).bottom() < wider.top(); });
    for (auto at = first; at != rows.end(); ++at) {
        const QModelIndex index = model_.index(*at, 0);
        const QRect place = placeOf(*at);
        if (place.intersects(view))
            inView += index;
        else if (place.intersects(wider))
            near += index;
        else if (place.top() > wider.bottom())
            break;
    }
    model_.WishThumbnails(inView + near);
}

void FileViewer::LoadTexts() {
    list_->setAccessibleName(tr("Files"));
    details_->setAccessibleName(tr("Files"));
    emptyText_->setText(tr("No pictures in this folder"));
}

void FileViewer::ShowEmptyText() {
    emptyText_->setGeometry(rect());
    emptyText_->setVisible(model_.rowCount() == 0);
    emptyText_->raise();
}

void FileViewer::resizeEvent(QResizeEvent* event) {
    QStackedWidget::resizeEvent(event);
    ShowEmptyText();
    wish_.start();
}

}  // namespace kelu
