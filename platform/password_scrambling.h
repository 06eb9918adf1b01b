// Keeps the mail account's password from standing readable in the settings. A fixed substitution without a key: who
// has the table can read it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// Each character from the blank to the closing brace, but for the grave accent, becomes its code of three
/// characters; any other stays as it is. Long texts let pending events run.
QString EncodePassword(const QString& text);

/// Undoes EncodePassword, group by group of three characters; a group that is no code stays as it is. A text with
/// characters outside the table doesn't come back, since they shift the groups behind them.
QString DecodePassword(const QString& text);

/// Three passes each: the form in which the password is stored. The longest password that reads back from the settings
/// has 9 characters (243 stored).
QString ScramblePassword(const QString& password);
QString UnscramblePassword(const QString& stored);

}  // namespace kelu
