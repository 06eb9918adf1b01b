// A flat picture button of the tool strips: icon, optional caption, a plate under the pointer.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QString>

namespace kelu {

class ToolButton : public QAbstractButton {
    Q_OBJECT

 public:
    /// Flat: no plate at rest. Raised: a push button's plate. Primary: the accent, for the one main action of a window.
    enum class Look { Flat, Raised, Primary };
    enum class CaptionPlace { Beside, Below };
    /// Where icon and caption side by side stand in a button wider than both.
    enum class Alignment { Middle, Left };

    /// `iconName` is a drawing of the theme (controls/theme/icons.h) or empty.
    explicit ToolButton(const QString& iconName, QWidget* parent = nullptr);
    explicit ToolButton(QWidget* parent = nullptr);

    QString IconName() const { return iconName_; }
    void SetIconName(const QString& name);
    /// Icon size in device-independent pixels; by default theme::kIconSize, less where the button is smaller.
    void SetIconSize(int pixels);
    /// Moves the icon within the button by `dy` device-independent pixels, so that icons of a strip whose buttons lie
    /// at different heights stand on one line.
    void SetIconShift(int dy);
    /// Blanks at the ends, as in "  Apply", do not show; "&&" stands for one ampersand.
    void SetCaption(const QString& caption);
    QString Caption() const { return caption_; }
    void SetCaptionPlace(CaptionPlace place);
    void SetAlignment(Alignment alignment);
    void SetLook(Look look);
    Look ButtonLook() const { return look_; }
    /// The button chooses a page of its window and is read as its tab.
    void SetPageTab() { pageTab_ = true; }
    QAccessible::Role AccessibleRole() const;
    /// Tool tip and accessible name.
    void SetTip(const QString& tip);
    QString Tip() const { return tip_; }
    /// The key that does the same, as "Ctrl+S"; the tool tip names it behind the tip.
    void SetKey(const QString& key);
    /// What the button's command waits for: the button looks disabled and its tool tip says why. It can be pressed all
    /// the same. Empty: nothing is in the way.
    void SetObstacle(const QString& obstacle);
    QString Obstacle() const { return obstacle_; }
    /// A dot in the corner that has this meaning, which the accessible name tells; empty: none.
    void SetMark(const QString& meaning);
    QString Mark() const { return mark_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void ShowNames();

    QString iconName_;
    QString caption_;
    QString tip_;
    QString key_;
    QString obstacle_;
    QString mark_;
    bool pageTab_ = false;
    int iconPixels_ = 0;
    int iconShift_ = 0;
    Look look_ = Look::Flat;
    CaptionPlace place_ = CaptionPlace::Beside;
    Alignment alignment_ = Alignment::Middle;
};

}  // namespace kelu
