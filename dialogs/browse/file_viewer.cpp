// SPDX-License-Identifier: MIT
#include "dialogs/browse/file_viewer.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <ranges>
#include <vector>

#include "controls/theme/theme.h"
#include "dialogs/browse/folder_paths.h"
#include "dialogs/browse/thumbnail_delegate.h"

namespace kelu {

namespace {

constexpr int kWishTime = 30;  // ms

constexpr int kRowHeight = 26;  // device-independent pixels, as the next four
constexpr QSize kSmallIcon(18, 18);
constexpr int kLeastNameWidth = 120;
constexpr int kDateWidth = 150;
constexpr int kSizeWidth = 90;
constexpr std::size_t kMeasuredNames = 50;  // of the longest

}  // namespace

FileViewer::FileViewer(ThumbnailCache cache, QWidget* parent)
    : QStackedWidget(parent),
      model_(std::move(cache)),
      list_(new QListView(this)),
      details_(new QTreeView(this)),
      emptyText_(new QLabel(this)),
      plainLook_(new QStyledItemDelegate(this)),
      iconLook_(new ThumbnailDelegate(ThumbnailDelegate::Shows::Icons, this)),
      thumbnailLook_(new ThumbnailDelegate(ThumbnailDelegate::Shows::Thumbnails, this)) {
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
    details_->setSelectionBehavior(QAbstractItemView::SelectRows);
    details_->setItemDelegate(plainLook_);
    QHeaderView* header = details_->header();
    header->setSortIndicator(FolderRequest::kName, Qt::AscendingOrder);
    details_->setSortingEnabled(true);
    // The name has all the room that is left.
    header->setStretchLastSection(false);
    header->setSectionResizeMode(FolderRequest::kName, QHeaderView::Stretch);
    header->resizeSection(FolderRequest::kSize, kSizeWidth);
    header->resizeSection(FolderRequest::kType, kSizeWidth);
    header->resizeSection(FolderRequest::kChanged, kDateWidth);

    emptyText_->setAttribute(Qt::WA_TransparentForMouseEvents);
    emptyText_->setAlignment(Qt::AlignCenter);
    QPalette quiet = emptyText_->palette();
    quiet.setColor(QPalette::WindowText, theme::kMutedText);
    emptyText_->setPalette(quiet);
    connect(&model_, &QAbstractItemModel::modelReset, this, &FileViewer::FollowListing);
    connect(&model_, &FolderModel::ListingChanged, this, &FileViewer::FollowListing);

    wish_.setSingleShot(true);
    wish_.setInterval(kWishTime);
    connect(&wish_, &QTimer::timeout, this, &FileViewer::WishVisible);
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FileViewer::ItemSelected);
    SetView(ViewKind::Thumbnails);
}

void FileViewer::SetUp(QAbstractItemView& view) {
    view.setModel(&model_);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.installEventFilter(this);
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
    const bool pictures = view == ViewKind::Thumbnails || view == ViewKind::LargeIcons;
    list_->setViewMode(pictures ? QListView::IconMode : QListView::ListMode);
    list_->setFlow(view == ViewKind::List ? QListView::TopToBottom : QListView::LeftToRight);
    list_->setWrapping(true);
    list_->setIconSize(kSmallIcon);
    list_->setMovement(QListView::Static);  // the icon mode would let rows be dragged about
    list_->setItemDelegate(view == ViewKind::Thumbnails   ? thumbnailLook_
                           : view == ViewKind::LargeIcons ? iconLook_
                                                          : plainLook_);
    FitCells();
    setCurrentWidget(Current());
    setFocusProxy(Current());
    ShowEmptyText();
    if (const QModelIndex current = list_->currentIndex(); current.isValid()) {
        Current()->setCurrentIndex(current);  // each view marks in its own way, a cell or a whole row
        Current()->scrollTo(current);
    }
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
    SetFolder(ParentFolder(left));
    Mark(left);  // so that a wrong step is easily taken back
}

void FileViewer::Mark(const QString& path) {
    toMark_ = path;
    if (const QModelIndex row = model_.RowOf(path); row.isValid()) {
        toMark_.clear();
        Current()->setCurrentIndex(row);
        Current()->scrollTo(row);
    }
}

void FileViewer::FollowListing() {
    FitCells();
    ShowEmptyText();
    if (!toMark_.isEmpty()) Mark(toMark_);
    wish_.start();
}

/// In rows of names each cell is as wide as the longest name, as far as the view has room for it.
void FileViewer::FitCells() {
    if (view_ == ViewKind::Thumbnails || view_ == ViewKind::LargeIcons) {
        list_->setGridSize(view_ == ViewKind::Thumbnails ? thumbnailLook_->Cell() : iconLook_->Cell());
        return;
    }
    std::vector<QString> names;
    for (int row = 0; row < model_.rowCount(); ++row) names.push_back(model_.index(row, 0).data().toString());
    const std::size_t measured = std::min(names.size(), kMeasuredNames);
    std::partial_sort(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(measured), names.end(),
                      [](const QString& a, const QString& b) { return a.size() > b.size(); });
    int width = kLeastNameWidth;
    for (std::size_t i = 0; i < measured; ++i)
        width = std::max(width, list_->fontMetrics().horizontalAdvance(names[i]) + 2 * kRowHeight);
    list_->setGridSize({std::min(width, std::max(list_->viewport()->width(), kLeastNameWidth)), kRowHeight});
}

bool FileViewer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const QModelIndex row = Current()->currentIndex();
        // A folder is entered and no more: the key must not reach the dialog, whose default button opens a picture.
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && row.isValid() &&
            !row.data(FolderModel::kIsFileRole).toBool()) {
            Activate(row);
            return true;
        }
    }
    return QStackedWidget::eventFilter(watched, event);
}

std::optional<FileViewer::Item> FileViewer::CurrentItem() const {
    const QModelIndexList chosen = list_->selectionModel()->selectedIndexes();
    if (chosen.isEmpty()) return std::nullopt;
    const QModelIndex row = chosen.first().siblingAtColumn(FolderRequest::kName);
    return Item{row.data(FolderModel::kPathRole).toString(), row.data(FolderModel::kIsFileRole).toBool()};
}

void FileViewer::Activate(const QModelIndex& index) {
    if (index.data(FolderModel::kIsFileRole).toBool())
        Current()->setCurrentIndex(index);  // the keys stand on the first row before it is chosen
    else
        SetFolder(index.data(FolderModel::kPathRole).toString());
    Q_EMIT ItemActivated();
}

void FileViewer::WishVisible() {
    if (view_ != ViewKind::Thumbnails) return;
    model_.SetThumbnailSize(ThumbnailDelegate::kThumbnail * devicePixelRatioF());
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
    ShowEmptyText();
}

void FileViewer::ShowEmptyText() {
    switch (model_.State()) {
        case FolderListing::State::Reading:
            emptyText_->setText(tr("Reading the folder..."));
            break;
        case FolderListing::State::Listed:
            emptyText_->setText(tr("No pictures in this folder"));
            break;
        case FolderListing::State::NoRights:
            emptyText_->setText(tr("You have no right to look into this folder"));
            break;
        case FolderListing::State::Gone:
            emptyText_->setText(tr("This folder can't be read"));
            break;
    }
    emptyText_->setGeometry(rect());
    emptyText_->setVisible(model_.rowCount() == 0);
    emptyText_->raise();
}

void FileViewer::resizeEvent(QResizeEvent* event) {
    QStackedWidget::resizeEvent(event);
    FitCells();
    ShowEmptyText();
    wish_.start();
}

}  // namespace kelu
