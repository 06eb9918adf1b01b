// The e-mail dialog and the three ways of sending.
// SPDX-License-Identifier: MIT
#include "output/mail/frm_email.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/progress_bar/xp_progress_bar.h"
#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"
#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "output/pdf/product.h"
#include "platform/error.h"
#include "platform/units.h"

namespace kelu {

namespace {

// The settings' values for the ways of sending.

const QString kFirstSubject = QStringLiteral("Kelu");

// Twips.
constexpr int kFieldWidth = 6000;
constexpr int kTextHeight = 2100;

QString BodyWithProduct(const QString& text, const QString& way) {
    return text +
           QStringLiteral(
               "\r\n\r\nThe attached image was created by and emailed from Kelu%1. For more details, please visit %2")
               .arg(way, QLatin1String(kProductPage));
}

}  // namespace

frmEmail::frmEmail(SmtpSender& smtp, MailClient& client, MsgDialog& dialog, Settings& settings,
                   const QString& attachment, MailDraft& draft, const MailPorts& ports, QWidget* parent)
    : QDialog(parent),
      smtp_(smtp),
      client_(client),
      dialog_(dialog),
      settings_(settings),
      password_(settings),
      attachment_(attachment),
      draft_(draft),
      ports_(ports) {
    setWindowTitle(tr("E-mail"));
    MakeFrameEmail();
    MakeFrameGmail();
    lblWaiting = new QLabel(tr("Waiting for the mail server"), this);
    lblWaiting->hide();
    pBar1 = new XP_ProgressBar(this);
    pBar1->setObjectName(QStringLiteral("pBar1"));
    pBar1->SetBackColor(ToColorRef(theme::kSunken));
    // Its place stays free while it is hidden, so that nothing moves under the pointer.
    QSizePolicy keepsPlace = pBar1->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    pBar1->setSizePolicy(keepsPlace);
    pBar1->hide();
    cmdSend = new QPushButton(tr("Send"), this);
    cmdSend->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    for (QPushButton* button : {cmdSend, cmdCancel})
        button->setMinimumSize(theme::kButtonMinWidth, theme::kButtonHeight);

    QVBoxLayout* body = MakeDialogFrame(*this);
    body->addWidget(FrameEmail);
    body->addWidget(FrameGmail);
    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(theme::kSpacing);
    bottom->addWidget(lblWaiting);
    bottom->addWidget(pBar1, 1);
    bottom->addSpacing(theme::kMargin);
    bottom->addWidget(cmdSend);
    bottom->addWidget(cmdCancel);
    body->addLayout(bottom);

    connect(cmdSend, &QPushButton::clicked, this, &frmEmail::Send);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEmail::reject);
    connect(&smtp_, &SmtpSender::Progress, this, &frmEmail::ShowProgress);
    LoadMySettings();
    ReadDraft();
}

namespace {

/// One frame's rows of fields with labels above each other.
class FrameBuilder {
 public:
    FrameBuilder(QWidget* form, const QString& name, const QString& caption)
        : form_(form), frame_(new QGroupBox(form)) {
        frame_->setObjectName(name);
        frame_->setTitle(caption);
        rows_ = new QFormLayout(frame_);
        rows_->setHorizontalSpacing(theme::kMargin);
        rows_->setVerticalSpacing(theme::kSpacing);
        rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    }

    QGroupBox* Frame() const { return frame_; }

    QLineEdit* AddField(const QString& name, const QString& label) {
        auto* field = new QLineEdit(frame_);
        field->setMinimumWidth(TwipsToPixels(kFieldWidth));
        Add(field, name, label);
        return field;
    }
    QPlainTextEdit* AddText(const QString& name, const QString& label) {
        auto* field = new QPlainTextEdit(frame_);
        field->setTabChangesFocus(true);
        field->setFixedHeight(TwipsToPixels(kTextHeight));
        Add(field, name, label);
        return field;
    }

 private:
    void Add(QWidget* field, const QString& name, const QString& label) {
        field->setObjectName(name);
        field->setAccessibleName(label);
        field->installEventFilter(form_);
        rows_->addRow(FieldLabel(label, *field), field);
    }

    QWidget* form_;
    QGroupBox* frame_;
    QFormLayout* rows_;
};

}  // namespace

