// Paths of files whose names on the disk are no UTF-8 (from old archives and systems), which the toolkit can neither
// list nor open: such a file is reached through a link with a name that it can, in a folder that goes with the process.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStandardPaths>
#include <QString>
#include <string>

namespace kelu {

/// A path of the toolkit's for a path as the system has it. Any thread.
QString ToolkitPath(const std::string& native);

/// The folder in which a file or folder lies, also of one reached through such a link; empty for a root.
QString ParentFolder(const QString& path);

/// Whether the path is only good for this run of the program.
bool IsPassingPath(const QString& path);

/// Removes the folders of such links that killed processes left.
void RemoveLeftLinks();

/// A name as one line: line breaks and the like as blanks.
QString OneLine(QString name);

/// What the user's places and the list of all drives are called.
QString PlaceName(QStandardPaths::StandardLocation place);
QString ComputerName();

}  // namespace kelu
