// One text panel of the status bar.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QString>

namespace kelu {

class StatusPanel : public QAbstractButton {
    Q_OBJECT

 public:
    explicit StatusPanel(QWidget* parent);

    void SetText(const QString& text);
    const QString& Text() const { return whole_; }
    void SetClickable(bool clickable);
    /// A text, but where it can be clicked.
    QAccessible::Role AccessibleRole() const { return clickable_ ? QAccessible::Button : QAccessible::StaticText; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QString whole_;
    QString shown_;  ///< the text as it fits
    QFont letters_;
    bool clickable_ = false;

    void Fit();
};

}  // namespace kelu
