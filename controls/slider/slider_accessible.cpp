// The slider's accessibility interface.
// SPDX-License-Identifier: MIT
#include "controls/slider/slider_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>

#include "controls/slider/ls_slider.h"

namespace kelu {
namespace {

class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    explicit SliderAccessible(LsSlider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? QString::number(Slider().Value()) : QAccessibleWidget::text(which);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (!Slider().Enabled()) state.disabled = true;
        return state;
    }

    QVariant currentValue() const override { return Slider().Value(); }
    QVariant minimumValue() const override { return Slider().Min(); }
    QVariant maximumValue() const override { return Slider().Max(); }
    QVariant minimumStepSize() const override { return 1; }

    void setCurrentValue(const QVariant& value) override {
        if (!Slider().Enabled() || !Slider().isEnabled()) return;
        Slider().SetValue(std::clamp(value.toInt(), Slider().Min(), Slider().Max()));
    }

 private:
    LsSlider& Slider() const { return *static_cast<LsSlider*>(object()); }
};

QAccessibleInterface* MakeSliderAccessible(const QString&, QObject* object) {
    LsSlider* slider = qobject_cast<LsSlider*>(object);
    return slider ? new SliderAccessible(slider) : nullptr;
}

}  // namespace

void InstallSliderAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(MakeSliderAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

void AnnounceSliderValue(LsSlider& slider) {
    QAccessibleValueChangeEvent event(&slider, slider.Value());
    QAccessible::updateAccessibility(&event);
}

}  // namespace kelu
