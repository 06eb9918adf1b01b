// Line ends, long words and links; see message_text.h.
// SPDX-License-Identifier: MIT
#include "controls/message_dialog/message_text.h"

#include <QRegularExpression>

#include "controls/theme/theme.h"

namespace kelu {

namespace {

constexpr int kLongestWord = 24;  // characters a label of the narrowest message holds in one line, with room to spare
const QChar kBreakHere(0x200B);   // zero-width space

QString Breakable(const QString& word) {
    QString parts;
    for (int i = 0; i < word.size(); ++i) {
        if (i > 0 && i % kLongestWord == 0 && !word.at(i).isLowSurrogate()) parts += kBreakHere;
        parts += word.at(i);
    }
    return parts;
}

}  // namespace

QString CleanLines(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    while (!text.isEmpty() && text.back().isSpace()) text.chop(1);
    return text;
}

QString PlainToRich(const QString& text) {
    static const QRegularExpression pieces(QStringLiteral("(\\S+)|(\\n)|([^\\S\\n]+)"));
    static const QRegularExpression link(QStringLiteral("^(https?://[^\\s]+?)([.,;:!?)]*)$"));
    QString rich = QStringLiteral("<div style=\"line-height:120%\">");
    for (auto match = pieces.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch piece = match.next();
        const QString words = piece.captured();
        if (words == QLatin1String("\n")) {
            rich += QStringLiteral("<br>");
        } else if (const auto url = link.match(words); url.hasMatch()) {
            rich += QStringLiteral("<a href=\"%1\">%2</a>%3")
                        .arg(url.captured(1).toHtmlEscaped(), Breakable(url.captured(1)).toHtmlEscaped(),
                             url.captured(2).toHtmlEscaped());
        } else {
            rich += Breakable(words).toHtmlEscaped();
        }
    }
    return rich + QStringLiteral("</div>");
}

QString AboutHeading(const QString& heading) {
    const qsizetype end = heading.indexOf(QLatin1Char('\n'));
    const QString first = heading.left(end < 0 ? heading.size() : end);
    const QString rest = end < 0 ? QString() : heading.mid(end + 1);
    return QStringLiteral("<span style=\"font-size:large; font-weight:600; color:%1\">%2</span>%3")
        .arg(theme::kBrightText.name(), PlainToRich(first), PlainToRich(rest));
}

}  // namespace kelu
