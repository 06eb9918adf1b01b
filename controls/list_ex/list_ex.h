// A list of texts of which one is chosen (ListEx). Keys, wheel and typing ahead work as in any list.
// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <QString>

class QIcon;

namespace kelu {

class ListRows;

class ListEx : public QListView {
    Q_OBJECT

 public:
    explicit ListEx(QWidget* parent = nullptr);

    /// Drops all rows; no row is chosen then. Raises nothing.
    void Clear();
    /// Inserts `text` before `row`, or at the end when `row` is -1 or past the end. Raises nothing.
    void AddItem(const QString& text, int row = -1);
    /// The chosen row from 0, or -1.
    int ListIndex() const;
    /// Chooses a row and raises SelectionChanged once, also for the row already chosen. -1 drops the choice without a
    /// signal. Another row throws Error(kInvalidProperty).
    void SetListIndex(int row);
    int Count() const;
    /// Text of a row; empty when there is no such row.
    QString Text(int row) const;
    /// Stands before the text of every row.
    void SetRowPicture(const QIcon& picture);
    /// Stands in the middle of the list while it has no rows.
    void SetEmptyText(const QString& text);
    /// What the choice waits for: the rows look disabled and the tool tip says why, but can be chosen all the same.
    void SetObstacle(const QString& obstacle);

 Q_SIGNALS:
    /// A row was chosen, by the user or by SetListIndex. A click on the row already chosen raises it again.
    void SelectionChanged();

 protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;

 private:
    ListRows* texts_;
    QString emptyText_;
    bool silent_ = false;  ///< rows are changing: no signal
    bool raised_ = false;  ///< the present event has raised the signal
};

}  // namespace kelu
