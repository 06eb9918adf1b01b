// The drawings behind DarkStyle, one function a part of a widget. `box` and all lengths in device-independent pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QStyle>

#include "controls/theme/focus_watch.h"

class QColor;
class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionTab;
class QStyleOptionViewItem;

namespace kelu::theme {

inline bool Has(QStyle::State state, QStyle::StateFlag flag) { return state.testFlag(flag); }
/// Whether the ring of keyboard focus is wanted.
inline bool ShowsFocus(QStyle::State state) {
    return Has(state, QStyle::State_HasFocus) && FocusWatch::Instance().ByKeyboard();
}

// Buttons and marks (style_buttons.cpp)
void DrawPushButton(QPainter& painter, const QStyleOptionButton& option);
QColor PushButtonInk(const QStyleOptionButton& option);
void DrawCheckMark(QPainter& painter, const QRect& box, const QColor& color);
void DrawCheckBox(QPainter& painter, const QStyleOption& option);
void DrawRadioButton(QPainter& painter, const QStyleOption& option);
void DrawToolButtonPlate(QPainter& painter, const QStyleOption& option);

// Fields (style_fields.cpp)
inline constexpr int kComboArrow = 26;  ///< breadth of a combo box's part with the chevron
void DrawInputField(QPainter& painter, const QStyleOption& option, const QRect& box);
void DrawComboBox(QPainter& painter, const QStyleOptionComboBox& option);
void DrawSpinBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down);
void DrawSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& groove, const QRect& handle);

// Lists, menus, tabs, scroll bars (style_views.cpp)
void DrawRowGround(QPainter& painter, const QStyleOptionViewItem& option);
void DrawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option, const QWidget* widget);
QSize MenuItemSize(const QStyleOptionMenuItem& option, const QSize& contents);
void DrawTab(QPainter& painter, const QStyleOptionTab& option);
void DrawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle);
/// The thumb of a scroll bar without arrow buttons.
QRect ScrollHandle(const QStyleOptionSlider& option);

}  // namespace kelu::theme
