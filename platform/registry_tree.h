// Keys and values in memory: what a registry store keeps.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>
#include <vector>

namespace kelu {

/// The roots by their long and short names.
struct RegistryRoot {
    const char* longName;
    const char* shortName;
};
inline constexpr RegistryRoot kRegistryRoots[] = {
    {"HKEY_CURRENT_USER", "HKCU"},   {"HKEY_LOCAL_MACHINE", "HKLM"},    {"HKEY_CLASSES_ROOT", "HKCR"},
    {"HKEY_USERS", "HKUS"},          {"HKEY_PERFORMANCE_DATA", "HKPD"}, {"HKEY_DYN_DATA", "HKDD"},
    {"HKEY_CURRENT_CONFIG", "HKCC"},
};

/// Value types by their numbers; others are kept as they come.
enum RegistryType : quint32 {
    kRegistryString = 1,
    kRegistryExpandString = 2,
    kRegistryBinary = 3,
    kRegistryNumber = 4,
    kRegistryMultiString = 7,
};

struct RegistryValue {
    QString name;  ///< as first written; empty for the default value
    quint32 type = kRegistryString;
    /// Text as UTF-8 without a terminator, numbers as 4 bytes, lowest first, several texts each with a zero behind it.
    QByteArray data;
};

/// Names compare without regard to case and keep the spelling of their first writing. A path begins with the long name
/// of one of the roots, which always exist; its parts are parted by backslashes. Sub keys come in alphabetical order,
/// values in the order of their making.
class RegistryTree {
 public:
    RegistryTree();

    /// Longest name of a key or a value, in characters.
    static constexpr int kLongestName = 255;

    bool HasKey(const QString& path) const;
    /// Makes the key and those above it. False for an unknown root and for a name that is too long or holds control
    /// characters.
    bool MakeKey(const QString& path);
    /// False when there is no such key, it has sub keys, or it is a root.
    bool RemoveKey(const QString& path);
    QStringList SubKeys(const QString& path) const;
    /// The key's path as it was first written, or empty.
    QString SpelledPath(const QString& path) const;

    /// Null when there is no such key or value.
    const RegistryValue* Find(const QString& path, const QString& name) const;
    /// Empty when there is no such key.
    const std::vector<RegistryValue>& Values(const QString& path) const;
    /// False when there is no such key or the value's name is too long.
    bool Set(const QString& path, const RegistryValue& value);
    bool RemoveValue(const QString& path, const QString& name);

    /// All keys in depth-first order, the roots included.
    QStringList Keys() const;

 private:
    struct NameOrder {
        bool operator()(const QString& left, const QString& right) const {
            return left.compare(right, Qt::CaseInsensitive) < 0;
        }
    };
    struct Key {
        std::map<QString, Key, NameOrder> subKeys;
        std::vector<RegistryValue> values;
    };

    const Key* Open(const QString& path) const;
    Key* Open(const QString& path) { return const_cast<Key*>(std::as_const(*this).Open(path)); }
    static void Collect(const Key& key, const QString& path, QStringList& paths);

    Key root_;
};

}  // namespace kelu
