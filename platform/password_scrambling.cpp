// Scrambles the mail account's password for the settings.
// SPDX-License-Identifier: MIT
#include "platform/password_scrambling.h"

#include <QCoreApplication>
#include <QHash>

namespace kelu {

namespace {

constexpr char16_t kFirst = u' ', kLast = u'}', kLeftOut = u'`';
constexpr int kCodeLength = 3;
/// Characters worked on between two looks at pending events.
constexpr qsizetype kEventStep = 1024;

/// The codes of the characters from the blank to the closing brace, without the grave accent. Fixed for ever: stored
/// passwords are read by them. Nearly all are made of letters and digits, whose codes hold no quote in turn, so that a
/// password of letters and digits lives through an export of the settings, which drops quotes.
constexpr const char* kCodes[] = {
    "KGp", "OyQ", "N\"d", "OyZ", "bkB", "oOx", "tzH", "q8S", "TZH", "E6s", "vi3",  "4zW", "H8x",  "MS9", "BMo", "XOJ",
    "rLo", "8F2", "nXM",  "zqQ", "dgC", "WwD", "tWR", "6zq", "lIK", "iUB", "KnC",  "fK2", "vuA",  "iSD", "MK2", "xTY",
    "2xA", "6bz", "kir",  "Ags", "XOh", "yl9", "n23", "DSp", "8kV", "zjl", "iKE",  "1Qu", "fhQ",  "NB9", "reo", "sfh",
    "ypn", "XLD", "n8S",  "9wP", "NWk", "PLR", "347", "A7T", "Pdo", "E2u", "6Qe",  "1NB", "PBT",  "rbE", "Dbn", "zKL",
    "Mcy", "i7M", "07Q",  "8Ag", "dmX", "2sa", "u4r", "naW", "8mH", "DKw", "3Oa",  "WDy", "yId",  "YxW", "DsU", "78E",
    "9kc", "E3o", "8X1",  "o95", "85y", "Ma6", "Fv4", "ngc", "VnS", "Ogs", "R\"u", "QYu", "Y8\"",
};

const QHash<QChar, QString>& Codes() {
    static const QHash<QChar, QString> codes = [] {
        QHash<QChar, QString> made;
        const char* const* code = kCodes;
        for (char16_t c = kFirst; c <= kLast; ++c)
            if (c != kLeftOut) made.insert(c, QString::fromLatin1(*code++));
        return made;
    }();
    return codes;
}

const QHash<QString, QChar>& Characters() {
    static const QHash<QString, QChar> characters = [] {
        QHash<QString, QChar> made;
        for (auto code = Codes().begin(); code != Codes().end(); ++code) made.insert(code.value(), code.key());
        return made;
    }();
    return characters;
}

void RunEventsNow(qsizetype position) {
    if (position % kEventStep == kEventStep - 1) QCoreApplication::processEvents();
}

}  // namespace

QString EncodePassword(const QString& text) {
    QString encoded;
    for (qsizetype i = 0; i < text.size(); ++i) {
        encoded += Codes().value(text[i], QString(text[i]));
        RunEventsNow(i);
    }
    return encoded;
}

QString DecodePassword(const QString& text) {
    QString decoded;
    for (qsizetype i = 0; i < text.size(); i += kCodeLength) {
        const QString group = text.mid(i, kCodeLength);
        const auto character = Characters().find(group);
        decoded += character == Characters().end() ? group : QString(*character);
        RunEventsNow(i / kCodeLength);
    }
    return decoded;
}

QString ScramblePassword(const QString& password) { return EncodePassword(EncodePassword(EncodePassword(password))); }

QString UnscramblePassword(const QString& stored) { return DecodePassword(DecodePassword(DecodePassword(stored))); }

}  // namespace kelu
