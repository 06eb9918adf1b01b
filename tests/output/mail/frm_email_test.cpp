// The e-mail dialog: what it shows for each way of sending, and each way to its end.
// SPDX-License-Identifier: MIT
#include "output/mail/frm_email.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "controls/progress_bar/xp_progress_bar.h"
#include "platform/password_scrambling.h"
#include "tests/output/mail/mail_servers.h"
#include "tests/support/kit.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

const QString kAdded =
    "The attached image was created by and emailed from Kelu%1. For more details, please visit https://kelu.example";

struct FrmEmail : testing::Test {
    QTemporaryDir folder;
    const QString out = folder.filePath("received");
    SmtpSender smtp;
    DesktopMailClient client;
    ScriptedDialog dialog;
    MemorySettings settings;
    MailDraft draft;
    MailPorts ports;
    std::unique_ptr<frmEmail> form;

    void Open(const QString& method) {
        if (!method.isNull()) settings.WriteText(settings::kMailMethod.key, method);
        const QString picture = folder.filePath("Kelu.jpg");
        WriteBytes(picture, QByteArray(200'000, 'j'));
        dialog.shown.clear();
        form = std::make_unique<frmEmail>(smtp, client, dialog, settings, picture, draft, ports);
        form->show();
    }
    void Send() { QTest::mouseClick(form->cmdSend, Qt::LeftButton); }
};

TEST_F(FrmEmail, OwnDeliveryGoesToTheRecipientsServer) {
    const LoopbackServer server({"smtp", out});
    const LoopbackServer names(
        {"dns", R"({"plain.test": {"MX": [[5, "mx.plain.test"]]}, "mx.plain.test": {"A": ["127.0.0.1"]}})"});
    smtp.SetNameServers({QString("127.0.0.1:%1").arg(names.Port()), 10'000});
    ports.delivery = server.Port();
    Open("1");
    form->txtFrom1->setText("me@kelu.test");
    form->txtTo1->setText("you@missing.test");
    form->txtSubject1->setText("A picture");
    form->txtText1->setPlainText("Look\nhere");
    Send();
    EXPECT_EQ(
        dialog.Texts(),
        QStringList("The following error has occured:\r\nThe mail domain \"missing.test\" does not exist (32002)\r\n"));
    EXPECT_FALSE(form->isVisible());

    Open("2");
    EXPECT_EQ(form->txtText1->toPlainText(), "") << "another way";
    Open("1");  // with what was written before
    form->txtTo1->setText("you@plain.test");
    bool barShown = false;
    QObject::connect(&smtp, &SmtpSender::Progress, [&](qint64 sent, qint64 total) {
        EXPECT_FALSE(form->cmdSend->isEnabled() || form->cmdCancel->isEnabled() || form->FrameEmail->isEnabled());
        form->close();
        EXPECT_TRUE(form->isVisible()) << "closed in the middle of a transfer";
        EXPECT_EQ(form->pBar1->isVisible(), sent < total);
        barShown = barShown || form->pBar1->isVisible();
    });
    Send();
    EXPECT_TRUE(barShown);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(dialog.Texts(), QStringList("E-mail Sent!\r\n"));
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(Header(received[0], "Subject"), "A picture");
    EXPECT_EQ(received[0]["body"].toString().trimmed(), "Look\nhere\n\n" + kAdded.arg(""));
    const QJsonArray attachment = received[0]["attachments"].toArray()[0].toArray();
    EXPECT_EQ(attachment[0].toString(), "Kelu.jpg");
    EXPECT_EQ(QByteArray::fromBase64(attachment[2].toString().toLatin1()), QByteArray(200'000, 'j'));
    Open("1");
    EXPECT_EQ(form->txtText1->toPlainText(), "") << "it has gone";
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
    Send();
    EXPECT_EQ(dialog.Texts(), QStringList("E-mail Sent!\r\n"));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(settings.Read(settings::kAccountRecipient), "you@plain.test");
    const auto received = ReceivedMessages(out);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0]["user"].toString(), "user@kelu.test");
    EXPECT_EQ(received[0]["recipients"].toArray(), QJsonArray({"you@plain.test", "copy@plain.test"}));
    EXPECT_EQ(received[0]["body"].toString().trimmed(), kAdded.arg(" via Gmail"));
}

/// The desktop's program under its name: keeps its arguments and then does something.
struct DesktopClient : FrmEmail {
    const QByteArray path = qgetenv("PATH");
    const QString kept = folder.filePath("arguments");

    void MakeProgram(const QString& then) {
        const QString program = folder.filePath("xdg-email");
        WriteBytes(program, QString("#!/bin/sh\nprintf '%s\\n' \"$@\" > '%1'\n%2\n").arg(kept, then).toUtf8());
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", folder.path().toLocal8Bit() + ':' + path);
    }
    void TearDown() override { qputenv("PATH", path); }
};

TEST_F(DesktopClient, GetsEverythingAndFailuresLeaveTheDialogOpen) {
    const char* const kCases[][2] = {{"exit 2", "Kelu.jpg: the file is missing (32002)"},
                                     {"exit 3", "No mail program is set up on this system (32002)"},
                                     {"exit 4", "The mail program could not be opened (32002)"},
                                     {"exit 0", nullptr}};
    for (const auto& [then, failure] : kCases) {
        MakeProgram(then);
        Open("2");
        form->txtFrom1->setText("me");
        form->txtTo1->setText("--attach=/etc/passwd");
        form->txtText1->setPlainText("two\nlines \u00fc");
        Send();
        EXPECT_EQ(form->isVisible(), failure != nullptr) << then;
        EXPECT_EQ(settings.Read(settings::kMailSender), failure ? "Not Set" : "me");
        ASSERT_EQ(dialog.shown.size(), failure ? 1u : 0u);
        EXPECT_TRUE(!failure || dialog.shown[0].text.contains(failure)) << dialog.shown[0].text.toStdString();
        EXPECT_EQ(QString::fromUtf8(ReadBytes(kept)),
                  "--utf8\n--subject\nKelu\n--body\ntwo\nlines \u00fc\n\n" + kAdded.arg("") + "\n--attach\n" +
                      folder.filePath("Kelu.jpg") + "\nmailto:--attach%3D%2Fetc%2Fpasswd\n");
    }
    qputenv("PATH", folder.filePath("empty").toLocal8Bit());
    Open("2");
    Send();
    EXPECT_TRUE(form->isVisible() && dialog.shown.size() == 1);
}

TEST_F(DesktopClient, CancelLeavesAProgramThatStaysInTheForeground) {
    const QString done = folder.filePath("done");
    MakeProgram("sleep 1; : > '" + done + "'");
    Open("2");
    form->txtText1->setPlainText("text");
    QTimer::singleShot(200, [&] { QTest::mouseClick(form->cmdCancel, Qt::LeftButton); });
    Send();
    EXPECT_FALSE(QFile::exists(done)) << "waited for";
    EXPECT_TRUE(!form->isVisible() && dialog.shown.empty());
    EXPECT_EQ(draft.fields["txtText1"], "text");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(done); })) << "the program was taken away from the user";
}

}  // namespace
}  // namespace kelu
