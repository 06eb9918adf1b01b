// Sends mail while the window stays alive.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "output/mail/mail_host_lookup.h"
#include "output/mail/mail_message.h"
#include "output/mail/smtp_session.h"
#include "platform/run_beside.h"

namespace kelu {

/// The properties count for the next Send. Both operations work on a thread of their own and meanwhile run the
/// caller's events, so what could start a second one has to be disabled first; it would throw Error(kMailFailed).
class SmtpSender : public QObject {
    Q_OBJECT

 public:
    /// Values of ConnectionMode.
    static constexpr int kPlain = 0;   ///< encrypted when the server offers it
    static constexpr int kSecure = 2;  ///< encrypted and verified from the first byte

    explicit SmtpSender(QObject* parent = nullptr);
    ~SmtpSender() override;

    void SetHost(const QString& host) { delivery_.hosts = {{host, {}}}; }
    /// Servers to try in order, as MailHostOf gives them.
    void SetHosts(std::vector<MailHost> hosts) { delivery_.hosts = std::move(hosts); }
    void SetPort(int port) { delivery_.port = port; }
    void SetUserName(const QString& userName) { delivery_.userName = userName; }
    void SetPassword(const QString& password) { delivery_.password = password; }
    void SetConnectionMode(int mode) { delivery_.encrypted = mode == kSecure; }
    /// Milliseconds of silence after which a server counts as dead; 60000 at first.
    void SetTimeout(int milliseconds) { delivery_.timeoutMs = milliseconds; }
    /// Another file of trusted certificates and other name servers than the system's.
    void SetCertificates(const QString& path) { delivery_.certificates = path; }
    void SetNameServers(const NameServerOptions& options) { nameServers_ = options; }

    /// The mail servers that accept mail for one address, best first. Throws Error.
    std::vector<MailHost> MailHostOf(const QString& address);
    /// Returns when the message has gone; throws Error if not.
    void Send(const MailMessage& message);
    /// Ends a running operation, which then throws Error(kMailCancelled).
    void Disconnect() { work_.cancelled = true; }

 Q_SIGNALS:
    /// Bytes of the message; ends with both the same when the message has gone.
    void Progress(qint64 sent, qint64 total);

 private:
    void RunMeanwhile(const std::function<void()>& work);

    SmtpDelivery delivery_;
    NameServerOptions nameServers_;
    Work work_;
    bool busy_ = false;
};

}  // namespace kelu
