// SPDX-License-Identifier: MIT
#include "app/desktop_look.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPalette>
#include <optional>

namespace kelu {

namespace {

constexpr int kPatience = 200;  // ms
constexpr uint kHigherContrast = 1;

bool HasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// A value of the portal lies in one variant or in two.
QVariant Unpacked(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<bool> SaidByPortal() {
    if (!HasSessionBus()) return {};
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("contrast");
    question.setAutoStartService(false);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, kPatience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
    return Unpacked(answer.arguments().first()).toUInt() == kHigherContrast;
}

bool BlackAndWhite(const QPalette& colors) {
    const QRgb text = colors.color(QPalette::WindowText).rgb() & RGB_MASK;
    const QRgb ground = colors.color(QPalette::Window).rgb() & RGB_MASK;
    return (text == 0 && ground == RGB_MASK) || (text == RGB_MASK && ground == 0);
}

}  // namespace

bool WantsHighContrast() { return SaidByPortal().value_or(BlackAndWhite(QGuiApplication::palette())); }

}  // namespace kelu
