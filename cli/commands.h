// The commands of kelu-cli. Each takes the words behind its name and returns the exit status; wrong words throw
// UsageError.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace kelu::cli {

int EffectsCommand(const QStringList& words);
int ApplyCommand(const QStringList& words);
int ConvertCommand(const QStringList& words);
int ReplayCommand(const QStringList& words);
int BenchCommand(const QStringList& words);

}  // namespace kelu::cli
