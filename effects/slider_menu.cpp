// SPDX-License-Identifier: MIT
#include "effects/slider_menu.h"

#include <QCoreApplication>
#include <QMenu>

#include "controls/slider/ls_slider.h"

namespace kelu {

void AddSliderMenu(LsSlider& slider, std::function<OfferedValues()> values) {
    slider.setContextMenuPolicy(Qt::CustomContextMenu);
    const auto open = [&slider, values = std::move(values)](const QPoint& at) {
        const auto text = [](const char* words) { return QCoreApplication::translate("SliderMenu", words); };
        auto* menu = new QMenu(&slider);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const auto add = [&](const QString& caption, std::optional<int> value) {
            QAction* action = menu->addAction(value ? caption.arg(*value) : caption.arg(QChar(0x2013)));
            action->setEnabled(value.has_value());
            if (value)
                QObject::connect(action, &QAction::triggered, &slider, [&slider, value] {
                    if (*value >= slider.Min() && *value <= slider.Max()) slider.SetValue(*value);
                });
        };
        const OfferedValues offered = values();
        add(text(QT_TRANSLATE_NOOP("SliderMenu", "Last used: %1")), offered.lastUsed);
        add(text(QT_TRANSLATE_NOOP("SliderMenu", "Default: %1")), offered.initial);
        menu->popup(slider.mapToGlobal(at));
    };
    QObject::connect(&slider, &QWidget::customContextMenuRequested, &slider, open);
}

}  // namespace kelu
