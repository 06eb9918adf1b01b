// The registry's keys and values as text that a person can read and edit.
// SPDX-License-Identifier: MIT
#include "platform/registry_text.h"

#include <QStringDecoder>
#include <QtEndian>
#include <optional>

namespace kelu {

namespace {

std::optional<QString> DecodeUtf8(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError()) return std::nullopt;
    return text;
}

QString Quote(const QString& text) {
    QString quoted = QStringLiteral("\"");
    for (const QChar c : text) {
        if (c == u'"' || c == u'\\')
            quoted += u'\\', quoted += c;
        else if (c == u'\n')
            quoted += QStringLiteral("\\n");
        else if (c == u'\r')
            quoted += QStringLiteral("\\r");
        else if (c == u'\t')
            quoted += QStringLiteral("\\t");
        else if (c.category() == QChar::Other_Control)
            quoted += QStringLiteral("\\u{%1}").arg(c.unicode(), 0, 16);
        else
            quoted += c;
    }
    return quoted + u'"';
}

/// Reads a line from the left; each Take... leaves the place as it was when it answers nothing.
class LineReader {
 public:
    explicit LineReader(const QString& line) : line_(line) {}

    bool AtEnd() {
        SkipBlanks();
        return place_ == line_.size();
    }
    bool Take(QStringView word) {
        SkipBlanks();
        if (!QStringView(line_).mid(place_).startsWith(word)) return false;
        place_ += word.size();
        return true;
    }
    std::optional<QString> TakeQuoted() {
        SkipBlanks();
        qsizetype at = place_;
        if (at >= line_.size() || line_[at] != u'"') return std::nullopt;
        QString text;
        for (++at; at < line_.size(); ++at) {
            if (line_[at] == u'"') {
                place_ = at + 1;
                return text;
            }
            if (line_[at] != u'\\') {
                text += line_[at];
                continue;
            }
            const auto escaped = TakeEscape(at);
            if (!escaped) return std::nullopt;
            text += *escaped;
        }
        return std::nullopt;
    }
    std::optional<quint32> TakeNumber() {
        SkipBlanks();
        qsizetype end = place_;
        while (end < line_.size() && line_[end] >= u'0' && line_[end] <= u'9') ++end;
        bool good = false;
        const quint32 number = QStringView(line_).mid(place_, end - place_).toUInt(&good);
        if (!good) return std::nullopt;
        place_ = end;
        return number;
    }
    /// The rest of the line as pairs of digits.
    std::optional<QByteArray> TakeHex() {
        QByteArray digits;
        for (const QChar c : QStringView(line_).mid(place_)) {
            if (c == u' ') continue;
            if (c.unicode() > 0x7F || !std::isxdigit(c.unicode())) return std::nullopt;
            digits += static_cast<char>(c.unicode());
        }
        if (digits.size() % 2 != 0) return std::nullopt;
        place_ = line_.size();
        return QByteArray::fromHex(digits);
    }

 private:
    void SkipBlanks() {
        while (place_ < line_.size() && (line_[place_] == u' ' || line_[place_] == u'\t')) ++place_;
    }
    /// `at` stands on the backslash and moves to the escape's last character.
    std::optional<QChar> TakeEscape(qsizetype& at) const {
        if (++at >= line_.size()) return std::nullopt;
        switch (line_[at].unicode()) {
            case u'"':
            case u'\\':
                return line_[at];
            case u'n':
                return u'\n';
            case u'r':
                return u'\r';
            case u't':
                return u'\t';
            case u'u':
                break;
            default:
                return std::nullopt;
        }
        const qsizetype end = line_.indexOf(u'}', at);
        if (at + 1 >= line_.size() || line_[at + 1] != u'{' || end < 0) return std::nullopt;
        bool good = false;
        const ushort code = QStringView(line_).mid(at + 2, end - at - 2).toUShort(&good, 16);
        if (!good) return std::nullopt;
        at = end;
        return QChar(code);
    }

