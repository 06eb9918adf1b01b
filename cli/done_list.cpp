// SPDX-License-Identifier: MIT
#include "cli/done_list.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace kelu::cli {

namespace {

QByteArray KeyAndSize(const QByteArray& key, const QString& path) {
    return key + ' ' + QByteArray::number(QFileInfo(path).size());
}

}  // namespace

DoneList::DoneList(const QString& folder, int shard, int shards)
    : folder_(folder), own_(QDir(folder).filePath(QStringLiteral(".kelu-done-%1-of-%2").arg(shard + 1).arg(shards))) {
    const QDir lists(folder);
    for (const QString& name : lists.entryList({QStringLiteral(".kelu-done-*")}, QDir::Files | QDir::Hidden)) {
        QFile file(lists.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) continue;
        while (!file.atEnd()) {
            // Key, size, name; a line without its end was cut by a kill and tells nothing.
            const QByteArray line = file.readLine();
            const qsizetype size = line.indexOf(' ') + 1, result = line.indexOf(' ', size) + 1;
            if (size > 0 && result > size && line.endsWith('\n'))
                lines_[QString::fromUtf8(line.mid(result).chopped(1))] = line.left(result - 1);
        }
    }
}

QByteArray DoneList::KeyOf(const QString& input, const QByteArray& recipe) {
    QFile file(input);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(recipe);
    hash.addData(QByteArrayView("\0", 1));
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
    return hash.result().toHex();
}

bool DoneList::Holds(const QString& result, const QByteArray& key) const {
    const QString path = QDir(folder_).filePath(result);
    return !key.isEmpty() && QFileInfo(path).isFile() && lines_.value(result) == KeyAndSize(key, path);
}

bool DoneList::Add(const QString& result, const QByteArray& key) {
    const QByteArray value = KeyAndSize(key, QDir(folder_).filePath(result));
    const QByteArray line = value + ' ' + result.toUtf8() + '\n';
    lines_[result] = value;
    QFile file(own_);
    return file.open(QIODevice::Append | QIODevice::Unbuffered) && file.write(line) == line.size();
}

}  // namespace kelu::cli
