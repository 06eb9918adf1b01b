// A container whose contents form a page taller than itself: the user scrolls by dragging anywhere on its empty
// surface, and a thin strip at the right edge shows where the view is.
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>
#include <optional>

#include "controls/scroller/scroller_geometry.h"
#include "controls/system_look/system_colors.h"

namespace kelu {

class PropertyBag;

/// Every widget whose parent is the Scroller is on the page. At its first showing the Scroller moves the page to its
/// top; from then on it looks at what is on the page when its size or the page's place changes, or by UpdatePage.
class Scroller : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int MoveUp READ MoveUp WRITE SetMoveUp)
    Q_PROPERTY(int MoveDown READ MoveDown WRITE SetMoveDown)

 public:
    /// Step of the page at design time, in twips.
    static constexpr int kDesignStep = 300;

    explicit Scroller(QWidget* parent = nullptr);

    ColorRef BackColor() const { return backColor_; }
    void SetBackColor(ColorRef color);
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    /// An author's tool sets this before the first showing: the page stays as it was left and can be moved by
    /// MoveControls, so that controls can be placed below the fold.
    void SetDesignMode(bool design) { designMode_ = design; }
    /// Moves every control on the page by `offset` twips; at design time only.
    void MoveControls(int offset);
    /// Properties that read as 0; writing anything moves the page one step up or down, at design time only.
    int MoveUp() const { return 0; }
    void SetMoveUp(int) { MoveControls(-kDesignStep); }
    int MoveDown() const { return 0; }
    void SetMoveDown(int) { MoveControls(kDesignStep); }

    /// Measures the page anew, after controls on it came, went or changed.
    void UpdatePage();

    /// Offset of the page in twips, 0 at its top, negative when scrolled down.
    int ScrollY() const { return scrollY_; }
    /// In twips.
    int PageHeight() const { return pageHeight_; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    QList<QWidget*> Contained() const;
    std::vector<scroller::Item> Items() const;
    void ShiftContained(int offset);
    int SurfaceHeight() const;

    ColorRef backColor_ = kButtonFaceColor;
    bool designMode_ = false;
    bool shown_ = false;
    std::optional<int> dragStartY_;
    int scrollY_ = 0;
    int pageHeight_ = 0;

    QWidget* pctPos_;
    QWidget* ShpPos_;
    QWidget* LineTop_;
    QWidget* LineLeft_;
    QWidget* LineRight_;
    QWidget* LineBottom_;
};

}  // namespace kelu
