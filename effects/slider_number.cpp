// SPDX-License-Identifier: MIT
#include "effects/slider_number.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSpinBox>
#include <QToolTip>
#include <utility>

#include "controls/slider/ls_slider.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"

namespace kelu {

namespace {

constexpr QSize kFieldSize(64, 24);  // device-independent pixels

bool IsEnter(const QKeyEvent& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

}  // namespace

SliderNumber::SliderNumber(LsSlider& slider) : QWidget(slider.parentWidget()), slider_(slider) {
    UseAccessibleValue<SliderNumber, QAccessible::SpinBox>();
    setObjectName(slider.objectName() + QStringLiteral("Number"));
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    slider.installEventFilter(this);
    connect(&slider, &LsSlider::ValueChanged, this, [this] {
        AnnounceValue(*this, slider_.Value());
        if (hasFocus()) ShowNumber();
    });
    Follow();
}

AccessibleValue::Number SliderNumber::AccessibleNumber() const { return slider_.AccessibleNumber(); }

void SliderNumber::SetAccessibleNumber(int value) { slider_.SetValue(value); }

void SliderNumber::Follow() {
    setGeometry(slider_.geometry());
    setAccessibleName(slider_.accessibleName());
    setVisible(!slider_.isHidden());
    raise();
}

bool SliderNumber::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &slider_) {
        switch (event->type()) {
            case QEvent::Move:
            case QEvent::Resize:
            case QEvent::ShowToParent:
            case QEvent::HideToParent:
            case QEvent::ToolTipChange:  // which names the slider anew
                Follow();
                break;
            default:
                break;
        }
    } else if (watched == field_) {
        if (event->type() == QEvent::FocusOut) Close(true);
        if (event->type() == QEvent::KeyPress) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (IsEnter(key) || key.key() == Qt::Key_Escape) {
                Close(IsEnter(key));
                setFocus(Qt::TabFocusReason);
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SliderNumber::keyPressEvent(QKeyEvent* event) {
    const bool digit = event->modifiers() == Qt::NoModifier && !event->text().isEmpty() && event->text()[0].isDigit();
    if ((!IsEnter(*event) && !digit) || !slider_.Enabled()) return QWidget::keyPressEvent(event);
    Open(digit ? event->text() : QString());
}

void SliderNumber::Open(const QString& typed) {
    QToolTip::hideText();
    field_ = new QSpinBox(parentWidget());
    field_->setRange(slider_.Min(), slider_.Max());
    field_->setValue(slider_.Value());
    field_->setAccessibleName(accessibleName());
    const QPoint corner(slider_.geometry().center() - QPoint(kFieldSize.width() / 2, kFieldSize.height() / 2));
    field_->setGeometry(QRect(corner, kFieldSize));
    field_->installEventFilter(this);
    field_->show();
    field_->raise();
    field_->setFocus(Qt::OtherFocusReason);
    auto* line = field_->findChild<QLineEdit*>();
    if (typed.isEmpty())
        line->selectAll();
    else
        line->setText(typed);
}

void SliderNumber::Close(bool take) {
    QSpinBox* field = std::exchange(field_, nullptr);
    if (!field) return;
    field->interpretText();
    if (take) slider_.SetValue(field->value());
    field->hide();
    field->deleteLater();
}

void SliderNumber::ShowNumber() { QToolTip::showText(mapToGlobal(QPoint(0, height() / 2)), slider_.toolTip(), this); }

void SliderNumber::focusInEvent(QFocusEvent* event) {
    update();
    if (theme::ShowsFocus(*this)) ShowNumber();
    QWidget::focusInEvent(event);
}

void SliderNumber::focusOutEvent(QFocusEvent* event) {
    update();
    QWidget::focusOutEvent(event);
}

void SliderNumber::paintEvent(QPaintEvent*) {
    if (!theme::ShowsFocus(*this)) return;
    QPainter painter(this);
    theme::DrawFocusRing(painter, rect().adjusted(1, 1, -1, -1), theme::kFocus);
}

}  // namespace kelu
