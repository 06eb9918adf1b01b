// Which part is drawn where, and how large; the drawings stand in style_*.cpp. See dark_style.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/dark_style.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <QTabBar>

#include "controls/theme/icons.h"
#include "controls/theme/paint.h"
#include "controls/theme/style_parts.h"
#include "controls/theme/theme.h"

namespace kelu::theme {

namespace {

constexpr int kSpinButtons = 18;
constexpr int kIndicator = 16;
constexpr int kAreaFrame = 2;  // as wide as the focus ring

template <typename Option>
const Option* As(const QStyleOption* option) {
    return qstyleoption_cast<const Option*>(option);
}

Qt::ArrowType ArrowOf(QStyle::PrimitiveElement element) {
    switch (element) {
        case QStyle::PE_IndicatorArrowUp:
        case QStyle::PE_IndicatorSpinUp:
            return Qt::UpArrow;
        case QStyle::PE_IndicatorArrowLeft:
            return Qt::LeftArrow;
        case QStyle::PE_IndicatorArrowRight:
            return Qt::RightArrow;
        default:
            return Qt::DownArrow;
    }
}

void DrawBranch(QPainter& painter, const QStyleOption& option) {
    if (!Has(option.state, QStyle::State_Children)) return;
    const bool open = Has(option.state, QStyle::State_Open);
    DrawChevron(painter, option.rect, open ? Qt::DownArrow : Qt::RightArrow,
                Has(option.state, QStyle::State_MouseOver) ? kBrightText : kMutedText, 3.5);
}

/// Frames of scroll areas; the focus shows at the frame where no row or text could show it.
void DrawAreaFrame(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    // The kind of scroll area that takes text is an input and shows its focus always.
    const bool takesText =
        widget && widget->testAttribute(Qt::WA_InputMethodEnabled) && !qobject_cast<const QAbstractItemView*>(widget);
    const bool focused = takesText ? Has(option.state, QStyle::State_HasFocus)
                                   : qobject_cast<const QAbstractScrollArea*>(widget) && ShowsFocus(option.state);
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget);
    // Filled as the viewport is, whose corners lie within the round ones of the frame.
    const QColor fill = area && area->viewport() && area->viewport()->autoFillBackground()
                            ? area->viewport()->palette().color(area->viewport()->backgroundRole())
                            : QColor(Qt::transparent);
    const bool enabled = Has(option.state, QStyle::State_Enabled);
    // Where only a part of the widget is to be seen, the frame goes round that part.
    const QRect frame = widget && !widget->mask().isEmpty() ? widget->mask().boundingRect() : option.rect;
    DrawField(painter, frame, fill, takesText && enabled ? kOutline : kLine);
    if (focused) DrawFocusRing(painter, frame, kFocus);
}

}  // namespace

DarkStyle::DarkStyle() : QProxyStyle(QStringLiteral("Fusion")) { setObjectName(QStringLiteral("keludark")); }

void DarkStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QTabBar*>(widget)) widget->setAttribute(Qt::WA_Hover);
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) view->viewport()->setAttribute(Qt::WA_Hover);
}

void DarkStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
        case PE_PanelButtonCommand:
            if (const auto* button = As<QStyleOptionButton>(option)) return DrawPushButton(*painter, *button);
            break;
        case PE_FrameDefaultButton:
            return;
        case PE_PanelButtonTool:
            return DrawToolButtonPlate(*painter, *option);
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            return DrawCheckBox(*painter, *option);
        case PE_IndicatorRadioButton:
            return DrawRadioButton(*painter, *option);
        case PE_PanelLineEdit:
        case PE_FrameLineEdit:
            // Combo and spin boxes have drawn their own field round the line edit.
            if (const auto* frame = As<QStyleOptionFrame>(option); frame && frame->lineWidth > 0)
                DrawInputField(*painter, *option, option->rect);
            return;
        case PE_Frame:
            return DrawAreaFrame(*painter, *option, widget);
        case PE_FrameFocusRect:
            // Rows show the focus by their ground, buttons by their plate; what is left gets the ring. A tree asks for
            // its rows without naming itself; a ring outside such a row would not go with it.
            if (As<QStyleOptionViewItem>(option) || qobject_cast<const QAbstractItemView*>(widget)) return;
            if (!FocusWatch::Instance().ByKeyboard()) return;
            if (widget && !Has(option->state, State_Item))
                DrawFocusRing(*painter, QRectF(option->rect).adjusted(-1, -1, 1, 1), kFocus);
            else if (!Has(option->state, State_Selected))
                DrawFocusRing(*painter, option->rect, kFocus);
            return;
        case PE_PanelItemViewItem:
            if (const auto* row = As<QStyleOptionViewItem>(option)) return DrawRowGround(*painter, *row);
            break;
        case PE_PanelItemViewRow:
            // The row's cells paint themselves; only the alternating ground lies under them.
            if (const auto* row = As<QStyleOptionViewItem>(option);
                row && row->features.testFlag(QStyleOptionViewItem::Alternate))
                painter->fillRect(option->rect, option->palette.alternateBase());
            return;
        case PE_IndicatorBranch:
            return DrawBranch(*painter, *option);
        case PE_IndicatorArrowUp:
        case PE_IndicatorArrowDown:
        case PE_IndicatorArrowLeft:
        case PE_IndicatorArrowRight:
            return DrawChevron(*painter, option->rect, ArrowOf(element),
                               Has(option->state, State_Enabled) ? kMutedText : kDisabledText, 3.5);
        case PE_IndicatorHeaderArrow:
            if (const auto* header = As<QStyleOptionHeader>(option))
                DrawChevron(*painter, option->rect,
                            header->sortIndicator == QStyleOptionHeader::SortUp ? Qt::UpArrow : Qt::DownArrow,
                            kMutedText, 3);
            return;
        case PE_PanelMenu:
        case PE_PanelTipLabel:
            painter->fillRect(option->rect, kOutlinePopup);
            painter->fillRect(option->rect.adjusted(1, 1, -1, -1), kPopup);
            return;
        case PE_FrameMenu:
            return;
        case PE_FrameGroupBox: {
            // The frame stands below its caption.
            const auto* box = qobject_cast<const QGroupBox*>(widget);
            const int caption = box != nullptr && !box->title().isEmpty() ? option->fontMetrics.height() + 3 : 0;
            DrawField(*painter, option->rect.adjusted(0, caption, 0, 0), Qt::transparent, kLine);
            return;
        }
        case PE_FrameTabWidget:
            DrawField(*painter, option->rect, Qt::transparent, kLine);
            return;
        case PE_FrameTabBarBase:
            painter->fillRect(QRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1), kLine);
            return;
        case PE_FrameStatusBarItem:
            return;
        default:
            break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void DarkStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    switch (element) {
        case CE_PushButton:
            // The plate draws its own focus ring.
            drawControl(CE_PushButtonBevel, option, painter, widget);
            if (const auto* button = As<QStyleOptionButton>(option)) {
                QStyleOptionButton label = *button;
                label.rect = subElementRect(SE_PushButtonContents, option, widget);
                label.palette.setColor(QPalette::ButtonText, PushButtonInk(*button));
                drawControl(CE_PushButtonLabel, &label, painter, widget);
            }
            return;
        case CE_MenuItem:
            if (const auto* item = As<QStyleOptionMenuItem>(option)) return DrawMenuItem(*painter, *item, widget);
            break;
        case CE_TabBarTabShape:
            if (const auto* tab = As<QStyleOptionTab>(option)) return DrawTab(*painter, *tab);
            break;
        case CE_TabBarTabLabel:
            if (const auto* tab = As<QStyleOptionTab>(option)) {
                QStyleOptionTab label = *tab;
                label.state.setFlag(State_HasFocus, false);
                if (Has(tab->state, State_Enabled))
                    label.palette.setColor(QPalette::WindowText,
                                           Has(tab->state, State_Selected) ? kBrightText : kMutedText);
                return QProxyStyle::drawControl(element, &label, painter, widget);
            }
            break;
        case CE_HeaderSection:
        case CE_HeaderEmptyArea:
            painter->fillRect(option->rect, kTitleGround);
            painter->fillRect(QRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1), kLine);
            if (element == CE_HeaderSection)
                painter->fillRect(QRect(option->rect.right(), option->rect.top() + 4, 1, option->rect.height() - 8),
                                  kLine);
            return;
        case CE_ProgressBarGroove:
            return FillPlate(*painter, option->rect, kSunken);
        case CE_ProgressBarContents:
            if (const auto* bar = As<QStyleOptionProgressBar>(option); bar && bar->maximum > bar->minimum) {
                QRectF done = option->rect;
                const qreal part = qreal(bar->progress - bar->minimum) / (bar->maximum - bar->minimum);
                if (Has(option->state, State_Horizontal))
                    done.setWidth(done.width() * part);
                else
                    done.setTop(done.bottom() - done.height() * part);
                if (part > 0) FillPlate(*painter, done, kAccent);
                return;
            }
            break;
        case CE_ProgressBarLabel:
            if (const auto* bar = As<QStyleOptionProgressBar>(option)) {
                // The text where it lies on the accent.
                QStyleOptionProgressBar label = *bar;
                label.palette.setColor(QPalette::HighlightedText, kOnAccent);
                return QProxyStyle::drawControl(element, &label, painter, widget);
            }
            break;
        case CE_RubberBand: {
            QColor veil = kAccent;
            veil.setAlpha(48);
            painter->fillRect(option->rect, veil);
            painter->setPen(kAccent);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        }
        case CE_Splitter:
            if (Has(option->state, State_MouseOver)) painter->fillRect(option->rect, kHover);
            return;
        default:
            break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void DarkStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    switch (control) {
        case CC_ComboBox:
            if (const auto* combo = As<QStyleOptionComboBox>(option)) return DrawComboBox(*painter, *combo);
            break;
        case CC_SpinBox:
            if (const auto* spin = As<QStyleOptionSpinBox>(option))
                return DrawSpinBox(*painter, *spin, subControlRect(control, option, SC_SpinBoxUp, widget),
                                   subControlRect(control, option, SC_SpinBoxDown, widget));
            break;
        case CC_ScrollBar:
            if (const auto* bar = As<QStyleOptionSlider>(option))
                return DrawScrollBar(*painter, *bar, ScrollHandle(*bar));
            break;
        case CC_Slider:
            if (const auto* slider = As<QStyleOptionSlider>(option); slider && slider->tickPosition == QSlider::NoTicks)
                return DrawSlider(*painter, *slider, subControlRect(control, option, SC_SliderGroove, widget),
                                  subControlRect(control, option, SC_SliderHandle, widget));
            break;
        default:
            break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect DarkStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
    const QRect all = option->rect;
    if (control == CC_ScrollBar) {
        const auto* bar = As<QStyleOptionSlider>(option);
        if (!bar) return {};
        const QRect handle = ScrollHandle(*bar);
        const bool level = bar->orientation == Qt::Horizontal;
        switch (part) {
            case SC_ScrollBarSlider:
                return handle;
            case SC_ScrollBarGroove:
                return all;
            case SC_ScrollBarSubPage:
                return level ? QRect(all.left(), all.top(), handle.left() - all.left(), all.height())
                             : QRect(all.left(), all.top(), all.width(), handle.top() - all.top());
            case SC_ScrollBarAddPage:
                return level ? QRect(QPoint(handle.right() + 1, all.top()), all.bottomRight())
                             : QRect(QPoint(all.left(), handle.bottom() + 1), all.bottomRight());
            default:
                return {};  // no arrow buttons
        }
    }
    if (control == CC_SpinBox) {
        const auto* spin = As<QStyleOptionSpinBox>(option);
        const int frame = spin && spin->frame ? 2 : 0;
        const int buttons = spin && spin->buttonSymbols == QAbstractSpinBox::NoButtons ? 0 : kSpinButtons;
        const QRect inner = all.adjusted(frame, frame, -frame, -frame);
        const int half = inner.height() / 2;
        const QRect column(inner.right() + 1 - buttons, inner.top(), buttons, inner.height());
        QRect found = all;
        switch (part) {
            case SC_SpinBoxUp:
                found = QRect(column.left(), column.top(), buttons, half);
                break;
            case SC_SpinBoxDown:
                found = QRect(column.left(), column.bottom() + 1 - half, buttons, half);
                break;
            case SC_SpinBoxEditField:
                found = inner.adjusted(buttons > 0 ? 4 : 0, 0, -buttons, 0);
                break;
            default:
                break;
        }
        return visualRect(option->direction, all, found);
    }
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return visualRect(option->direction, all, all.adjusted(6, 2, -kComboArrow, -2));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect DarkStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    if (element == SE_LineEditContents) {
        const QRect inner = QProxyStyle::subElementRect(element, option, widget);
        const auto* frame = As<QStyleOptionFrame>(option);
        return frame && frame->lineWidth > 0 ? inner.adjusted(4, 0, -4, 0) : inner;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QStyle::SubControl DarkStyle::hitTestComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                                    const QPoint& point, const QWidget* widget) const {
    if (control != CC_ScrollBar) return QProxyStyle::hitTestComplexControl(control, option, point, widget);
    for (const SubControl part : {SC_ScrollBarSlider, SC_ScrollBarSubPage, SC_ScrollBarAddPage})
        if (subControlRect(control, option, part, widget).contains(point)) return part;
    return SC_None;
}

QSize DarkStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    QSize found = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
        case CT_PushButton:
            found.setHeight(qMax(found.height(), kButtonHeight));
            if (const auto* button = As<QStyleOptionButton>(option); button && !button->text.isEmpty())
                found.setWidth(qMax(size.width() + 28, kButtonMinWidth));
            break;
        case CT_LineEdit:
            found.setHeight(qMax(found.height(), kButtonHeight));
            break;
        case CT_SpinBox:
            found.setHeight(qMax(option->fontMetrics.height() + 10, kButtonHeight));
            break;
        case CT_ComboBox:
            found = {found.width() + 14, qMax(found.height(), kButtonHeight)};
            break;
        case CT_MenuItem:
            if (const auto* item = As<QStyleOptionMenuItem>(option)) return MenuItemSize(*item, size);
            break;
        case CT_TabBarTab:
            found = {found.width() + 8, qMax(found.height(), 32)};
            break;
        case CT_HeaderSection:
            found.setHeight(qMax(found.height(), 26));
            break;
        case CT_ItemViewItem:
            found.setHeight(qMax(found.height(), 22));
            break;
        default:
            break;
    }
    return found;
}

int DarkStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_DefaultFrameWidth:
            if (qobject_cast<const QAbstractScrollArea*>(widget)) return kAreaFrame;
            return QProxyStyle::pixelMetric(metric, option, widget);
        case PM_ScrollBarExtent:
            return kScrollBarWidth;
        case PM_ScrollView_ScrollBarSpacing:
            return 0;
        case PM_ScrollView_ScrollBarOverlap:
            return 0;
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return kIndicator;
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing:
            return 8;
        case PM_MenuVMargin:
            return 4;
        case PM_MenuHMargin:
        case PM_MenuPanelWidth:
            return 1;
        case PM_ToolTipLabelFrameWidth:
            return 5;
        case PM_FocusFrameHMargin:
            return 4;  // text to edge in rows
        case PM_SplitterWidth:
            return 5;
        case PM_ButtonDefaultIndicator:
            return 0;
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int DarkStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    switch (hint) {
        case SH_ComboBox_Popup:
            return 0;  // a list below the box, not a menu over it
        case SH_DialogButtonLayout:
            return QDialogButtonBox::WinLayout;
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_EtchDisabledText:
        case SH_ScrollBar_Transient:
            return 0;
        case SH_ScrollBar_LeftClickAbsolutePosition:
            return 0;
        case SH_LineEdit_PasswordCharacter:
            return '*';
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QIcon DarkStyle::standardIcon(StandardPixmap standard, const QStyleOption* option, const QWidget* widget) const {
    switch (standard) {
        case SP_ArrowBack:
        case SP_FileDialogBack:
            return Icon(QStringLiteral("back"));
        case SP_ArrowForward:
            return Icon(QStringLiteral("forward"));
        case SP_ArrowUp:
        case SP_FileDialogToParent:
            return Icon(QStringLiteral("up"));
        case SP_FileDialogNewFolder:
            return Icon(QStringLiteral("new_folder"));
        case SP_FileDialogDetailedView:
            return Icon(QStringLiteral("details"));
        case SP_FileDialogListView:
            return Icon(QStringLiteral("views"));
        case SP_DirIcon:
        case SP_DirClosedIcon:
        case SP_DirLinkIcon:
            return Icon(QStringLiteral("folder"));
        case SP_DirOpenIcon:
            return Icon(QStringLiteral("open"));
        case SP_DirHomeIcon:
            return Icon(QStringLiteral("home"));
        case SP_FileIcon:
        case SP_FileLinkIcon:
            return Icon(QStringLiteral("folder_documents"));
        case SP_ComputerIcon:
        case SP_DesktopIcon:
            return Icon(QStringLiteral("computer"));
        case SP_DriveHDIcon:
            return Icon(QStringLiteral("drive"));
        case SP_MessageBoxInformation:
        case SP_MessageBoxQuestion:
            return Icon(QStringLiteral("msg_info"));
        case SP_MessageBoxWarning:
            return Icon(QStringLiteral("msg_exclamation"));
        case SP_MessageBoxCritical:
            return Icon(QStringLiteral("msg_error"));
        case SP_LineEditClearButton:
        case SP_TitleBarCloseButton:
            return Icon(QStringLiteral("close"));
        default:
            return QProxyStyle::standardIcon(standard, option, widget);
    }
}

}  // namespace kelu::theme
