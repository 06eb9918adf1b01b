// Sending to real servers on loopback: what arrives, whom it is sent to, and how every kind of bad server ends.
// SPDX-License-Identifier: MIT
#include "output/mail/smtp_sender.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTimer>

#include "output/mail/mail_error.h"
#include "platform/error.h"
#include "tests/output/mail/mail_servers.h"

namespace kelu {
namespace {

const QString kRecords = R"({
    "two.test": {"MX": [[20, "b.two.test"], [10, "a.two.test"], [30, "c.two.test"]]},
    "a.two.test": {"A": ["127.0.0.3"]}, "b.two.test": {"A": ["127.0.0.1"]}, "c.two.test": {"A": ["127.0.0.4"]},
    "plain.test": {"A": ["127.0.0.1"]},
    "null.test": {"MX": [[0, "."]]},
    "lost.test": {"MX": [[10, "nowhere.test"]]},
    "broken.test": "broken"
})";

const Certificates& Keys() {
    static const Certificates certificates;
    return certificates;
}

struct SmtpSenderTest : testing::Test {
    QTemporaryDir folder;
    const QString out = folder.filePath("received");
    SmtpSender smtp;

    QString AttachmentOf(int bytes) {
        QFile file(folder.filePath("Kelu.jpg"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        QByteArray content(bytes, '\0');
        for (int i = 0; i < bytes; ++i) content[i] = static_cast<char>(i * 79 >> 3);
        file.write(content);
        return file.fileName();
    }
    MailMessage Message(const QString& to = "someone@plain.test") {
        MailMessage message;
        message.From = "me@kelu.test";
        message.To = to;
        message.Subject = "Kelu";
        message.Body = "Hello";
        return message;
    }
    void To(const LoopbackServer& server) {
        smtp.SetHost("127.0.0.1");
        smtp.SetPort(server.Port());
    }
    void UseNames(const LoopbackServer& names) {
        smtp.SetNameServers({QString("127.0.0.1:%1").arg(names.Port()), 10'000});
    }
    /// The description of the failure; empty when it went well.
    QString Failure(const std::function<void()>& work, int number = kMailFailed) {
        try {
            work();
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), number) << error.what();
            EXPECT_FALSE(error.Description().contains('\n'));
            return error.Description();
        }
        return {};
    }
    QString SendFailure() {
        return Failure([&] { smtp.Send(Message()); });
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
    const QString path = AttachmentOf(1'000'003);
    message.AddAttachment(path);

    QList<qint64> sent;
    bool windowLives = false;
    QTimer::singleShot(0, [&] { windowLives = true; });
    QObject::connect(&smtp, &SmtpSender::Progress, [&](qint64 done, qint64 total) {
        EXPECT_GT(total, 1'000'003 * 4 / 3);
        EXPECT_LE(done, total);
        sent.append(done * 100 / total);
    });
    smtp.Send(message);
    EXPECT_TRUE(windowLives);
    ASSERT_FALSE(sent.isEmpty());
    EXPECT_TRUE(std::is_sorted(sent.begin(), sent.end()));
    EXPECT_EQ(sent.last(), 100);

    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 1u);
    const QJsonObject& mail = received[0];
    EXPECT_EQ(mail["sender"].toString(), "me@kelu.test");
    EXPECT_EQ(mail["recipients"].toArray(), QJsonArray({"first@plain.test", "second@plain.test", "third@plain.test"}));
    EXPECT_EQ(mail["defects"].toArray(), QJsonArray());
    EXPECT_LE(mail["longest"].toInt(), 78);
    EXPECT_EQ(Header(mail, "Subject"), message.Subject);
    EXPECT_EQ(Header(mail, "From"), message.From);
    EXPECT_EQ(Header(mail, "To"), QString::fromUtf8("写真 <first@plain.test>, second@plain.test"));
    EXPECT_EQ(Header(mail, "Cc"), "third@plain.test");
    for (const char* name : {"Date", "Message-ID", "MIME-Version"}) EXPECT_NE(Header(mail, name), "") << name;
    EXPECT_EQ(mail["body"].toString().trimmed(), QString(message.Body).replace("\r\n", "\n"));
    const QJsonArray attachment = mail["attachments"].toArray()[0].toArray();
    EXPECT_EQ(attachment[0].toString(), "Kelu.jpg");
    EXPECT_EQ(attachment[1].toString(), "image/jpeg");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QByteArray::fromBase64(attachment[2].toString().toLatin1()) == file.readAll());
}

TEST_F(SmtpSenderTest, AnEmptySenderIsTakenToo) {
    const LoopbackServer server({"smtp", out});
    To(server);
    MailMessage message = Message();
    message.From.clear();
    EXPECT_EQ(Failure([&] { smtp.Send(message); }), "");
    ASSERT_EQ(ReceivedMessages(out).size(), 1u);
    EXPECT_EQ(ReceivedMessages(out)[0]["sender"].toString(), "<>");
}

TEST_F(SmtpSenderTest, ServersAreFoundByPreferenceAndTriedInTurn) {
    const LoopbackServer names({"dns", kRecords});
    UseNames(names);
    const auto hosts = smtp.MailHostOf("me@two.test");
    ASSERT_EQ(hosts.size(), 3u);
    EXPECT_EQ(hosts[0].name, "a.two.test");
    EXPECT_EQ(hosts[0].addresses, QStringList("127.0.0.3"));
    EXPECT_EQ(hosts[1].name, "b.two.test");
    EXPECT_EQ(hosts[2].name, "c.two.test");
    const auto plain = smtp.MailHostOf("me@PLAIN.test");
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(plain[0].addresses, QStringList("127.0.0.1"));

    // Only the second of the three has a server.
    const LoopbackServer server({"smtp", out});
    smtp.SetHosts(hosts);
    smtp.SetPort(server.Port());
    smtp.Send(Message("me@two.test"));
    EXPECT_EQ(ReceivedMessages(out).size(), 1u);

    const struct {
        const char* address;
        const char* reason;
    } kCases[] = {
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
}

TEST_F(SmtpSenderTest, ASilentNameServerIsGivenUp) {
    const int silent = ::socket(AF_INET, SOCK_DGRAM, 0);  // takes every question and answers none
    sockaddr_in address{};
    socklen_t size = sizeof address;
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(::bind(silent, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(::getsockname(silent, reinterpret_cast<sockaddr*>(&address), &size), 0);
    smtp.SetNameServers({QString("127.0.0.1:%1").arg(ntohs(address.sin_port)), 1500});
    QElapsedTimer clock;
    clock.start();
    EXPECT_NE(Failure([&] { smtp.MailHostOf("me@two.test"); }), "");
    EXPECT_GT(clock.elapsed(), 1000);
    EXPECT_LT(clock.elapsed(), 15'000);
    ::close(silent);
}

TEST_F(SmtpSenderTest, DeliveryIsEncryptedWhereOfferedAndGoesOnWhereThatFails) {
    const QStringList key{Keys().Path("other.pem"), Keys().Path("other.key")};
    {
        const LoopbackServer server(QStringList{"smtp", out, "--starttls"} + key);
        To(server);
        EXPECT_EQ(SendFailure(), "");  // though the certificate is nobody's
    }
    {
        const LoopbackServer server({"smtp", out, "--broken-starttls"});
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
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0]["user"].toString(), "user@kelu.test");
}

TEST_F(SmtpSenderTest, BadServersEndInOneClearError) {
    const LoopbackServer refusing({"smtp", out, "--refuse", "someone@plain.test"});
    To(refusing);
    smtp.SetHosts({{"127.0.0.1", {}}, {"localhost", {"127.0.0.1"}}});
    EXPECT_EQ(SendFailure(), "127.0.0.1: 550 5.1.1 No such user here");  // and not asked again at the next

    smtp.SetTimeout(1000);
    const QList<QStringList> kServers{
        {"close"}, {"busy"}, {"stall", "greeting"}, {"stall", "command"}, {"stall", "data"}};
    for (const QStringList& arguments : kServers) {
        const LoopbackServer server(arguments);
        To(server);
        QElapsedTimer clock;
        clock.start();
        const QString failure = SendFailure();
        EXPECT_TRUE(failure.startsWith("127.0.0.1: ")) << failure.toStdString();
        EXPECT_LT(clock.elapsed(), 15'000) << arguments.join(' ').toStdString();
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
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(Failure([&] { smtp.Send(Message()); }, kMailCancelled), "Sending was cancelled");
    EXPECT_LT(clock.elapsed(), 15'000);
    EXPECT_EQ(second, "A message is being sent already");
}

}  // namespace
}  // namespace kelu
