// Addresses and the text of messages; that mail readers understand them is tested with the servers.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_message.h"

#include <gtest/gtest.h>

#include <QTimeZone>

#include "output/mail/email_address.h"
#include "platform/error.h"

namespace kelu {
namespace {

TEST(EmailAddress, ValidOnesAndOthers) {
    for (const char* good : {"a@b.c", "first.last@sub.domain.org", "a-b_c@d-e.f", "a@b.c.", "a~`@b.c"})
        EXPECT_TRUE(ValidEmailAddress(good)) << good;
    for (const char* bad : {"", "plain", "@b.c", "a@b", "a@.b.c", "a@b.", "a@b..c", "a..b@c.d", "a@b@c.d", "\"a\"@b.c"})
        EXPECT_FALSE(ValidEmailAddress(bad)) << bad;
    for (const QChar c : QStringLiteral("!#$%^&*()=+{}[]|\\;:'/?>,< "))
        EXPECT_FALSE(ValidEmailAddress(QString("a%1b@c.d").arg(c))) << c.toLatin1();
    for (const char* good : {"a@b.c", "a@b.c; \"Doe, J\" <j@d.e>,, Max <m@x.y>"})
        EXPECT_TRUE(ValidMailList(good)) << good;
    for (const char* bad : {"", " ;", "garbage", "Carol carol@good.example", "a@b.c, garbage", "A <a b@c.d>", "A <>"})
        EXPECT_FALSE(ValidMailList(bad)) << bad;
}

TEST(EmailAddress, ListsWithNames) {
    QStringList found;
    for (const auto& [name, address] : ParseAddresses("a@b.c; \"Doe, J\" <j@d.e>,plain name,, Max <m@x.y>\r\nBcc: z@z"))
        found << name + '|' + address;
    EXPECT_EQ(found, QStringList({"|a@b.c", "Doe, J|j@d.e", "plain name|", "Max|m@x.y"}));
    EXPECT_EQ(MailDomain(QString::fromUtf8("a@bücher.example")), "xn--bcher-kva.example");
}

TEST(MailMessageText, NoFieldCanAddAHeader) {
    MailMessage message;
    message.From = "a@b.c\r\nX-Evil: 1";
    message.To = "d@e.f\nX-Evil: 2";
    message.CC = "Name\r\nX-Evil: 3 <g@h.i>";
    message.Subject = "Hello\r\nX-Evil: 4\r\n\r\nbody";
    const QByteArray text = message.Text();
    for (const QByteArray& line : text.left(text.indexOf("\r\n\r\n")).split('\n'))
        EXPECT_FALSE(line.startsWith("X-Evil")) << line.toStdString();
    EXPECT_EQ(message.Sender(), "");
    EXPECT_THROW(message.Recipients(), Error);
}

TEST(MailMessageText, EnvelopeAndHeaders) {
    MailMessage message;
    message.From = QString::fromUtf8("Jürgen <j@bücher.example>");
    message.To = "a@b.c, Someone <d@e.f>";
    message.CC = "A@b.c; a@b.c";
    EXPECT_EQ(message.Sender(), "j@xn--bcher-kva.example");
    EXPECT_EQ(message.Recipients(), QList<QByteArray>({"a@b.c", "d@e.f", "A@b.c"}));
    const QByteArray text = message.Text(QDateTime(QDate(2026, 2, 3), QTime(4, 5, 6), QTimeZone(-5400)));
    EXPECT_TRUE(text.startsWith("Date: Tue, 3 Feb 2026 04:05:06 -0130\r\n")) << text.left(60).toStdString();
    EXPECT_EQ(text.count('\n'), text.count("\r\n"));

    message.From = "Not Set";
    EXPECT_EQ(message.Sender(), "");
    EXPECT_TRUE(message.Text().contains("\r\nFrom: \"Not Set\":;\r\n"));
    message.AddAttachment("/no/such/file.jpg");
    EXPECT_THROW(message.Text(), Error);
}

}  // namespace
}  // namespace kelu
