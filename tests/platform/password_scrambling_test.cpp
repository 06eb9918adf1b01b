// The password's scrambling: the table stays as it is for ever, and what goes in comes out.
// SPDX-License-Identifier: MIT
#include "platform/password_scrambling.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QSet>

namespace kelu {
namespace {

QString Covered() {
    QString all;
    for (char16_t c = u' '; c <= u'}'; ++c)
        if (c != u'`') all += c;
    return all;
}

TEST(PasswordScrambling, TableIsTheOneThatStoredPasswordsWereWrittenWith) {
    const QByteArray codes = EncodePassword(Covered()).toLatin1();
    EXPECT_EQ(QCryptographicHash::hash(codes, QCryptographicHash::Sha256).toHex(),
              QByteArray("8b889043142ed99addf9b93f9175e261039da226468e27e0f734769fb14d7dac"));
}

TEST(PasswordScrambling, RoundTrips) {
    const QString covered = Covered();
    EXPECT_EQ(UnscramblePassword(ScramblePassword(covered)), covered);
    for (const QChar a : covered)
        for (const QChar b : covered) {
            const QString pair = QString(a) + b;
            ASSERT_EQ(UnscramblePassword(ScramblePassword(pair)), pair);
        }
    const QString nine = QStringLiteral("aB3 \"{}'z");
    EXPECT_EQ(ScramblePassword(nine).size(), 243);
    const QString longText = covered.repeated(30);
    EXPECT_EQ(DecodePassword(EncodePassword(longText)), longText);
}

TEST(PasswordScrambling, WhatTheTableDoesNotHoldStays) {
    EXPECT_EQ(EncodePassword(QString()), QString());
    EXPECT_EQ(DecodePassword(QString()), QString());
    EXPECT_EQ(UnscramblePassword(QStringLiteral("Not Set")), QStringLiteral("Not Set"));
    EXPECT_EQ(EncodePassword(QStringLiteral("~")), QStringLiteral("~"));
    EXPECT_EQ(EncodePassword(QStringLiteral("a`")), EncodePassword(QStringLiteral("a")) + u'`');
    // A foreign character behind the others shifts nothing in one pass; in front it does.
    EXPECT_EQ(DecodePassword(EncodePassword(QStringLiteral("ab~"))), QStringLiteral("ab~"));
    EXPECT_NE(DecodePassword(EncodePassword(QStringLiteral("~ab"))), QStringLiteral("~ab"));
}

}  // namespace
}  // namespace kelu
