// Texts of messages made fit for a label: line ends, long words, links.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// CR LF and CR become LF; line ends and blanks at the end fall away.
QString CleanLines(QString text);
/// Rich text that shows `text` as it stands: marks escaped, line ends kept, words too long for a line breakable,
/// web addresses as links.
QString PlainToRich(const QString& text);
/// The About heading: its first line large, the others plain.
QString AboutHeading(const QString& heading);

}  // namespace kelu
