// SPDX-License-Identifier: MIT
#include "controls/note/announcer.h"

#include "controls/theme/accessible_role.h"

namespace kelu {

namespace {
constexpr int kStays = 1000;  // ms: the reader asks for the words only after it has heard of them
}

Announcer::Announcer(QWidget* parent) : QWidget(parent) {
    UseAccessibleRole<Announcer, QAccessible::Notification>();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    resize(1, 1);
    goes_.setSingleShot(true);
    connect(&goes_, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void Announcer::Tell(const QString& text) {
    if (!QAccessible::isActive()) return;
    hide();
    setAccessibleName(text);
    show();
    goes_.start(kStays);
}

}  // namespace kelu
