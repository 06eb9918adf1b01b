// Branches of the registry as REGEDIT4 text files: export and import.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include "platform/error.h"
#include "platform/private_folder.h"
#include "platform/registry_access.h"

namespace kelu {

namespace {

const QString kHeader = QStringLiteral("REGEDIT4");
const QString kLineEnd = QStringLiteral("\r\n");

QString Trimmed(const QString& text) {
    qsizetype start = 0, end = text.size();
    while (start < end && text[start] == u' ') ++start;
    while (end > start && text[end - 1] == u' ') --end;
    return text.mid(start, end - start);
}

QString WithoutQuotes(QString text) { return text.remove(u'"'); }

/// Unlike the trimming of a key's line, the quotes go first here.
QString ValueLine(const QString& line) { return Trimmed(WithoutQuotes(line)); }

/// Text is stored as UTF-8; files of older systems are in their Western code page.
QString DecodeText(const QByteArray& bytes) {
    // A byte-order mark stays what it is, text before the header: such a file is none of ours.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    if (!decoder.hasError()) return text;
    static constexpr char16_t kFrom0x80[] =
        u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
        u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
    text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (c >= u'\u0080' && c <= u'\u009F') c = kFrom0x80[c.unicode() - 0x80];
    return text;
}

QString WithLongRoots(QString keyPath) {
    for (const RegistryRoot& root : kRegistryRoots)
        keyPath.replace(QLatin1String(root.shortName), QLatin1String(root.longName), Qt::CaseInsensitive);
    return keyPath;
}

bool AppendTo(const QString& fileName, const QString& text) {
    QFile file(fileName);
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly | QIODevice::Append) && file.write(bytes) == bytes.size() && file.flush();
}

quint32 HexNumber(const QString& digits) {
    bool good = false;
    const quint32 number = Trimmed(digits).toUInt(&good, 16);
    if (!good) throw Error(kFileError, QStringLiteral("Not a number: ") + digits, QStringLiteral("ImportFromReg"));
    return number;
}

}  // namespace

quint32 clsRegistryAccess::ExportToReg(const QString& keyPath, const QString& fileName, bool withSubKeys,
                                       const TextBox& textBox) {
    if (QFileInfo::exists(fileName) || !MakePrivateFile(fileName)) return 0;  // there may be a password in it
    if (!AppendTo(fileName, kHeader + kLineEnd + kLineEnd)) return 0;
    return ExportKey(keyPath, fileName, withSubKeys, textBox) ? 1 : 0;
}

bool clsRegistryAccess::ExportKey(const QString& keyPath, const QString& fileName, bool withSubKeys,
                                  const TextBox& textBox) {
    const QString path = WithLongRoots(keyPath);
    if (textBox) {
        QCoreApplication::processEvents();
        textBox(path);
    }

    QString text = u'[' + path + u']' + kLineEnd;
    const QString none(QChar(u'\0'));
    const QString defaultText = ReadString(path, QString(), none);
    if (defaultText != none) text += QStringLiteral("@=\"") + defaultText + u'"' + kLineEnd;

    const auto addValues = [&](int type, const QString& mark, const auto& valueText) {
        QStringList names;
        QVariantList values;
        EnumValues(path, names, values, type);
        for (qsizetype i = 0; i < names.size(); ++i)
            if (type != kRegistryString || !names[i].isEmpty())
                text += u'"' + names[i] + QStringLiteral("\"=") + mark + valueText(values[i]) + kLineEnd;
    };
    addValues(kRegistryString, QString(), [](const QVariant& value) { return u'"' + value.toString() + u'"'; });
    addValues(kRegistryBinary, QStringLiteral("hex:"),
              [](const QVariant& value) { return value.toString().replace(u' ', u','); });
    addValues(kRegistryNumber, QStringLiteral("dword:"), [](const QVariant& value) {
        return QStringLiteral("%1").arg(value.toUInt(), 8, 16, QChar(u'0')).toUpper();
    });
    if (!AppendTo(fileName, text + kLineEnd)) return false;

    if (!withSubKeys) return true;
    QStringList subKeys;
    EnumKeys(path, subKeys);
    return std::all_of(subKeys.begin(), subKeys.end(),
                       [&](const QString& name) { return ExportKey(path + u'\\' + name, fileName, true, textBox); });
}

quint32 clsRegistryAccess::ImportFromReg(const QString& fileName) {
    createKeys_ = true;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return 0;
    const QStringList lines = DecodeText(bytes).split(kLineEnd);
    if (lines.first().toUpper() != kHeader || !store_.BeginBatch()) return 0;
    bool complete = true;
    try {
        ImportLines(lines);
    } catch (const Error&) {
        complete = false;
    }
    return store_.EndBatch() && complete ? 1 : 0;
}

void clsRegistryAccess::ImportLines(const QStringList& lines) {
    QString key;  ///< that the values go to; empty behind a key that is deleted, and before the first
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QString keyLine = WithoutQuotes(Trimmed(lines[i]));
        const QString valueLine = ValueLine(lines[i]);
        if (keyLine.startsWith(u'[')) {
            key = keyLine.mid(1, keyLine.size() - 2);
            if (key.startsWith(u'-')) {
                KillKey(key.mid(1));
                key.clear();
            }
        } else if (valueLine.startsWith(u'[')) {
            key.clear();
        } else if (!key.isEmpty()) {
            ImportValue(key, valueLine);
        }
    }
}

void clsRegistryAccess::ImportValue(const QString& keyPath, const QString& line) {
    if (line.isEmpty() || line.startsWith(u';') || !line.contains(u'=')) return;
    const QStringList parts = line.split(u'=');
    const QString& name = parts[0];
    const QString& value = parts[1];
    // The line of the default value names it "@", which only WriteString understands by itself.
    const QString plainName = name == u'@' ? QString() : name;
    if (Trimmed(value) == u'-') {
        KillValue(keyPath, plainName);
    } else if (value.startsWith(QLatin1String("hex:"), Qt::CaseInsensitive)) {
        WriteBinary(keyPath, plainName, value.mid(4).replace(u',', u' '));
    } else if (value.startsWith(QLatin1String("dword:"), Qt::CaseInsensitive)) {
        WriteDWORD(keyPath, plainName, HexNumber(value.mid(6)));
    } else {
        WriteString(keyPath, name, value);
        if (value.isEmpty() && name == u'@') KillValue(keyPath, QString());
    }
}

}  // namespace kelu
