// The program's one door to its registry: whole key paths as text, typed values, and branches as REGEDIT4 files.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <functional>

#include "platform/registry_store.h"

namespace kelu {

/// A key path is a root (HKEY_CURRENT_USER or HKCU, in any case, and so on), a backslash and the sub key. Results of
/// type quint32 are not 0 for success and 0 for failure. No operation throws: a read gives its default, a write or
/// delete 0, an enumeration -1.
class clsRegistryAccess {
 public:
    /// Longest text that ReadString gives, in bytes of UTF-8.
    static constexpr int kLongestText = 254;
    /// Longest data that EnumValues gives, in bytes; the value of a longer entry is empty.
    static constexpr int kLongestEnumerated = 255;

    /// Called with each key path during an export.
    using TextBox = std::function<void(const QString& keyPath)>;

    explicit clsRegistryAccess(RegistryStore& store) : store_(store) {}

    /// Why the last write or delete could not be kept; empty when the store did not refuse it.
    QString Failure() const { return store_.Failure(); }

    /// Whether a write to a missing key makes it; true at first.
    bool CreateKeyIfDoesntExists() const { return createKeys_; }
    void SetCreateKeyIfDoesntExists(bool create) { createKeys_ = create; }

    quint32 CreateKey(const QString& keyPath);
    bool KeyExists(const QString& keyPath);
    /// The key must have no sub keys.
    quint32 KillKey(const QString& keyPath);
    /// Number of sub keys, -1 if the key can't be opened.
    int EnumKeys(const QString& keyPath, QStringList& names);
    bool HaveSubkey(const QString& keyPath);

    /// The value name "@" stands for the key's default value, here only; elsewhere it is the empty name.
    quint32 WriteString(const QString& keyPath, const QString& valueName, const QString& text);
    /// Without leading blanks. A text of more than 254 bytes reads as the default.
    QString ReadString(const QString& keyPath, const QString& valueName, const QString& defaultText = QString());
    quint32 WriteDWORD(const QString& keyPath, const QString& valueName, quint32 number);
    quint32 ReadDWORD(const QString& keyPath, const QString& valueName, quint32 defaultNumber = 0);
    /// Hex text: two digits a byte, pairs parted by a blank.
    quint32 WriteBinary(const QString& keyPath, const QString& valueName, const QString& hexText);
    QString ReadBinary(const QString& keyPath, const QString& valueName, const QString& defaultText = QString());
    quint32 KillValue(const QString& keyPath, const QString& valueName);
    bool ValueExists(const QString& keyPath, const QString& valueName);
    /// Number of entries, -1 if the key can't be opened. `typeFilter` -1 takes all types. Values are text for types 1
    /// and 3 (hex text), quint32 for type 4, invalid for others.
    int EnumValues(const QString& keyPath, QStringList& names, QVariantList& values, int typeFilter = -1);

    /// Writes the key as REGEDIT4 text; 1 on success. An existing file is left alone and gives 0. With a text box,
    /// pending events run before each key.
    quint32 ExportToReg(const QString& keyPath, const QString& fileName, bool withSubKeys,
                        const TextBox& textBox = TextBox());
    /// Reads such a file; 1 on success. What stands before a failure stays. Sets CreateKeyIfDoesntExists.
    quint32 ImportFromReg(const QString& fileName);

    static QByteArray StrToBin(const QString& hexText);
    /// A blank before each pair of digits.
    static QString BinToStr(const QByteArray& raw);
    static bool isBinValid(const QString& text);

    /// A key path as the store has it, with the long root name; empty for an unknown root.
    static QString ParseKey(const QString& keyPath);

 private:
    quint32 Write(const QString& keyPath, const RegistryValue& value);
    bool ExportKey(const QString& keyPath, const QString& fileName, bool withSubKeys, const TextBox& textBox);
    void ImportLines(const QStringList& lines);
    void ImportValue(const QString& keyPath, const QString& line);

    RegistryStore& store_;
    bool createKeys_ = true;
};

}  // namespace kelu
