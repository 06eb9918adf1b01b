// The property store of the controls.
// SPDX-License-Identifier: MIT
#include "controls/property_bag/property_bag.h"

#include <algorithm>

namespace kelu {

std::vector<PropertyBag::Entry>::const_iterator PropertyBag::Find(const QString& name) const {
    return std::find_if(entries_.begin(), entries_.end(),
                        [&name](const Entry& entry) { return entry.first.compare(name, Qt::CaseInsensitive) == 0; });
}

QVariant PropertyBag::ReadProperty(const QString& name, const QVariant& defaultValue) const {
    const auto entry = Find(name);
    return entry == entries_.end() ? defaultValue : entry->second;
}

void PropertyBag::WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue) {
    const auto entry = Find(name);
    if (value == defaultValue) {
        if (entry != entries_.end()) entries_.erase(entry);
    } else if (entry == entries_.end()) {
        entries_.emplace_back(name, value);
    } else {
        entries_[static_cast<std::size_t>(entry - entries_.begin())].second = value;
    }
}

bool PropertyBag::Contains(const QString& name) const { return Find(name) != entries_.end(); }

QStringList PropertyBag::Names() const {
    QStringList names;
    for (const Entry& entry : entries_) names.append(entry.first);
    return names;
}

}  // namespace kelu
