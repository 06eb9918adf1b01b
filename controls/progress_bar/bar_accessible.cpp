// The progress bar's accessibility interface, in percent.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/bar_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "controls/progress_bar/xp_progress_bar.h"

namespace kelu {
namespace {

class BarAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    explicit BarAccessible(XP_ProgressBar* bar) : QAccessibleWidget(bar, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? QString::number(Percent()) + QStringLiteral(" %")
                                           : QAccessibleWidget::text(which);
    }

    QVariant currentValue() const override { return Percent(); }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return 100; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant&) override {}

 private:
    int Percent() const { return static_cast<XP_ProgressBar*>(object())->Percent(); }
};

QAccessibleInterface* MakeBarAccessible(const QString&, QObject* object) {
    XP_ProgressBar* bar = qobject_cast<XP_ProgressBar*>(object);
    return bar ? new BarAccessible(bar) : nullptr;
}

}  // namespace

void InstallBarAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(MakeBarAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

void AnnounceBarValue(XP_ProgressBar& bar) {
    QAccessibleValueChangeEvent event(&bar, bar.Percent());
    QAccessible::updateAccessibility(&event);
}

}  // namespace kelu
