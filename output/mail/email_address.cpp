// E-mail addresses: what the dialog accepts, and lists of addresses with names.
// SPDX-License-Identifier: MIT
#include "output/mail/email_address.h"

#include <QUrl>
#include <algorithm>

namespace kelu {

namespace {

/// Reads one entry of a list, which holds no separator outside quotes and angle brackets.
MailAddress ParseAddress(const QString& entry) {
    const qsizetype open = entry.lastIndexOf(u'<');
    const qsizetype close = entry.indexOf(u'>', open);
    if (open >= 0 && close > open) {
        QString name = entry.left(open).trimmed();
        if (name.size() >= 2 && name.startsWith(u'"') && name.endsWith(u'"')) name = name.mid(1, name.size() - 2);
        return {name.remove(u'\\'), entry.mid(open + 1, close - open - 1).trimmed()};
    }
    return entry.contains(u'@') ? MailAddress{QString(), entry} : MailAddress{entry, QString()};
}

}  // namespace

bool ValidEmailAddress(const QString& text) {
    static const QString kForbidden = QStringLiteral("!#$%^&*()=+{}[]|\\;:'/?>,< ");
    if (text.contains(u'"') || text.contains(QLatin1String(".."))) return false;
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return kForbidden.contains(c); })) return false;
    const qsizetype at = text.indexOf(u'@');
    if (at < 1) return false;
    const QString domain = text.mid(at + 1);
    const qsizetype dot = domain.indexOf(u'.');
    return !domain.contains(u'@') && dot > 0 && dot < domain.size() - 1;
}

bool ValidMailList(const QString& text) {
    const std::vector<MailAddress> list = ParseAddresses(text);
    return !list.empty() && std::all_of(list.begin(), list.end(),
                                        [](const MailAddress& each) { return ValidEmailAddress(each.address); });
}

std::vector<MailAddress> ParseAddresses(const QString& text) {
    std::vector<MailAddress> addresses;
    QString entry;
    bool inQuotes = false, inBrackets = false;
    const auto finish = [&] {
        if (!entry.trimmed().isEmpty()) addresses.push_back(ParseAddress(entry.trimmed()));
        entry.clear();
    };
    for (const QChar c : OneLine(text)) {
        if (c == u'"') inQuotes = !inQuotes;
        if (!inQuotes && (c == u'<' || c == u'>')) inBrackets = c == u'<';
        if (!inQuotes && !inBrackets && (c == u',' || c == u';'))
            finish();
        else
            entry += c;
    }
    finish();
    return addresses;
}

QString MailDomain(const QString& address) {
    const qsizetype at = address.lastIndexOf(u'@');
    return at < 0 ? QString() : QString::fromLatin1(QUrl::toAce(address.mid(at + 1).trimmed()));
}

QString OneLine(const QString& text) {
    QString line = text;
    for (QChar& c : line)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u' ';
    return line.trimmed();
}

}  // namespace kelu
