// The E-mail command: the open picture as a JPEG attachment of a handy size, and the dialog that sends it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

#include "canvas/surface.h"
#include "document/settings.h"
#include "document/shared_state.h"
#include "output/mail/mail_draft.h"
#include "platform/msg_dialog.h"
#include "platform/win_inet_connection.h"

class QWidget;

namespace kelu {

class MailImage {
 public:
    /// `showForm` shows the e-mail dialog modally for the attachment at the path.
    MailImage(const Surface& picCanvas, SharedState& state, MsgDialog& dialog,
              std::function<void(const QString& attachment)> showForm,
              std::function<NetworkState()> network = ReadNetworkState);

    /// The command's button: nothing happens without a network or while the camera runs.
    void cmdEmail_Click();
    /// Sets InternetConnected; contacts nobody.
    void Check4InternetConnection();
    void EmailPhoto();

 private:
    const Surface& picCanvas_;
    SharedState& state_;
    MsgDialog& dialog_;
    std::function<void(const QString& attachment)> showForm_;
    CWinInetConnection connection_;
};

/// Shows frmEmail with its real carriers. `dialog` shows the form's messages. What became of the e-mail; empty when it
/// was not sent.
QString ShowEmailForm(const QString& attachment, Settings& settings, MsgDialog& dialog, MailDraft& draft,
                      QWidget* parent);

}  // namespace kelu
