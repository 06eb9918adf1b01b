// kelu-cli registry: settings as REGEDIT4 files and as JSON.
// SPDX-License-Identifier: MIT
#include "cli/registry_commands.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>
#include <cstdio>

#include "platform/registry_access.h"
#include "platform/registry_file.h"
#include "platform/registry_text.h"

namespace kelu {

namespace {

enum Status { kDone = 0, kFailed = 1, kWrongUsage = 2 };

void Print(const QByteArray& text) { std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout); }

Status Fail(const QString& subject, const QString& reason) {
    std::fprintf(stderr, "kelu-cli: %s: %s\n", qUtf8Printable(subject), qUtf8Printable(reason));
    return kFailed;
}

Status WrongUsage() {
    std::fputs(
        "usage: kelu-cli registry export KEY FILE [--subkeys] [--store FILE]\n"
        "       kelu-cli registry import FILE [--store FILE]\n"
        "       kelu-cli registry show [KEY] [--json] [--store FILE]\n",
        stderr);
    return kWrongUsage;
}

QJsonValue JsonValue(const RegistryValue& value) {
    switch (value.type) {
        case kRegistryString:
        case kRegistryExpandString:
            return QString::fromUtf8(value.data);
        case kRegistryMultiString:
            return QJsonArray::fromStringList(SplitMultiString(value.data));
        case kRegistryNumber:
            if (value.data.size() == 4) return qint64{qFromLittleEndian<quint32>(value.data.constData())};
            return HexText(value.data);
        default:
            return HexText(value.data);
    }
}

/// The keys that `show` tells: with values, or with nothing below them.
QJsonObject JsonTree(const RegistryTree& tree, const QString& top) {
    QJsonObject keys;
    for (const QString& path : tree.Keys()) {
        const bool isTop = path == top;
        if (!top.isEmpty() && !isTop && !path.startsWith(top + u'\\')) continue;
        QJsonObject values;
        for (const RegistryValue& value : tree.Values(path))
            values[value.name] =
                QJsonObject{{QStringLiteral("type"), qint64{value.type}}, {QStringLiteral("value"), JsonValue(value)}};
        const bool isRoot = !path.contains(u'\\');
        if (!values.isEmpty() || isTop || (!isRoot && tree.SubKeys(path).isEmpty())) keys[path] = values;
    }
    return keys;
}

Status Export(RegistryStore& store, const QString& key, const QString& file, bool withSubKeys) {
    clsRegistryAccess registry(store);
    const QString path = store.Tree().SpelledPath(clsRegistryAccess::ParseKey(key));
    if (path.isEmpty()) return Fail(key, QStringLiteral("no such key"));
    if (QFileInfo::exists(file)) return Fail(file, QStringLiteral("the file exists already"));
    if (registry.ExportToReg(path, file, withSubKeys) == 0) return Fail(file, QStringLiteral("can't be written"));
    return kDone;
}

Status Import(RegistryStore& store, const QString& file) {
    if (!QFileInfo(file).isReadable()) return Fail(file, QStringLiteral("can't be read"));
    if (clsRegistryAccess(store).ImportFromReg(file) == 0)
        return Fail(file,
                    QStringLiteral("this is not a REGEDIT4 file, it is damaged, or the settings can't be written"));
    return kDone;
}

Status Show(RegistryStore& store, const QString& key, bool asJson) {
    const RegistryTree& tree = store.Tree();
    const QString path = clsRegistryAccess::ParseKey(key);
    if (!key.isEmpty() && !tree.HasKey(path)) return Fail(key, QStringLiteral("no such key"));
    const QString top = tree.SpelledPath(path);
    if (asJson)
        Print(QJsonDocument(JsonTree(tree, top)).toJson());
    else
        Print(top.isEmpty() ? WriteRegistryText(tree) : WriteRegistryText(tree, top));
    return kDone;
}

}  // namespace

int RegistryCommand(const QStringList& words) {
    QStringList arguments = words;
    QString storePath = RegistryFile::UserPath();
    const qsizetype storeAt = arguments.indexOf(QStringLiteral("--store"));
    if (storeAt >= 0) {
        if (storeAt + 1 >= arguments.size()) return WrongUsage();
        storePath = arguments[storeAt + 1];
        arguments.remove(storeAt, 2);
    }
    const bool withSubKeys = arguments.removeAll(QStringLiteral("--subkeys")) > 0;
    const bool asJson = arguments.removeAll(QStringLiteral("--json")) > 0;
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    for (const QString& argument : arguments)
        if (argument.startsWith(QLatin1String("--"))) return WrongUsage();

    RegistryFile store(storePath);
    if (command == QLatin1String("export") && arguments.size() == 2 && !asJson)
        return Export(store, arguments[0], arguments[1], withSubKeys);
    if (command == QLatin1String("import") && arguments.size() == 1 && !asJson && !withSubKeys)
        return Import(store, arguments[0]);
    if (command == QLatin1String("show") && arguments.size() <= 1 && !withSubKeys)
        return Show(store, arguments.value(0), asJson);
    return WrongUsage();
}

}  // namespace kelu
