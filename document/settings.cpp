// The program's settings, by name.
// SPDX-License-Identifier: MIT
#include "document/settings.h"

#include <algorithm>
#include <limits>

#include "platform/registry_access.h"

namespace kelu {

namespace {

QString KeyPath(const Setting& setting) {
    return QLatin1String(Settings::kRoot) + u'\\' + QLatin1String(setting.section);
}

}  // namespace

QString Settings::Read(const Setting& setting, const QString& defaultText) const {
    return registry_.ReadString(KeyPath(setting), QLatin1String(setting.name), defaultText);
}

int Settings::ReadInteger(const Setting& setting) const {
    const QString text = Read(setting).trimmed();
    const bool isNegative = text.startsWith(u'-');
    qint64 number = 0;
    for (const QChar c : QStringView(text).mid(isNegative || text.startsWith(u'+') ? 1 : 0)) {
        if (c < u'0' || c > u'9') break;
        number = std::min<qint64>(number * 10 + (c.unicode() - u'0'), std::numeric_limits<int>::max());
    }
    return static_cast<int>(isNegative ? -number : number);
}

bool Settings::Write(const Setting& setting, const QString& text) {
    return registry_.WriteString(KeyPath(setting), QLatin1String(setting.name), text) != 0;
}

}  // namespace kelu
