// The e-mail dialog: what it shows for each way of sending, and each way to its end.
// SPDX-License-Identifier: MIT
#include "output/mail/frm_email.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "controls/progress_bar/xp_progress_bar.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"
#include "platform/password_scrambling.h"
#include "tests/output/mail/mail_servers.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

const QString kAdded =
    "The attached image was created by and emailed from Kelu%1. For more details, please visit https://kelu.example";

class ScriptedClient : public MailClient {
 public:
    QStringList calls;
    ClientMessage message;
    int failSignOn = 0, failSend = 0;
    void SignOn() override {
        calls.append("SignOn");
        if (failSignOn != 0) throw Error(failSignOn, "no logon");
    }
    void SendMessage(const ClientMessage& sent) override {
        calls.append("SendMessage");
        message = sent;
        if (failSend != 0) throw Error(failSend, "it failed");
    }
    void SignOff() override { calls.append("SignOff"); }
};

struct FrmEmail : testing::Test {
    QTemporaryDir folder;
    const QString out = folder.filePath("received");
    SmtpSender smtp;
    ScriptedClient client;
    ScriptedDialog dialog;
    MemorySettings settings;
    MailPorts ports;
    std::unique_ptr<frmEmail> form;

    void Open(const QString& method) {
        if (!method.isNull()) settings.WriteText(settings::kMailMethod.key, method);
        QFile file(folder.filePath("Kelu.jpg"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(200'000, 'j'));
        file.close();
        form = std::make_unique<frmEmail>(smtp, client, dialog, settings, file.fileName(), ports);
        form->show();
    }
    QStringList Headings() const {
        QStringList headings;
        for (const auto& message : dialog.shown) headings.append(message.heading);
        return headings;
    }
};

TEST_F(FrmEmail, ShowsTheFrameOfTheWayAndItsFields) {
    Open(QString());
    EXPECT_EQ(form->windowTitle(), "E-mail");
    EXPECT_TRUE(form->FrameEmail->isVisible());
    EXPECT_FALSE(form->FrameGmail->isVisible());
    EXPECT_EQ(form->FrameEmail->title(), "E-mail Image");
    EXPECT_EQ(form->txtSubject1->text(), "Kelu");
    EXPECT_EQ(form->txtFrom1->text() + form->txtTo1->text() + form->txtText1->toPlainText(), "");
    EXPECT_FALSE(form->pBar1->isVisible());
    Open("2");
    EXPECT_TRUE(form->FrameEmail->isVisible());
    EXPECT_EQ(form->txtFrom1->text(), "Not Set");
    Open("3");
    EXPECT_FALSE(form->FrameEmail->isVisible());
    EXPECT_EQ(form->FrameGmail->title(), "E-Mail Image via Google Mail (TM)");
    EXPECT_EQ(form->txtFrom2->text(), "Not Set");
    EXPECT_EQ(form->txtTo2->text(), "Not Set");
    EXPECT_EQ(form->txtSubject2->text(), "Kelu");
    EXPECT_EQ(form->txtCC2->text(), "");
    Open("4");
    QTest::mouseClick(form->cmdSend, Qt::LeftButton);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(FrmEmail, EnteringAFieldSelectsItsText) {
    Open("1");
    form->txtText1->setPlainText("some text");
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    QTest::mouseClick(form->txtSubject1, Qt::LeftButton);
    QTest::qWait(10);
    EXPECT_EQ(form->txtSubject1->selectedText(), "Kelu");
    QTest::keyClick(form->txtSubject1, Qt::Key_Tab);
    QTest::qWait(10);
    EXPECT_EQ(form->txtText1->textCursor().selectedText(), "some text");
}

TEST_F(FrmEmail, RefusesBadRecipientsAndStaysOpen) {
    for (const char* method : {"1", "3"}) {
        Open(method);
        for (const char* to : {"", "nobody", "a@b.c;d@e.f"}) {
            dialog.shown.clear();
            (*method == '1' ? form->txtTo1 : form->txtTo2)->setText(to);
            QTest::mouseClick(form->cmdSend, Qt::LeftButton);
            ASSERT_EQ(dialog.shown.size(), 1u) << to;
            EXPECT_EQ(dialog.shown[0].text,
                      "The following error(s) have occured:\r\n\r\n"
                      "No e-mail address or an invalid e-mail address has been entered.\r\n");
            EXPECT_EQ(dialog.shown[0].icon, MsgIcon::Error);
            EXPECT_TRUE(form->isVisible());
            EXPECT_TRUE(form->cmdSend->isEnabled());
        }
    }
}

TEST_F(FrmEmail, OwnDeliveryGoesToTheRecipientsServer) {
    const LoopbackServer server({"smtp", out});
    const LoopbackServer names(
        {"dns", R"({"plain.test": {"MX": [[5, "mx.plain.test"]]}, "mx.plain.test": {"A": ["127.0.0.1"]}})"});
    smtp.SetNameServers({QString("127.0.0.1:%1").arg(names.Port()), 10'000});
    ports.delivery = server.Port();
    Open("1");
    form->txtFrom1->setText("me@kelu.test");
    form->txtTo1->setText("you@plain.test");
    form->txtSubject1->setText("A picture");
    form->txtText1->setPlainText("Look\nhere");
    bool barShown = false;
    QObject::connect(&smtp, &SmtpSender::Progress, [&](qint64 sent, qint64 total) {
        EXPECT_FALSE(form->cmdSend->isEnabled() || form->cmdCancel->isEnabled() || form->FrameEmail->isEnabled());
        form->close();
        EXPECT_TRUE(form->isVisible()) << "closed in the middle of a transfer";
        EXPECT_EQ(form->pBar1->isVisible(), sent < total);
        barShown = barShown || form->pBar1->isVisible();
    });
    QTest::mouseClick(form->cmdSend, Qt::LeftButton);
    EXPECT_TRUE(barShown);
    EXPECT_FALSE(form->isVisible());
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].heading, "Information");
    EXPECT_EQ(dialog.shown[0].text, "E-mail Sent!\r\n");
    EXPECT_EQ(dialog.shown[0].icon, MsgIcon::Information);
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(Header(received[0], "Subject"), "A picture");
    EXPECT_EQ(received[0]["body"].toString().trimmed(), "Look\nhere\n\n" + kAdded.arg(""));
    const QJsonArray attachment = received[0]["attachments"].toArray()[0].toArray();
    EXPECT_EQ(attachment[0].toString(), "Kelu.jpg");
    EXPECT_EQ(QByteArray::fromBase64(attachment[2].toString().toLatin1()), QByteArray(200'000, 'j'));

    dialog.shown.clear();
    Open("1");
    form->txtTo1->setText("you@missing.test");
    QTest::mouseClick(form->cmdSend, Qt::LeftButton);
    EXPECT_EQ(
        dialog.Texts(),
        QStringList("The following error has occured:\r\nThe mail domain \"missing.test\" does not exist (32002)\r\n"));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmEmail, AccountLogsInAndKeepsTheRecipient) {
    const Certificates keys;
    const LoopbackServer server({"smtp", out, "--tls", keys.Path("localhost.pem"), keys.Path("localhost.key"), "--user",
                                 "user@kelu.test", "pa55\"wrd"});
    smtp.SetCertificates(keys.Path("ca.pem"));
    ports.accountHost = "localhost";
    ports.account = server.Port();
    settings.Write(settings::kAccountUser, "user@kelu.test");
    settings.Write(settings::kAccountPassword, ScramblePassword("pa55\"wrd"));
    Open("3");
    EXPECT_EQ(form->txtFrom2->text(), "user@kelu.test");
    form->txtTo2->setText("you@plain.test");
    form->txtCC2->setText("copy@plain.test");
    QTest::mouseClick(form->cmdSend, Qt::LeftButton);
    EXPECT_EQ(dialog.Texts(), QStringList("E-mail Sent!\r\n"));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(settings.Read(settings::kAccountRecipient), "you@plain.test");
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0]["user"].toString(), "user@kelu.test");
    EXPECT_EQ(received[0]["recipients"].toArray(), QJsonArray({"you@plain.test", "copy@plain.test"}));
    EXPECT_EQ(received[0]["body"].toString().trimmed(), kAdded.arg(" via Gmail"));

    settings.Write(settings::kAccountPassword, "Not Set");
    dialog.shown.clear();
    Open("3");
    form->txtTo2->setText("you@plain.test");
    QTest::mouseClick(form->cmdSend, Qt::LeftButton);
    EXPECT_EQ(Headings(), QStringList("Error"));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmEmail, ClientGetsEverythingAndTheSenderIsKept) {
    Open("2");
    form->txtFrom1->setText("me");
    form->txtTo1->setText("anything at all");
    form->txtText1->setPlainText("text");
    QTest::mouseClick(form->cmdSend, Qt::LeftButton);
    EXPECT_EQ(client.calls, QStringList({"SignOn", "SendMessage", "SignOff"}));
    EXPECT_EQ(client.message.MsgSubject, "Kelu");
    EXPECT_EQ(client.message.MsgNoteText, "text\r\n\r\n" + kAdded.arg(""));
    EXPECT_EQ(client.message.RecipientName, "me");
    EXPECT_EQ(client.message.RecipientAddress, "anything at all");
    EXPECT_EQ(client.message.AttachmentPath, folder.filePath("Kelu.jpg"));
    EXPECT_EQ(settings.Read(settings::kMailSender), "me");
    EXPECT_TRUE(dialog.shown.empty());
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmEmail, ClientFailuresLeaveTheDialogOpen) {
    const struct {
        int signOn, send;
        QStringList calls;
        bool message;
    } kCases[] = {
        {kMailNoLogon, 0, {"SignOn"}, false},
        {0, kMailCancelled, {"SignOn", "SendMessage"}, false},
        {0, kMailFailed, {"SignOn", "SendMessage", "SignOff"}, true},
        {kMailFailed, 0, {"SignOn", "SignOff"}, true},
    };
    for (const auto& each : kCases) {
        client = ScriptedClient();
        client.failSignOn = each.signOn;
        client.failSend = each.send;
        dialog.shown.clear();
        Open("2");
        form->txtFrom1->setText("me");
        QTest::mouseClick(form->cmdSend, Qt::LeftButton);
        EXPECT_EQ(client.calls, each.calls);
        EXPECT_EQ(Headings(), each.message ? QStringList("Error") : QStringList());
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(settings.Read(settings::kMailSender), "Not Set");
    }
}

/// A program of the given name that keeps its arguments and ends with a status.
void MakeProgram(const QString& path, const QString& kept, int status) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QString("#!/bin/sh\nprintf '%s\\n' \"$@\" > '%1'\nexit %2\n").arg(kept).arg(status).toUtf8());
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST(DesktopMailClientTest, HandsOverAndTellsStatuses) {
    QTemporaryDir folder;
    const QByteArray path = qgetenv("PATH");
    const QString kept = folder.filePath("arguments");
    const struct {
        int status;
        const char* failure;
    } kCases[] = {{0, ""},
                  {2, "/tmp/Kelu.jpg: the file is missing"},
                  {3, "No mail program is set up on this system"},
                  {4, "The mail program could not be opened"}};
    for (const auto& [status, failure] : kCases) {
        MakeProgram(folder.filePath("xdg-email"), kept, status);
        qputenv("PATH", folder.path().toLocal8Bit() + ':' + path);
        QString told;
        try {
            DesktopMailClient client;
            client.SignOn();
            client.SendMessage(
                {"Subject", QString::fromUtf8("two\nlines ü"), "name", "--attach=/etc/passwd", "/tmp/Kelu.jpg"});
        } catch (const Error& error) {
            told = error.Description();
        }
        EXPECT_EQ(told, failure);
        QFile file(kept);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(QString::fromUtf8(file.readAll()),
                  QString::fromUtf8("--utf8\n--subject\nSubject\n--body\ntwo\nlines ü\n--attach\n/tmp/Kelu.jpg\n"
                                    "mailto:--attach%3D%2Fetc%2Fpasswd\n"));
    }
    qputenv("PATH", folder.filePath("empty").toLocal8Bit());
    DesktopMailClient client;
    EXPECT_THROW(client.SignOn(), Error);
    qputenv("PATH", path);
}

}  // namespace
}  // namespace kelu
