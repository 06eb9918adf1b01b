// Sending to real servers on loopback: what arrives, whom it is sent to, and how every kind of bad server ends.
// SPDX-License-Identifier: MIT
#include "output/mail/smtp_sender.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QUdpSocket>

#include "output/mail/mail_error.h"
#include "platform/error.h"
#include "tests/output/mail/mail_servers.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

const QString kRecords = R"({
    "two.test": {"MX": [[20, "b.two.test"], [10, "a.two.test"], [30, "c.two.test"]]},
    "a.two.test": {"A": ["127.0.0.3"]}, "b.two.test": {"A": ["127.0.0.1"]}, "c.two.test": {"A": ["127.0.0.4"]},
    "plain.test": {"A": ["127.0.0.1"]}, "null.test": {"MX": [[0, "."]]}, "lost.test": {"MX": [[10, "nowhere.test"]]},
    "broken.test": "broken"})";

const Certificates& Keys() {
    static const Certificates certificates;
    return certificates;
}

struct SmtpSenderTest : testing::Test {
    QTemporaryDir folder;
    const QString out = folder.filePath("received");
    SmtpSender smtp;

    MailMessage Message(const QString& to = "someone@plain.test") {
        MailMessage message;
        message.From = "me@kelu.test";
        message.To = to;
        return message;
    }
    void To(const LoopbackServer& server) {
        smtp.SetHost("127.0.0.1");
        smtp.SetPort(server.Port());
    }
    /// The description of the failure; empty when it went well.
    QString Failure(const std::function<void()>& work, int number = kMailFailed) {
        const Error error = ErrorOf(work);
        EXPECT_TRUE(error.Number() == 0 || error.Number() == number) << error.what();
        EXPECT_FALSE(error.Description().contains('\n'));
        return error.Description();
    }
    QString SendFailure() {
        return Failure([&] { smtp.Send(Message()); });
    }
    double SecondsToFail(const std::function<void()>& work) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_NE(Failure(work), "");
        return static_cast<double>(clock.elapsed()) / 1000;
    }
};

