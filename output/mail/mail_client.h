// The user's own mail program: opens its compose window with everything filled in.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QEventLoop;

namespace kelu {

struct ClientMessage {
    QString MsgSubject;
    QString MsgNoteText;
    QString RecipientName;
    QString RecipientAddress;
    QString AttachmentPath;
};

/// Failures are thrown as Error with the numbers of mail_error.h.
class MailClient {
 public:
    virtual ~MailClient() = default;
    virtual void SignOn() = 0;
    /// Shows the compose window and returns when the client has taken the message over. Runs events meanwhile.
    virtual void SendMessage(const ClientMessage& message) = 0;
    virtual void SignOff() = 0;
    /// Ends the waiting in SendMessage, which then throws Error(kMailCancelled). What the client shows stays: the user
    /// may be writing there.
    virtual void Cancel() = 0;
};

/// The client that the desktop has set up, through xdg-email. It takes no name for the recipient.
class DesktopMailClient : public MailClient {
 public:
    void SignOn() override;
    void SendMessage(const ClientMessage& message) override;
    void SignOff() override {}
    void Cancel() override;

 private:
    QString program_;
    QEventLoop* waiting_ = nullptr;  ///< in SendMessage
    bool cancelled_ = false;
};

}  // namespace kelu
