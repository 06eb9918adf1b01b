// kelu-cli gif-info: what a GIF file holds, and its composed frames as pictures.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace kelu {

/// `gif-info FILE [--dump DIR]`; `arguments` are those behind the command's name. Prints JSON and returns the program's
/// status: 0 done, 1 the file failed (one line on standard error), 2 wrong usage.
int GifInfoCommand(const QStringList& arguments);

}  // namespace kelu
