// Picture buttons in a grid of which one is current. One button takes the Tab key; arrow and page keys walk, and who
// types a name is led to its button.
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPixmap>
#include <QString>
#include <QWidget>
#include <vector>

class QKeyEvent;

namespace kelu {

class ToolboxButton;

class Toolbox : public QWidget {
    Q_OBJECT

 public:
    explicit Toolbox(QWidget* parent = nullptr);
    ~Toolbox() override;

    /// Buttons a row, at least 1; start value 1. A number past the button count gives one row.
    void SetColumns(int columns);
    int Columns() const { return columns_; }
    /// All lengths in device-independent pixels: the buttons' size, the rim round the grid, the space between buttons.
    void SetButtonSize(const QSize& size);
    QSize ButtonSize() const { return buttonSize_; }
    void SetMargin(int margin);
    void SetGap(int gap);

    /// Appends a button and returns its index, from 1. Pictures may be null: over and down are then made from the plain
    /// one by the theme, and a button without any picture shows a quiet plate until SetPictures.
    int AddButton(const QString& key, const QPixmap& normal = {}, const QPixmap& over = {}, const QPixmap& down = {});
    /// Replaces the pictures of button `index` (from 1); an index out of range does nothing.
    void SetPictures(int index, const QPixmap& normal, const QPixmap& over = {}, const QPixmap& down = {});
    /// Lets button `index` draw a line icon of the theme instead of pictures.
    void SetIconName(int index, const QString& iconName);
    int Count() const { return static_cast<int>(buttons_.size()); }
    QString Key(int index) const;

    /// Marks button `index` (from 1; 0: none) as the current one. Raises nothing.
    void SetCurrent(int index);
    int Current() const { return current_; }
    /// Tool tip and accessible name of button `index`; "&&" stands for one ampersand.
    void SetTip(int index, const QString& text);
    QString Tip(int index) const;
    /// What all buttons wait for: they look disabled and their tool tips say why, but can be pressed all the same.
    void SetObstacle(const QString& obstacle);
    /// Takes a key press as the button does that Tab leads to; false: it has no use for it.
    bool TakeKey(const QKeyEvent& key);
    /// The button widget, for placing a pointer over it or scrolling to it; null when out of range.
    QWidget* Button(int index) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
    /// The user pressed button `index` (from 1) with mouse or keyboard; it has become the current one before. Raised
    /// for the button that was current already, too.
    void ButtonClicked(int index, const QString& key);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    std::vector<ToolboxButton*> buttons_;
    QSize buttonSize_{48, 48};
    int columns_ = 1;
    int margin_ = 1;
    int gap_ = 1;
    int current_ = 0;
    int tabStop_ = 0;
    QString typed_;  ///< of a name, so far
    QElapsedTimer sinceTyped_;
    QString obstacle_;

    void Arrange();
    void UpdateTabStop(int index);
    int RowsInSight() const;
    bool TakeKey(const QKeyEvent& key, int index);
    int Typed(const QString& text, int index);
    void Press(int index);
    void ShowTip(ToolboxButton& button);
    bool InRange(int index) const { return index >= 1 && index <= Count(); }
};

/// Adds the eight direction buttons, by rows from north-west, with arrows as pictures, keys "1" to "8": 24 by 24 pixels
/// in one row, margin 1, gap 1. Button 3 is current.
void FillCompass(Toolbox& toolbox);

}  // namespace kelu
