// The registry's keys and values as text that a person can read and edit.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include "platform/registry_tree.h"

namespace kelu {

/// One line a key, "[path]", and under it one line a value, `"name" = value`, with @ for the default value's name.
/// A value is "text", expand:"text", multi:"text" "text", number:42, binary:0A FF, or type 11:0A FF for any other type.
/// In quotes a backslash stands before a quote and a backslash; \n, \r, \t and \u{1F} are control characters. Empty
/// lines and lines that begin with # mean nothing. UTF-8.
QByteArray WriteRegistryText(const RegistryTree& tree);
/// The key `path` and those below it.
QByteArray WriteRegistryText(const RegistryTree& tree, const QString& path);

struct RegistryTextRead {
    RegistryTree tree;    ///< of all lines that could be understood
    int damagedLine = 0;  ///< number of the first line that couldn't, 0 if there is none
};
RegistryTextRead ReadRegistryText(const QByteArray& text);

/// Two upper-case digits a byte, pairs parted by a blank.
QString HexText(const QByteArray& bytes);

/// The texts of a value of type kRegistryMultiString, and back. A last text without its zero counts too.
QStringList SplitMultiString(const QByteArray& data);
QByteArray JoinMultiString(const QStringList& texts);

}  // namespace kelu
