// Reading and searching the pages.
// SPDX-License-Identifier: MIT
#include "app/help_pages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

#include "platform/language.h"

namespace kelu {
namespace {

constexpr int kExtractBefore = 40;  // letters
constexpr int kExtractLength = 150;
constexpr int kTitleWeight = 100;
constexpr int kMostCounted = 20;  // a page does not win by repeating a word for ever

QRegularExpression BeginningOfWord(const QString& word) {
    return QRegularExpression(
        QStringLiteral("\\b") + QRegularExpression::escape(word),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
}

QString Extract(const QString& text, qsizetype at) {
    qsizetype start = std::max<qsizetype>(0, at - kExtractBefore);
    if (start > 0) start = text.indexOf(QLatin1Char(' '), start) + 1;
    const QString extract = text.mid(start, kExtractLength).trimmed();
    return (start > 0 ? QStringLiteral("\u2026 ") : QString()) + extract + QStringLiteral(" \u2026");
}

}  // namespace

void HelpPages::Load() {
    const QDir folder(folder_);
    for (const QString& name : folder.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name)) {
        // Of a page in several languages, the one that the browser shows.
        const qsizetype mark = name.indexOf(u'_');
        const QString ending = u'_' + LanguageInUse() + QStringLiteral(".html");
        if (mark >= 0 ? name.mid(mark) != ending : folder.exists(name.chopped(5) + ending)) continue;
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) continue;
        QTextDocument document;
        document.setHtml(QString::fromUtf8(file.readAll()));
        pages_.append(
            {name, document.metaInformation(QTextDocument::DocumentTitle), document.toPlainText().simplified()});
    }
}

QList<HelpHit> HelpPages::Search(const QString& words) {
    if (pages_.isEmpty()) Load();
    const QStringList wanted = words.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    QList<HelpHit> hits;
    if (wanted.isEmpty()) return hits;
    for (const Page& page : pages_) {
        HelpHit hit{page.name, page.title, QString(), 0};
        qsizetype first = -1;
        for (const QString& word : wanted) {
            const QRegularExpression expression = BeginningOfWord(word);
            const qsizetype at = page.text.indexOf(expression);
            const bool inTitle = page.title.contains(expression);
            if (at < 0 && !inTitle) {
                hit.weight = 0;
                break;
            }
            if (first < 0) first = at;
            hit.weight += std::min(static_cast<int>(page.text.count(expression)), kMostCounted) + 1 +
                          (inTitle ? kTitleWeight : 0);
        }
        if (hit.weight == 0) continue;
        hit.extract = Extract(page.text, std::max<qsizetype>(first, 0));
        hits.append(hit);
    }
    std::stable_sort(hits.begin(), hits.end(), [](const HelpHit& a, const HelpHit& b) { return a.weight > b.weight; });
    return hits;
}

}  // namespace kelu
