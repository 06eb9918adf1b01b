// One picture button of a toolbox.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QPixmap>
#include <QString>

namespace kelu {

class ToolboxButton : public QAbstractButton {
    Q_OBJECT

 public:
    ToolboxButton(QString key, QWidget* parent);

    /// One of several.
    QAccessible::Role AccessibleRole() const { return QAccessible::RadioButton; }
    const QString& Key() const { return key_; }
    void SetPictures(const QPixmap& normal, const QPixmap& over, const QPixmap& down);
    void SetIconName(const QString& name);
    void SetCurrent(bool current);
    /// Looks disabled, and works.
    void SetDimmed(bool dimmed);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QString key_;
    QString iconName_;
    QPixmap normal_, over_, down_;
    bool current_ = false;
    bool dimmed_ = false;

    void PaintIconLook(QPainter& painter);
    void PaintPictureLook(QPainter& painter);
};

}  // namespace kelu
