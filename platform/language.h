// The language of the texts that go through tr(). Each language is one file, translations/kelu_xx.ts, which is built
// into the program and names the ID that chooses it; a text that it lacks stays English.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

namespace kelu {

/// From now on texts come in the language of this ID; English when no language has it. Needs the application object;
/// interface thread only. Texts already assigned stay as they are.
void UseLanguage(const QString& id);

/// "de", the language in use; empty for English.
QString LanguageInUse();
/// The IDs of all languages but English.
QStringList LanguageIds();

/// How the language in use writes numbers and dates; the system's way for English.
QLocale LanguageLocale();

}  // namespace kelu
