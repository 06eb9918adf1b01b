// The e-mail dialog: two frames, of which the setting of the way of sending shows one, and the three ways.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <optional>

#include "document/settings.h"
#include "output/mail/account_password.h"
#include "output/mail/mail_client.h"
#include "output/mail/mail_draft.h"
#include "output/mail/smtp_sender.h"
#include "output/output_settings.h"
#include "platform/msg_dialog.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace kelu {

class XP_ProgressBar;

/// Where the two SMTP ways deliver.
struct MailPorts {
    int delivery = 25;  ///< of recipients' own servers
    QString accountHost = QStringLiteral("smtp.gmail.com");
    int account = 465;
};

class frmEmail : public QDialog {
    Q_OBJECT

 public:
    /// Reads the settings and the draft. `attachment` is the path of the file that goes along.
    frmEmail(SmtpSender& smtp, MailClient& client, MsgDialog& dialog, Settings& settings, const QString& attachment,
             MailDraft& draft, const MailPorts& ports = MailPorts(), QWidget* parent = nullptr);

    void LoadMySettings();
    void SaveMySettings();

    /// Delivery to each recipient's own mail server. Ends with the dialog closed, unless the recipient is refused.
    void SendviaKelumail();
    /// The user's own mail program; the dialog closes when that has taken the message.
    void SendviaMAPI();
    /// The user's mail account. As the first way.
    void SendviaGmail();
    /// What became of the message that was sent, for the user.
    QString SentText() const;

    QGroupBox* FrameEmail;
    QLineEdit* txtFrom1;
    QLineEdit* txtTo1;
    QLineEdit* txtSubject1;
    QPlainTextEdit* txtText1;
    QGroupBox* FrameGmail;
    QLineEdit* txtFrom2;
    QLineEdit* txtTo2;
    QLineEdit* txtCC2;
    QLineEdit* txtSubject2;
    QPlainTextEdit* txtText2;
    QLabel* lblWaiting;  ///< while a message is on its way
    XP_ProgressBar* pBar1;
    QPushButton* cmdSend;
    QPushButton* cmdCancel;

    /// Escape and the close button. A message on its way is not stopped; a mail program that keeps the dialog waiting
    /// is waited for no longer.
    void reject() override;

 protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void MakeFrameEmail();
    void MakeFrameGmail();
    void Send();
    /// Tells when `valid` is false.
    bool AddressesRefused(bool valid);
    QList<QWidget*> Fields() const;
    static QString TextOf(const QWidget* field);
    void ReadDraft();
    void KeepDraft(bool sent);
    void SetSending(bool sending);
    void SendAndUnload(const std::function<void()>& send);
    void ShowProgress(qint64 sent, qint64 total);

    SmtpSender& smtp_;
    MailClient& client_;
    MsgDialog& dialog_;
    Settings& settings_;
    AccountPassword password_;
    const QString attachment_;
    MailDraft& draft_;
    const MailPorts ports_;
    std::optional<MailMethod> method_;  ///< none: the setting holds an unknown one
    QString txtUserName2_;              ///< of the account
    QString txtPassword2_;              ///< of the account, readable
    bool sending_ = false;
    bool withClient_ = false;  ///< SendviaMAPI is waiting
};

}  // namespace kelu
