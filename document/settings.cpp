// SPDX-License-Identifier: MIT
#include "document/settings.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/registry_access.h"

namespace kelu {

namespace {

QString KeyPath(const SettingKey& key) { return QLatin1String(Settings::kRoot) + u'\\' + QLatin1String(key.section); }

}  // namespace

std::optional<bool> FlagSetting::Parse(const QString& text) {
    for (const bool on : {false, true})
        if (text == Text(on)) return on;
    return std::nullopt;
}

int NumberSetting::Parse(const QString& text) const {
    const QString trimmed = text.trimmed();
    const bool isNegative = trimmed.startsWith(u'-');
    qint64 number = 0;
    for (const QChar c : QStringView(trimmed).mid(isNegative || trimmed.startsWith(u'+') ? 1 : 0)) {
        if (c < u'0' || c > u'9') break;
        number = std::min<qint64>(number * 10 + (c.unicode() - u'0'), Q_INT64_C(1) << 32);  // beyond every bound
    }
    return static_cast<int>(std::clamp<qint64>(isNegative ? -number : number, least, most));
}

QString Settings::ReadText(const SettingKey& key, const QString& standard) const {
    return registry_.ReadString(KeyPath(key), QLatin1String(key.name), standard);
}

bool Settings::WriteText(const SettingKey& key, const QString& text) {
    return registry_.WriteString(KeyPath(key), QLatin1String(key.name), text) != 0;
}

void Settings::KeepText(const SettingKey& key, const QString& text) {
    if (!WriteText(key, text) && !registry_.Failure().isEmpty())
        throw Error(kFileError, registry_.Failure(), QStringLiteral("Settings"));
}

}  // namespace kelu
