// kelu-cli registry: settings as REGEDIT4 files and as JSON.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace kelu {

/// `arguments` behind the word "registry":
///   export KEY FILE [--subkeys]   writes the key, with its sub keys, as REGEDIT4 text; FILE must not exist
///   import FILE                   reads such a file
///   show [KEY] [--json]           prints the key and all below it, else the whole registry
/// each with --store FILE for another store than the user's. Prints to standard output, errors in one line to
/// standard error. Gives the exit status: 0 done, 1 failed, 2 wrong usage.
int RegistryCommand(const QStringList& words);

}  // namespace kelu