TEST_F(SmtpSenderTest, MessageArrivesAsItWasWritten) {
    const LoopbackServer server({"smtp", out});
    To(server);
    MailMessage message;
    message.From = QString::fromUtf8("\"Müller, Jürgen\" <me@kelu.test>");
    message.To = QString::fromUtf8("写真 <first@plain.test>, second@plain.test");
    message.CC = "third@plain.test";
    message.Subject =
        QString::fromUtf8("Ein langer Betreff über Fotos, 写真 und noch mehr, der nie in eine einzige Zeile passt ") +
        QString(60, QChar(0x00FC));
    message.Body = QString::fromUtf8("Grüße\r\n.\r\n..dots\n\ntrailing blank \r\nequals = sign\r\n") +
                   QString(300, 'x') + QString::fromUtf8("\r\nFrom here ☃ \U0001F600");
    QFile file(folder.filePath("Kelu.jpg"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray content(1'000'003, '\0');
    for (int i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 79 >> 3);
    file.write(content);
    file.close();
    message.AddAttachment(file.fileName());

    QList<qint64> sent;
    bool windowLives = false;
    QTimer::singleShot(0, [&] { windowLives = true; });
    QObject::connect(&smtp, &SmtpSender::Progress, [&](qint64 done, qint64 total) { sent.append(done * 100 / total); });
    smtp.Send(message);
    EXPECT_TRUE(windowLives);
    ASSERT_FALSE(sent.isEmpty());
    EXPECT_TRUE(std::is_sorted(sent.begin(), sent.end()));
    EXPECT_EQ(sent.last(), 100);

    message.From.clear();  // nobody's mail goes out as well
    smtp.Send(message);
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 2u);
    const QJsonObject& mail = received[0];
    EXPECT_EQ(mail["sender"].toString(), "me@kelu.test");
    EXPECT_EQ(mail["recipients"].toArray(), QJsonArray({"first@plain.test", "second@plain.test", "third@plain.test"}));
    EXPECT_EQ(mail["defects"].toArray(), QJsonArray());
    EXPECT_LE(mail["longest"].toInt(), 78);
    EXPECT_EQ(Header(mail, "Subject"), message.Subject);
    EXPECT_EQ(Header(mail, "From"), QString::fromUtf8("\"Müller, Jürgen\" <me@kelu.test>"));
    EXPECT_EQ(Header(mail, "To"), message.To);
    EXPECT_EQ(Header(mail, "Cc"), message.CC);
    for (const char* name : {"Date", "Message-ID", "MIME-Version"}) EXPECT_NE(Header(mail, name), "") << name;
    EXPECT_EQ(mail["body"].toString().trimmed(), QString(message.Body).replace("\r\n", "\n"));
    const QJsonArray attachment = mail["attachments"].toArray()[0].toArray();
    EXPECT_EQ(attachment[0].toString(), "Kelu.jpg");
    EXPECT_EQ(attachment[1].toString(), "image/jpeg");
    EXPECT_TRUE(QByteArray::fromBase64(attachment[2].toString().toLatin1()) == content);
    EXPECT_EQ(received[1]["sender"].toString(), "<>");
    EXPECT_EQ(received[1]["defects"].toArray(), QJsonArray()) << "an invalid header for an empty From";
}

TEST_F(SmtpSenderTest, ServersAreFoundByPreferenceAndTriedInTurn) {
    const LoopbackServer names({"dns", kRecords});
    smtp.SetNameServers({QString("127.0.0.1:%1").arg(names.Port()), 10'000});
    const auto hosts = smtp.MailHostOf("me@two.test");
    QStringList order;
    for (const MailHost& host : hosts) order << host.name + ' ' + host.addresses.join(' ');
    EXPECT_EQ(order, QStringList({"a.two.test 127.0.0.3", "b.two.test 127.0.0.1", "c.two.test 127.0.0.4"}));
    EXPECT_EQ(smtp.MailHostOf("me@PLAIN.test").at(0).addresses, QStringList("127.0.0.1"));

    const LoopbackServer server({"smtp", out});  // at the second of the three alone
    smtp.SetHosts(hosts);
    smtp.SetPort(server.Port());
    smtp.Send(Message("me@two.test"));
    EXPECT_EQ(ReceivedMessages(out).size(), 1u);

    const char* const kCases[][2] = {
        {"me@missing.test", "The mail domain \"missing.test\" does not exist"},
        {"me@null.test", "The mail domain \"null.test\" accepts no mail"},
        {"me@lost.test", "The mail domain \"lost.test\" does not exist"},
        {"me@broken.test", "The mail server of \"broken.test\" could not be found"},
        {"me", "\"me\" is no mail address"},
    };
    for (const auto& [address, reason] : kCases) {
        const QString failure = Failure([&, address = address] { smtp.MailHostOf(address); });
        EXPECT_TRUE(failure.startsWith(reason)) << failure.toStdString();
    }
    QUdpSocket silent;  // takes every question and answers none
    ASSERT_TRUE(silent.bind(QHostAddress::LocalHost));
    smtp.SetNameServers({QString("127.0.0.1:%1").arg(silent.localPort()), 1500});
    EXPECT_NEAR(SecondsToFail([&] { smtp.MailHostOf("me@two.test"); }), 2, 1.5);
}

TEST_F(SmtpSenderTest, DeliveryIsEncryptedWhereOfferedAndGoesOnWhereThatFails) {
    const QList<QStringList> kServers{{"--starttls", Keys().Path("other.pem"), Keys().Path("other.key")},
                                      {"--broken-starttls"}};  // the first with nobody's certificate
    for (const QStringList& options : kServers) {
        const LoopbackServer server(QStringList{"smtp", out} + options);
        To(server);
        EXPECT_EQ(SendFailure(), "");
    }
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 2u);
    EXPECT_TRUE(received[0]["encrypted"].toBool());
    EXPECT_FALSE(received[1]["encrypted"].toBool());
}

TEST_F(SmtpSenderTest, AccountNeedsAVerifiedServerAndTheRightPassword) {
    const auto start = [&](const QString& name) {
        return std::make_unique<LoopbackServer>(QStringList{"smtp", out, "--tls", Keys().Path(name + ".pem"),
                                                            Keys().Path(name + ".key"), "--user", "user@kelu.test",
                                                            "p\"w {9}"});
    };
    smtp.SetConnectionMode(SmtpSender::kSecure);
    smtp.SetUserName("user@kelu.test");
    smtp.SetPassword("p\"w {9}");
    const auto good = start("localhost");
    smtp.SetHosts({{"localhost", {"127.0.0.1"}}});
    smtp.SetPort(good->Port());
    EXPECT_TRUE(SendFailure().contains("certificate")) << "an unknown authority was trusted";
    smtp.SetCertificates(Keys().Path("ca.pem"));
    EXPECT_EQ(SendFailure(), "");
    smtp.SetPassword("Not Set");
    EXPECT_TRUE(SendFailure().contains("535"));
    smtp.SetPassword("p\"w {9}");
    const auto other = start("other");
    smtp.SetPort(other->Port());
    EXPECT_NE(SendFailure(), "") << "a certificate for another name was trusted";
    const LoopbackServer plain({"smtp", out});
    smtp.SetPort(plain.Port());
    EXPECT_NE(SendFailure(), "") << "the password went out without encryption";
    EXPECT_EQ(ReceivedMessages(out).size(), 1u);
}

TEST_F(SmtpSenderTest, BadServersEndInOneClearErrorInTime) {
    const LoopbackServer refusing({"smtp", out, "--refuse", "someone@plain.test"});
    smtp.SetHosts({{"127.0.0.1", {}}, {"localhost", {"127.0.0.1"}}});
    smtp.SetPort(refusing.Port());
    EXPECT_EQ(SendFailure(), "127.0.0.1: 550 5.1.1 No such user here");  // and not asked again at the next

    const LoopbackServer talkative({"talkative"});
    To(talkative);
    const QString whole = SendFailure();
    EXPECT_TRUE(
        whole.startsWith("127.0.0.1: 535 5.7.8 Username and Password not accepted. See example.com/help for "
                         "more"))
        << whole.toStdString();
    EXPECT_LT(whole.size(), 350);

    smtp.SetTimeout(2000);
    for (const char* where : {"greeting", "command", "data", "end"}) {
        const LoopbackServer server({"stall", where});
        To(server);
        EXPECT_NEAR(SecondsToFail([&] { smtp.Send(Message()); }), 3, 1.5) << where;
    }
    for (const char* kind : {"close", "busy"}) {
        const LoopbackServer server({kind});
        To(server);
        EXPECT_TRUE(SendFailure().startsWith("127.0.0.1: ")) << kind;
    }
    smtp.SetPort(1);
    EXPECT_NE(SendFailure(), "");
    EXPECT_EQ(Failure([&] { smtp.Send(MailMessage()); }), "The message has no recipient");
}

TEST_F(SmtpSenderTest, CancelEndsASilentSessionAndOnlyOneRunsAtATime) {
    const LoopbackServer server({"stall", "command"});
    To(server);
    QString second;
    QTimer::singleShot(50, [&] { second = SendFailure(); });
    QTimer::singleShot(200, [&] { smtp.Disconnect(); });
    EXPECT_EQ(Failure([&] { smtp.Send(Message()); }, kMailCancelled), "Sending was cancelled");
    EXPECT_EQ(second, "A message is being sent already");
}

}  // namespace
}  // namespace kelu
