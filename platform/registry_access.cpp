// Keys and typed values of the registry by whole key paths.
// SPDX-License-Identifier: MIT
#include "platform/registry_access.h"

#include <QtEndian>
#include <cctype>

#include "platform/registry_text.h"

namespace kelu {

namespace {

/// What a successful operation gives.
constexpr quint32 kDone = 1;

QString WithoutBlanks(QString text) { return text.remove(u' '); }

QString WithoutLeadingBlanks(const QString& text) {
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ') ++start;
    return text.mid(start);
}

bool IsText(const RegistryValue& value) { return value.type == kRegistryString || value.type == kRegistryExpandString; }

/// The digits of a pair as far as they are digits, as a number.
char ByteOf(QStringView pair) {
    int byte = 0;
    for (const QChar c : pair) {
        const char digit = c.unicode() < 0x80 ? static_cast<char>(c.unicode()) : ' ';
        if (!std::isxdigit(static_cast<unsigned char>(digit))) break;
        byte = byte * 16 + (digit <= '9' ? digit - '0' : std::toupper(digit) - 'A' + 10);
    }
    return static_cast<char>(byte);
}

}  // namespace

/// Long root names count wherever they stand; a root in a path with sub keys is told by its first four characters.
QString clsRegistryAccess::ParseKey(const QString& keyPath) {
    QString path = keyPath;
    for (const RegistryRoot& root : kRegistryRoots)
        path.replace(QLatin1String(root.longName), QLatin1String(root.shortName), Qt::CaseInsensitive);
    const qsizetype backslash = path.indexOf(u'\\');
    const QString name = (backslash < 0 ? path : path.left(4)).toUpper();
    for (const RegistryRoot& root : kRegistryRoots) {
        if (name != QLatin1String(root.shortName)) continue;
        const QString longName = QString::fromLatin1(root.longName);
        return backslash < 0 ? longName : longName + path.mid(backslash);
    }
    return {};
}

quint32 clsRegistryAccess::CreateKey(const QString& keyPath) {
    const QString path = ParseKey(keyPath);
    return store_.Apply([&](RegistryTree& tree) { return tree.MakeKey(path); }) ? kDone : 0;
}

bool clsRegistryAccess::KeyExists(const QString& keyPath) { return store_.Tree().HasKey(ParseKey(keyPath)); }

quint32 clsRegistryAccess::KillKey(const QString& keyPath) {
    const QString path = ParseKey(keyPath);
    return store_.Apply([&](RegistryTree& tree) { return tree.RemoveKey(path); }) ? kDone : 0;
}

int clsRegistryAccess::EnumKeys(const QString& keyPath, QStringList& names) {
    names.clear();
    const QString path = ParseKey(keyPath);
    const RegistryTree& tree = store_.Tree();
    if (!tree.HasKey(path)) return -1;
    names = tree.SubKeys(path);
    return static_cast<int>(names.size());
}

bool clsRegistryAccess::HaveSubkey(const QString& keyPath) {
    return !store_.Tree().SubKeys(ParseKey(keyPath)).isEmpty();
}

quint32 clsRegistryAccess::Write(const QString& keyPath, const RegistryValue& value) {
    const QString path = ParseKey(keyPath);
    const bool written = store_.Apply([&](RegistryTree& tree) {
        if (value.name.size() > RegistryTree::kLongestName) return false;
        if (!tree.HasKey(path) && (!createKeys_ || !tree.MakeKey(path))) return false;
        return tree.Set(path, value);
    });
    return written ? kDone : 0;
}

quint32 clsRegistryAccess::WriteString(const QString& keyPath, const QString& valueName, const QString& text) {
    const QString name = valueName == u'@' ? QString() : valueName;
    return Write(keyPath, {name, kRegistryString, text.toUtf8()});
}

QString clsRegistryAccess::ReadString(const QString& keyPath, const QString& valueName, const QString& defaultText) {
    const RegistryValue* value = store_.Tree().Find(ParseKey(keyPath), valueName);
    if (value == nullptr || !IsText(*value) || value->data.size() > kLongestText) return defaultText;
    return WithoutLeadingBlanks(QString::fromUtf8(value->data));
}

quint32 clsRegistryAccess::WriteDWORD(const QString& keyPath, const QString& valueName, quint32 number) {
    QByteArray data(4, '\0');
    qToLittleEndian(number, data.data());
    return Write(keyPath, {valueName, kRegistryNumber, data});
}

quint32 clsRegistryAccess::ReadDWORD(const QString& keyPath, const QString& valueName, quint32 defaultNumber) {
    const RegistryValue* value = store_.Tree().Find(ParseKey(keyPath), valueName);
    if (value == nullptr || IsText(*value) || value->data.size() != 4) return defaultNumber;
    return qFromLittleEndian<quint32>(value->data.constData());
}

quint32 clsRegistryAccess::WriteBinary(const QString& keyPath, const QString& valueName, const QString& hexText) {
    return Write(keyPath, {valueName, kRegistryBinary, StrToBin(hexText)});
}

QString clsRegistryAccess::ReadBinary(const QString& keyPath, const QString& valueName, const QString& defaultText) {
    const RegistryValue* value = store_.Tree().Find(ParseKey(keyPath), valueName);
    return value == nullptr ? defaultText : HexText(value->data);
}

quint32 clsRegistryAccess::KillValue(const QString& keyPath, const QString& valueName) {
    const QString path = ParseKey(keyPath);
    return store_.Apply([&](RegistryTree& tree) { return tree.RemoveValue(path, valueName); }) ? kDone : 0;
}

bool clsRegistryAccess::ValueExists(const QString& keyPath, const QString& valueName) {
    return store_.Tree().Find(ParseKey(keyPath), valueName) != nullptr;
}

int clsRegistryAccess::EnumValues(const QString& keyPath, QStringList& names, QVariantList& values, int typeFilter) {
    names.clear();
    values.clear();
    const QString path = ParseKey(keyPath);
    if (!store_.Tree().HasKey(path)) return -1;
    const std::vector<RegistryValue> entries = store_.Tree().Values(path);
    for (const RegistryValue& entry : entries) {
        if (typeFilter != -1 && static_cast<quint32>(typeFilter) != entry.type) continue;
        QVariant value;
        if (entry.type == kRegistryString)
            value = ReadString(keyPath, entry.name);
        else if (entry.type == kRegistryBinary)
            value = entry.data.size() > kLongestEnumerated ? QString() : HexText(entry.data);
        else if (entry.type == kRegistryNumber)
            value = ReadDWORD(keyPath, entry.name);
        names.append(entry.name);
        values.append(value);
    }
    return static_cast<int>(names.size());
}

/// A digit left over by the pairs counts only where the rounding of the half byte, to the even number, goes up.
QByteArray clsRegistryAccess::StrToBin(const QString& hexText) {
    const QString digits = WithoutBlanks(hexText);
    const qsizetype pairs = digits.size() / 2;
    const qsizetype count = digits.size() % 2 != 0 && pairs % 2 != 0 ? pairs + 1 : pairs;
    QByteArray raw;
    raw.reserve(count);
    for (qsizetype i = 0; i < count; ++i) raw += ByteOf(QStringView(digits).mid(2 * i, 2));
    return raw;
}

QString clsRegistryAccess::BinToStr(const QByteArray& raw) { return raw.isEmpty() ? QString() : u' ' + HexText(raw); }

bool clsRegistryAccess::isBinValid(const QString& text) {
    const QString digits = WithoutBlanks(text);
    return !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), [](QChar c) {
        return c.unicode() < 0x80 && std::isxdigit(c.unicode()) != 0;
    });
}

}  // namespace kelu
