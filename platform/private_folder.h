// Folders and files that nobody but the user can read or write.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// Makes the folder and those above it (mode 0700 each that is new). True when it is then a folder of this user, and
/// no link, closed to everybody else.
bool MakePrivateFolder(const QString& path);

/// Makes the file if it isn't there, and closes it to everybody else (mode 0600): who writes to it then keeps that.
/// False when that can't be done.
bool MakePrivateFile(const QString& path);

/// Whether users other than this one (and the superuser) can put files into the folder.
bool OthersCanWrite(const QString& path);

/// What tells this user from others in a file name.
QString UserTag();

}  // namespace kelu
