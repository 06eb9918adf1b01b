// The store through which a control keeps its named properties: the host fills one to load a control and receives one
// when the control is saved. A property that has its default is not kept.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVariant>
#include <utility>
#include <vector>

namespace kelu {

class PropertyBag {
 public:
    /// The stored value, or `defaultValue` when the bag has no property of that name. Names are compared without
    /// regard to case.
    QVariant ReadProperty(const QString& name, const QVariant& defaultValue = QVariant()) const;

    /// Stores `value`; a value equal to `defaultValue` removes the property instead.
    void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue = QVariant());

    bool Contains(const QString& name) const;

    /// The stored names in the order in which they were first written.
    QStringList Names() const;

 private:
    using Entry = std::pair<QString, QVariant>;
    std::vector<Entry>::const_iterator Find(const QString& name) const;

    std::vector<Entry> entries_;
};

/// A picture as a property: "none" is an invalid variant, so that it equals the default of every picture property.
template <typename Picture>
QVariant PictureProperty(const Picture& picture) {
    return picture.isNull() ? QVariant() : QVariant::fromValue(picture);
}

}  // namespace kelu
