// Rows and announcements of the list; see list_ex.h.
// SPDX-License-Identifier: MIT
#include "controls/list_ex/list_ex.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStringListModel>
#include <QToolTip>

#include "controls/list_ex/list_accessible.h"
#include "controls/theme/theme.h"
#include "platform/error.h"

namespace kelu {

/// The texts, each with the picture of all rows.
class ListRows : public QStringListModel {
 public:
    using QStringListModel::QStringListModel;

    QIcon picture;

    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DecorationRole && !picture.isNull() ? picture : QStringListModel::data(index, role);
    }
};

ListEx::ListEx(QWidget* parent) : QListView(parent), texts_(new ListRows(this)) {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* list = qobject_cast<ListEx*>(object);
            return list ? new ListAccessible(*list) : nullptr;
        });
        return true;
    }();
    setModel(texts_);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFont(theme::ListFont());
    // Cut in the middle: long texts of a list differ most at their ends.
    setTextElideMode(Qt::ElideMiddle);
    setVerticalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
}

void ListEx::Clear() {
    silent_ = true;
    texts_->setStringList({});
    silent_ = false;
}

void ListEx::AddItem(const QString& text, int row) {
    silent_ = true;
    if (row < 0 || row > Count()) row = Count();
    texts_->insertRow(row);
    texts_->setData(texts_->index(row), text);
    silent_ = false;
}

int ListEx::ListIndex() const { return currentIndex().isValid() ? currentIndex().row() : -1; }

void ListEx::SetListIndex(int row) {
    if (row < -1 || row >= Count())
        throw Error(kInvalidProperty, tr("Invalid property value"), QStringLiteral("ListEx::SetListIndex"));
    silent_ = true;
    if (row < 0) {
        setCurrentIndex({});
        clearSelection();
    } else {
        setCurrentIndex(texts_->index(row));
    }
    silent_ = false;
    if (row >= 0) Q_EMIT SelectionChanged();
}

int ListEx::Count() const { return texts_->rowCount(); }

QString ListEx::Text(int row) const { return texts_->data(texts_->index(row), Qt::DisplayRole).toString(); }

void ListEx::SetObstacle(const QString& obstacle) {
    QPalette colors = QPalette();
    if (!obstacle.isEmpty())
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::HighlightedText})
            colors.setColor(role, theme::kDisabledText);
    setPalette(colors);
    setToolTip(obstacle);
    setAccessibleDescription(obstacle);
}

void ListEx::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (silent_ || !current.isValid()) return;
    raised_ = true;
    Q_EMIT SelectionChanged();
}

void ListEx::mousePressEvent(QMouseEvent* event) {
    raised_ = false;
    QListView::mousePressEvent(event);
    const bool again = event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid();
    if (again && !raised_) Q_EMIT SelectionChanged();
}

void ListEx::keyPressEvent(QKeyEvent* event) {
    const bool choose =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (choose && currentIndex().isValid()) {
        Q_EMIT SelectionChanged();
        return;
    }
    // One row is chosen at a time: the key for all is left to the window.
    if (event->matches(QKeySequence::SelectAll)) return event->ignore();
    QListView::keyPressEvent(event);
}

void ListEx::SetRowPicture(const QIcon& picture) {
    texts_->picture = picture;
    viewport()->update();
}

void ListEx::SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

void ListEx::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (Count() > 0 || emptyText_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(theme::kMutedText);
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

bool ListEx::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        // A row that is cut tells its whole text.
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex row = indexAt(help->pos());
        const bool cut = row.isValid() && sizeHintForIndex(row).width() > viewport()->width();
        QToolTip::showText(help->globalPos(), cut ? row.data().toString() : QString(), viewport());
        return true;
    }
    return QListView::viewportEvent(event);
}

}  // namespace kelu