void frmEmail::MakeFrameEmail() {
    FrameBuilder builder(this, QStringLiteral("FrameEmail"), tr("E-mail Image"));
    FrameEmail = builder.Frame();
    txtFrom1 = builder.AddField(QStringLiteral("txtFrom1"), tr("From"));
    txtTo1 = builder.AddField(QStringLiteral("txtTo1"), tr("To"));
    txtSubject1 = builder.AddField(QStringLiteral("txtSubject1"), tr("Subject"));
    txtText1 = builder.AddText(QStringLiteral("txtText1"), tr("Message"));
    txtSubject1->setText(kFirstSubject);
}

void frmEmail::MakeFrameGmail() {
    FrameBuilder builder(this, QStringLiteral("FrameGmail"), tr("E-Mail Image via Google Mail (TM)"));
    FrameGmail = builder.Frame();
    txtFrom2 = builder.AddField(QStringLiteral("txtFrom2"), tr("From"));
    txtTo2 = builder.AddField(QStringLiteral("txtTo2"), tr("To"));
    txtCC2 = builder.AddField(QStringLiteral("txtCC2"), tr("CC (Courtesy Copy)"));
    txtSubject2 = builder.AddField(QStringLiteral("txtSubject2"), tr("Subject"));
    txtText2 = builder.AddText(QStringLiteral("txtText2"), tr("Message"));
    txtSubject2->setText(kFirstSubject);
}

void frmEmail::LoadMySettings() {
    RunShowingErrors(dialog_, [&] {
        method_ = settings_.Read(settings::kMailMethod);
        const bool isAccount = method_ == MailMethod::Account;
        FrameEmail->setVisible(!isAccount);
        FrameGmail->setVisible(isAccount);
        if (method_ == MailMethod::Client) txtFrom1->setText(settings_.Read(settings::kMailSender));
        if (!isAccount) return;
        txtUserName2_ = settings_.Read(settings::kAccountUser);
        txtFrom2->setText(txtUserName2_);
        txtTo2->setText(settings_.Read(settings::kAccountRecipient));
        txtPassword2_ = password_.FromSettings();
    });
}

void frmEmail::SaveMySettings() {
    RunShowingErrors(dialog_, [&] { settings_.Write(settings::kAccountRecipient, txtTo2->text()); });
}

void frmEmail::Send() {
    if (sending_) return;
    if (method_ == MailMethod::OwnDelivery) SendviaKelumail();
    if (method_ == MailMethod::Client) SendviaMAPI();
    if (method_ == MailMethod::Account) SendviaGmail();
}

QList<QWidget*> frmEmail::Fields() const {
    return {txtFrom1, txtTo1, txtSubject1, txtText1, txtFrom2, txtTo2, txtCC2, txtSubject2, txtText2};
}

QString frmEmail::TextOf(const QWidget* field) {
    const auto* line = qobject_cast<const QLineEdit*>(field);
    return line != nullptr ? line->text() : qobject_cast<const QPlainTextEdit*>(field)->toPlainText();
}

void frmEmail::ReadDraft() {
    if (!draft_.method || draft_.method != method_) return;
    for (QWidget* field : Fields()) {
        const QString text = draft_.fields.value(field->objectName());
        if (auto* line = qobject_cast<QLineEdit*>(field)) line->setText(text);
        if (auto* lines = qobject_cast<QPlainTextEdit*>(field)) lines->setPlainText(text);
    }
}

void frmEmail::KeepDraft(bool sent) {
    draft_ = MailDraft();
    if (sent) return;
    draft_.method = method_;
    for (const QWidget* field : Fields()) draft_.fields[field->objectName()] = TextOf(field);
}

bool frmEmail::AddressesRefused(bool valid) {
    if (valid) return false;
    dialog_.ShowMessage({tr("Error"),
                         tr("The following error(s) have occured:\r\n\r\n"
                            "No e-mail address or an invalid e-mail address has been entered.\r\n"),
                         MsgIcon::Error});
    return true;
}

/// From here to the end of the dialog nothing in it can be used.
void frmEmail::SetSending(bool sending) {
    sending_ = sending;
    for (QWidget* widget : std::initializer_list<QWidget*>{cmdCancel, cmdSend, FrameEmail, FrameGmail})
        widget->setEnabled(!sending);
    lblWaiting->setVisible(sending);
    if (!sending) pBar1->hide();
}

void frmEmail::SendAndUnload(const std::function<void()>& send) {
    const bool sent = RunShowingErrors(dialog_, [&] {
        send();
        lblWaiting->hide();
        QCoreApplication::processEvents();
        dialog_.ShowMessage({tr("Information"), tr("E-mail Sent!\r\n"), MsgIcon::Information});
    });
    if (!sent) smtp_.Disconnect();
    KeepDraft(sent);
    SetSending(false);
    done(sent ? Accepted : Rejected);
}

