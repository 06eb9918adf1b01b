// The bar along the window's lower edge: text panels of fixed width.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>
#include <initializer_list>
#include <vector>

namespace kelu {

class StatusPanel;

class StatusBar : public QWidget {
    Q_OBJECT

 public:
    explicit StatusBar(QWidget* parent = nullptr);

    /// Makes one panel for each width (device-independent pixels), from the left. Texts start empty.
    void SetPanelWidths(std::initializer_list<int> widths);
    int PanelCount() const { return static_cast<int>(panels_.size()); }
    /// Text of panel `number`, from 1; a number out of range does nothing. A text too long for its panel is cut in the
    /// middle and stands whole in the panel's tool tip.
    void SetPanelText(int number, const QString& text);
    QString PanelText(int number) const;
    /// Marks a panel as one that answers clicks: pointing hand, brighter under the pointer, reachable by Tab.
    void SetPanelClickable(int number, bool clickable);
    QSize sizeHint() const override;

 Q_SIGNALS:
    /// Panel `number` (from 1) was clicked with the left button, or by Space or Enter.
    void PanelClicked(int number);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    std::vector<StatusPanel*> panels_;
    std::vector<int> widths_;

    void Arrange();
};

}  // namespace kelu
