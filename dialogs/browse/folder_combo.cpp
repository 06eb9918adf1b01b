// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_combo.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include "controls/theme/icons.h"
#include "dialogs/browse/folder_model.h"
#include "dialogs/browse/folder_paths.h"

namespace kelu {

namespace {
constexpr qsizetype kLongestHistory = 100;
constexpr int kPathRole = Qt::UserRole;
constexpr int kDepthRole = Qt::UserRole + 1;
constexpr int kIndent = 14;  // device-independent pixels a level

/// Indents the rows of the open list by their depth; the closed combo shows the name alone.
class IndentedRows : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem indented = option;
        indented.rect.adjust(kIndent * index.data(kDepthRole).toInt(), 0, 0, 0);
        QStyledItemDelegate::paint(painter, indented, index);
    }
};
}  // namespace

FolderCombo::FolderCombo(QWidget* parent) : QComboBox(parent), path_(new QLineEdit(this)) {
    path_->hide();
    path_->installEventFilter(this);
    setItemDelegate(new IndentedRows(this));
    setMaxVisibleItems(20);
    setFocusPolicy(Qt::StrongFocus);  // the wheel scrolls past it
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::activated, this, [this](int row) {
        const QString path = itemData(row, kPathRole).toString();
        if (path == Folder()) return;
        SetFolder(path);
        SyncDisplay();
        Q_EMIT FolderChosen(path);
    });
}

void FolderCombo::SetFolder(const QString& path) {
    if (!shown_.isEmpty() && shown_.last() == path) return;
    shown_ += path;
    if (shown_.size() > kLongestHistory) shown_.removeFirst();
}

void FolderCombo::StepBack() {
    if (shown_.size() > 1) shown_.removeLast();
}

void FolderCombo::Add(const QString& text, const QString& path, const char* icon, int depth) {
    addItem(theme::Icon(QString::fromLatin1(icon)), text, path);
    setItemData(count() - 1, depth, kDepthRole);
}

void FolderCombo::EditPath() {
    path_->setAccessibleName(tr("Path"));
    path_->setText(Folder());
    path_->setGeometry(rect());
    path_->show();
    path_->selectAll();
    path_->setFocus();
}

bool FolderCombo::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        path_->hide();
    if (event->type() != QEvent::KeyPress) return QComboBox::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!enter && key != Qt::Key_Escape) return false;
    // Neither goes on to the dialog, whose buttons listen to the same keys.
    path_->hide();
    Q_EMIT EditEnded();
    if (enter) Q_EMIT PathTyped(path_->text());
    return true;
}

void FolderCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

void FolderCombo::SyncDisplay() {
    clear();
    Add(ComputerName(), QString::fromLatin1(FolderModel::kComputer), "computer", 0);
    QStringList way;
    for (QString at = Folder(); !at.isEmpty(); at = ParentFolder(at)) way.prepend(at);
    for (qsizetype i = 0; i < way.size(); ++i) {
        const QString name = OneLine(QFileInfo(way[i]).fileName());
        Add(name.isEmpty() ? way[i] : name, way[i], i == 0 ? "drive" : "folder", static_cast<int>(i) + 1);
    }
    setCurrentIndex(count() - 1);
    const std::pair<const char*, QStandardPaths::StandardLocation> places[] = {
        {"home", QStandardPaths::HomeLocation},
        {"picture", QStandardPaths::PicturesLocation},
        {"folder_documents", QStandardPaths::DocumentsLocation},
    };
    insertSeparator(count());
    for (const auto& [icon, place] : places) Add(PlaceName(place), QStandardPaths::writableLocation(place), icon, 0);
}

}  // namespace kelu
