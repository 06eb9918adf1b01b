// Keys and values in memory.
// SPDX-License-Identifier: MIT
#include "platform/registry_tree.h"

#include <algorithm>

namespace kelu {

namespace {

bool IsKeyName(const QString& name) {
    return !name.isEmpty() && name.size() <= RegistryTree::kLongestName &&
           std::none_of(name.begin(), name.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
}

/// A backslash at the end, or two in a row, part nothing.
QStringList Parts(const QString& path) { return path.split(u'\\', Qt::SkipEmptyParts); }

auto Position(const std::vector<RegistryValue>& values, const QString& name) {
    return std::find_if(values.begin(), values.end(),
                        [&](const RegistryValue& value) { return value.name.compare(name, Qt::CaseInsensitive) == 0; });
}

}  // namespace

RegistryTree::RegistryTree() {
    for (const RegistryRoot& root : kRegistryRoots) root_.subKeys[QString::fromLatin1(root.longName)];
}

const RegistryTree::Key* RegistryTree::Open(const QString& path) const {
    const Key* key = &root_;
    const QStringList parts = Parts(path);
    for (const QString& part : parts) {
        const auto found = key->subKeys.find(part);
        if (found == key->subKeys.end()) return nullptr;
        key = &found->second;
    }
    return parts.isEmpty() ? nullptr : key;
}

bool RegistryTree::HasKey(const QString& path) const { return Open(path) != nullptr; }

bool RegistryTree::MakeKey(const QString& path) {
    const QStringList parts = Parts(path);
    if (parts.isEmpty() || root_.subKeys.count(parts.first()) == 0) return false;
    if (!std::all_of(parts.begin(), parts.end(), IsKeyName)) return false;
    Key* key = &root_;
    for (const QString& part : parts) key = &key->subKeys[part];
    return true;
}

bool RegistryTree::RemoveKey(const QString& path) {
    const QStringList parts = Parts(path);
    const Key* key = Open(path);
    if (key == nullptr || parts.size() < 2 || !key->subKeys.empty()) return false;
    Key* above = Open(parts.mid(0, parts.size() - 1).join(u'\\'));
    above->subKeys.erase(parts.last());
    return true;
}

QStringList RegistryTree::SubKeys(const QString& path) const {
    QStringList names;
    if (const Key* key = Open(path))
        for (const auto& [name, subKey] : key->subKeys) names.append(name);
    return names;
}

QString RegistryTree::SpelledPath(const QString& path) const {
    QStringList spelled;
    const Key* key = &root_;
    const QStringList parts = Parts(path);
    for (const QString& part : parts) {
        const auto found = key->subKeys.find(part);
        if (found == key->subKeys.end()) return {};
        spelled.append(found->first);
        key = &found->second;
    }
    return spelled.join(u'\\');
}

const RegistryValue* RegistryTree::Find(const QString& path, const QString& name) const {
    const std::vector<RegistryValue>& values = Values(path);
    const auto found = Position(values, name);
    return found == values.end() ? nullptr : &*found;
}

const std::vector<RegistryValue>& RegistryTree::Values(const QString& path) const {
    static const std::vector<RegistryValue> kNone;
    const Key* key = Open(path);
    return key == nullptr ? kNone : key->values;
}

bool RegistryTree::Set(const QString& path, const RegistryValue& value) {
    Key* key = Open(path);
    if (key == nullptr || value.name.size() > kLongestName) return false;
    const auto found = Position(key->values, value.name);
    if (found == key->values.end()) {
        key->values.push_back(value);
        return true;
    }
    RegistryValue& old = key->values[static_cast<std::size_t>(found - key->values.begin())];
    old.type = value.type;
    old.data = value.data;
    return true;
}

bool RegistryTree::RemoveValue(const QString& path, const QString& name) {
    Key* key = Open(path);
    if (key == nullptr) return false;
    const auto found = Position(key->values, name);
    if (found == key->values.end()) return false;
    key->values.erase(found);
    return true;
}

void RegistryTree::Collect(const Key& key, const QString& path, QStringList& paths) {
    for (const auto& [name, subKey] : key.subKeys) {
        const QString subPath = path.isEmpty() ? name : path + u'\\' + name;
        paths.append(subPath);
        Collect(subKey, subPath, paths);
    }
}

QStringList RegistryTree::Keys() const {
    QStringList paths;
    Collect(root_, QString(), paths);
    return paths;
}

}  // namespace kelu