void frmEmail::SendviaKelumail() {
    if (AddressesRefused(ValidEmailAddress(txtTo1->text()))) return;
    MailMessage message;
    message.From = txtFrom1->text();
    message.Subject = txtSubject1->text();
    message.To = txtTo1->text();
    message.Body = BodyWithProduct(txtText1->toPlainText(), QString());
    message.AddAttachment(attachment_);
    SetSending(true);
    SendAndUnload([&] {
        const QStringList recipients = txtTo1->text().split(u';');
        for (const QString& recipient : recipients) {
            smtp_.SetHosts(smtp_.MailHostOf(recipient));
            smtp_.SetPort(ports_.delivery);
            smtp_.SetConnectionMode(SmtpSender::kPlain);
            smtp_.Send(message);
        }
    });
}

void frmEmail::SendviaGmail() {
    const QString copies = txtCC2->text();
    const bool copiesValid = copies.trimmed().isEmpty() || ValidMailList(copies);
    if (AddressesRefused(ValidEmailAddress(txtTo2->text()) && copiesValid)) return;
    MailMessage message;
    message.From = txtFrom2->text();
    message.To = txtTo2->text();
    message.CC = copies;
    message.Subject = txtSubject2->text();
    message.Body = BodyWithProduct(txtText2->toPlainText(), QStringLiteral(" via Gmail"));
    message.AddAttachment(attachment_);
    smtp_.SetHost(ports_.accountHost);
    smtp_.SetPort(ports_.account);
    smtp_.SetConnectionMode(SmtpSender::kSecure);
    smtp_.SetUserName(txtUserName2_);
    SaveMySettings();
    SetSending(true);
    SendAndUnload([&] {
        if (password_.InStore()) txtPassword2_ = password_.Read();
        smtp_.SetPassword(txtPassword2_);
        smtp_.Send(message);
    });
}

void frmEmail::SendviaMAPI() {
    sending_ = withClient_ = true;
    bool sent = false, cancelled = false;
    try {
        client_.SignOn();
        client_.SendMessage({txtSubject1->text(), BodyWithProduct(txtText1->toPlainText(), QString()), txtFrom1->text(),
                             txtTo1->text(), attachment_});
        client_.SignOff();
        settings_.Write(settings::kMailSender, txtFrom1->text());
        sent = true;
    } catch (const std::exception& error) {
        const auto* mailError = dynamic_cast<const Error*>(&error);
        const int number = mailError != nullptr ? mailError->Number() : 0;
        cancelled = number == kMailCancelled;
        if (!cancelled && number != kMailNoLogon) {
            ShowStandardError(dialog_, error);
            Attempt([&] { client_.SignOff(); });
        }
    }
    KeepDraft(sent);
    const bool left = cancelled && !withClient_;
    sending_ = withClient_ = false;
    if (left) QDialog::reject();
    if (!sent) return;
    QCoreApplication::processEvents();
    accept();
}

QString frmEmail::SentText() const {
    if (method_ == MailMethod::Client) return tr("The e-mail is on its way: send it from your mail program");
    return tr("The e-mail is on its way to %1").arg((method_ == MailMethod::Account ? txtTo2 : txtTo1)->text());
}

void frmEmail::ShowProgress(qint64 sent, qint64 total) {
    if (total <= 0) return;
    const double percent = static_cast<double>(sent) * 100 / static_cast<double>(total);
    if (percent >= 100) {
        pBar1->hide();
    } else {
        pBar1->SetValue(RoundToEven(percent));
        pBar1->show();
    }
}

void frmEmail::reject() {
    if (!sending_) return QDialog::reject();
    if (!withClient_) return;
    withClient_ = false;  // the dialog goes once the client's waiting has ended
    client_.Cancel();
}

void frmEmail::closeEvent(QCloseEvent* event) {
    if (!sending_) return QDialog::closeEvent(event);
    event->ignore();
    reject();
}

bool frmEmail::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        // Behind the press that gave the focus, which would take the selection away again.
        QTimer::singleShot(0, watched, [watched] {
            if (auto* field = qobject_cast<QLineEdit*>(watched)) field->selectAll();
            if (auto* text = qobject_cast<QPlainTextEdit*>(watched)) text->selectAll();
        });
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace kelu
