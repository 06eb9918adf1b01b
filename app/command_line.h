// What the program was called with, read before there is an application, so that it needs no display.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace kelu {

struct CommandLine {
    QString picture;            ///< path of the picture to open; empty: none
    std::optional<int> status;  ///< the program ends at once with this status
    QString out;                ///< for standard output and standard error; both may be empty
    QString error;
};

/// `words` begins with the program's name. Of several pictures the last is opened, as if each had been opened in turn.
/// The toolkit's own options, such as -platform, pass.
CommandLine ReadCommandLine(const QStringList& words);

}  // namespace kelu
