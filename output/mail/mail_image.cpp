// The E-mail command.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_image.h"

#include "document/commands.h"
#include "output/mail/frm_email.h"
#include "platform/private_folder.h"
#include "platform/run_beside.h"
#include "platform/temporary_folder.h"

namespace kelu {

namespace {

// Image pixels: the width of the picture that is sent.
constexpr int kUprightWidth = 600;
constexpr int kWidth = 800;

}  // namespace

MailImage::MailImage(const Surface& picCanvas, SharedState& state, MsgDialog& dialog,
                     std::function<void(const QString&)> showForm, std::function<NetworkState()> network)
    : picCanvas_(picCanvas),
      state_(state),
      dialog_(dialog),
      showForm_(std::move(showForm)),
      connection_(std::move(network)) {}

void MailImage::cmdEmail_Click() {
    Check4InternetConnection();
    if (state_.InternetConnected && Enabled(Command::Email, state_)) EmailPhoto();
}

void MailImage::Check4InternetConnection() {
    RunShowingErrors(dialog_, [&] {
        connection_.Refresh();
        state_.InternetConnected = connection_.IsConnected();
    });
}

void MailImage::EmailPhoto() {
    RunShowingErrors(dialog_, [&] {
        const QString attachment = TemporaryFolder() + QStringLiteral("/Kelu.jpg");
        const QImage picture = picCanvas_.Picture();
        const Metadata told = WithoutPlace(picCanvas_.Told());
        RunBeside([&] {
            Surface picEmail;
            picEmail.SetPicture(picture, told);
            picEmail.ResizeImage(picture.height() > picture.width() ? kUprightWidth : kWidth, 0);
            MakePrivateFile(attachment);
            picEmail.SaveFile(attachment);
        });
        showForm_(attachment);
    });
}

QString ShowEmailForm(const QString& attachment, Settings& settings, MsgDialog& dialog, MailDraft& draft,
                      QWidget* parent) {
    SmtpSender smtp;
    DesktopMailClient client;
    frmEmail form(smtp, client, dialog, settings, attachment, draft, MailPorts(), parent);
    return form.exec() == QDialog::Accepted ? form.SentText() : QString();
}

}  // namespace kelu
