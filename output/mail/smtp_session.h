// One delivery of a message by SMTP, blocking: for a worker thread.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <atomic>
#include <functional>
#include <vector>

#include "output/mail/mail_host_lookup.h"

namespace kelu {

struct SmtpDelivery {
    std::vector<MailHost> hosts;  ///< tried in order until one can be talked to
    int port = 25;
    /// True: encrypted from the first byte, certificate and host name verified. False: encrypted when the server
    /// offers it, without verification, since a mail exchanger's name proves nothing.
    bool encrypted = false;
    QString userName, password;  ///< empty: no log-in
    QString certificates;        ///< file of trusted certificates; empty: the system's
    int timeoutMs = 60'000;      ///< of silence, in whatever phase
    QByteArray sender;
    QList<QByteArray> recipients;
    QByteArray text;
};

/// Returns when a server has taken the message for all recipients; throws Error(kMailFailed) if none did, or
/// Error(kMailCancelled) within a second or two after `cancelled` turned true. `progress` is called on this thread
/// with the bytes of the text that are sent and all of them.
void DeliverBySmtp(const SmtpDelivery& delivery, const std::atomic<bool>& cancelled,
                   const std::function<void(qint64 sent, qint64 total)>& progress);

}  // namespace kelu