    const QString& line_;
    qsizetype place_ = 0;
};

QString WriteValue(const RegistryValue& value) {
    const std::optional<QString> text = DecodeUtf8(value.data);
    switch (value.type) {
        case kRegistryString:
            if (text) return Quote(*text);
            break;
        case kRegistryExpandString:
            if (text) return QStringLiteral("expand:") + Quote(*text);
            break;
        case kRegistryMultiString: {
            const QStringList texts = SplitMultiString(value.data);
            if (!text || JoinMultiString(texts) != value.data) break;
            QStringList quoted;
            for (const QString& each : texts) quoted.append(Quote(each));
            return QStringLiteral("multi:") + quoted.join(u' ');
        }
        case kRegistryNumber:
            if (value.data.size() == 4)
                return QStringLiteral("number:%1").arg(qFromLittleEndian<quint32>(value.data.constData()));
            break;
        case kRegistryBinary:
            return QStringLiteral("binary:") + HexText(value.data);
        default:
            break;
    }
    return QStringLiteral("type %1:").arg(value.type) + HexText(value.data);
}

bool ReadValue(LineReader& line, RegistryValue& value) {
    if (line.Take(u"number:")) {
        const auto number = line.TakeNumber();
        if (!number) return false;
        value.type = kRegistryNumber;
        value.data.resize(4);
        qToLittleEndian(*number, value.data.data());
    } else if (line.Take(u"multi:")) {
        value.type = kRegistryMultiString;
        QStringList texts;
        while (const auto text = line.TakeQuoted()) texts.append(*text);
        value.data = JoinMultiString(texts);
    } else if (line.Take(u"binary:")) {
        const auto bytes = line.TakeHex();
        if (!bytes) return false;
        value.type = kRegistryBinary;
        value.data = *bytes;
    } else if (line.Take(u"type")) {
        const auto type = line.TakeNumber();
        if (!type || !line.Take(u":")) return false;
        const auto bytes = line.TakeHex();
        if (!bytes) return false;
        value.type = *type;
        value.data = *bytes;
    } else {
        value.type = line.Take(u"expand:") ? kRegistryExpandString : kRegistryString;
        const auto text = line.TakeQuoted();
        if (!text) return false;
        value.data = text->toUtf8();
    }
    return line.AtEnd();
}

void WriteKey(const RegistryTree& tree, const QString& path, QByteArray& text) {
    const std::vector<RegistryValue>& values = tree.Values(path);
    const bool isRoot = !path.contains(u'\\');
    // A key with keys below it is told by their paths.
    if (values.empty() && (isRoot || !tree.SubKeys(path).isEmpty())) return;
    text += "\n[" + path.toUtf8() + "]\n";
    for (const RegistryValue& value : values) {
        const QString name = value.name.isEmpty() ? QStringLiteral("@") : Quote(value.name);
        text += (name + QStringLiteral(" = ") + WriteValue(value) + u'\n').toUtf8();
    }
}

bool ReadLine(const QString& line, RegistryTree& tree, QString& key) {
    if (line.isEmpty() || line.startsWith(u'#')) return true;
    if (line.startsWith(u'[')) {
        key.clear();
        const QString path = line.mid(1, line.size() - 2);
        if (line.size() < 2 || !line.endsWith(u']') || !tree.MakeKey(path)) return false;
        key = path;
        return true;
    }
    RegistryValue value;
    LineReader reader(line);
    if (!reader.Take(u"@")) {
        const auto name = reader.TakeQuoted();
        if (!name) return false;
        value.name = *name;
    }
    return reader.Take(u"=") && ReadValue(reader, value) && tree.Set(key, value);
}

}  // namespace

QByteArray WriteRegistryText(const RegistryTree& tree) {
    QByteArray text = "# Settings, one section a key. Written by the program; edit it while the program is closed.\n";
    for (const QString& path : tree.Keys()) WriteKey(tree, path, text);
    return text;
}

QByteArray WriteRegistryText(const RegistryTree& tree, const QString& path) {
    QByteArray text;
    const QString top = tree.SpelledPath(path);
    for (const QString& each : tree.Keys())
        if (each == top || each.startsWith(top + u'\\')) WriteKey(tree, each, text);
    return text;
}

RegistryTextRead ReadRegistryText(const QByteArray& text) {
    RegistryTextRead read;
    QString key;
    int number = 0;
    for (const QByteArray& bytes : text.split('\n')) {
        ++number;
        const std::optional<QString> line = DecodeUtf8(bytes.trimmed());
        if (line && ReadLine(*line, read.tree, key)) continue;
        if (read.damagedLine == 0) read.damagedLine = number;
    }
    return read;
}

QString HexText(const QByteArray& bytes) { return QString::fromLatin1(bytes.toHex(' ').toUpper()); }

QStringList SplitMultiString(const QByteArray& data) {
    QStringList texts;
    for (const QByteArray& text : data.split('\0')) texts.append(QString::fromUtf8(text));
    if (texts.last().isEmpty()) texts.removeLast();
    return texts;
}

QByteArray JoinMultiString(const QStringList& texts) {
    QByteArray data;
    for (const QString& text : texts) data += text.toUtf8() + '\0';
    return data;
}

}  // namespace kelu
