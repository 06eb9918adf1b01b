// Integers out of files.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <algorithm>
#include <initializer_list>

namespace kelu {

/// The integer of `count` bytes (1 to 4) at a place of a byte array; bytes beyond its end are 0.
inline quint32 LittleEndian(const QByteArray& bytes, qint64 at, int count) {
    quint32 value = 0;
    for (int i = count; i-- > 0;)
        value = (value << 8) | (at + i < bytes.size() ? static_cast<quint8>(bytes[at + i]) : 0u);
    return value;
}

inline quint32 BigEndian(const QByteArray& bytes, qint64 at, int count) {
    quint32 value = 0;
    for (int i = 0; i < count; ++i)
        value = (value << 8) | (at + i < bytes.size() ? static_cast<quint8>(bytes[at + i]) : 0u);
    return value;
}

inline bool OneOf(quint32 value, std::initializer_list<quint32> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

}  // namespace kelu
