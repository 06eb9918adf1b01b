// SPDX-License-Identifier: MIT
#include "dialogs/browse/folder_combo.h"

#include <QDir>
#include <QStandardPaths>
#include <QStyledItemDelegate>

#include "controls/theme/icons.h"
#include "dialogs/browse/folder_model.h"

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

FolderCombo::FolderCombo(QWidget* parent) : QComboBox(parent) {
    setItemDelegate(new IndentedRows(this));
    setMaxVisibleItems(20);
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

void FolderCombo::SyncDisplay() {
    clear();
    Add(FolderModel::ComputerName(), QString::fromLatin1(FolderModel::kComputer), "computer", 0);
    const QString present = Folder();
    if (!present.isEmpty()) {
        Add(QStringLiteral("/"), QStringLiteral("/"), "drive", 1);
        QString path;
        int depth = 2;
        for (const QString& part : QDir(present).absolutePath().split(u'/', Qt::SkipEmptyParts)) {
            path += u'/' + part;
            Add(part, path, "folder", depth++);
        }
    }
    setCurrentIndex(count() - 1);
    const std::pair<const char*, QStandardPaths::StandardLocation> places[] = {
        {"home", QStandardPaths::HomeLocation},
        {"picture", QStandardPaths::PicturesLocation},
        {"folder_documents", QStandardPaths::DocumentsLocation},
    };
    insertSeparator(count());
    for (const auto& [icon, place] : places)
        Add(FolderModel::PlaceName(place), QStandardPaths::writableLocation(place), icon, 0);
}

}  // namespace kelu
