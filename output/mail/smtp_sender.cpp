// Sends mail while the window stays alive.
// SPDX-License-Identifier: MIT
#include "output/mail/smtp_sender.h"

#include <QScopedValueRollback>

#include "output/mail/mail_error.h"
#include "platform/error.h"
#include "platform/pool_job.h"

namespace kelu {

SmtpSender::SmtpSender(QObject* parent) : QObject(parent) {}

SmtpSender::~SmtpSender() = default;

void SmtpSender::RunMeanwhile(const std::function<void()>& work) {
    if (busy_) throw Error(kMailFailed, tr("A message is being sent already"), QStringLiteral("Send"));
    const QScopedValueRollback<bool> busy(busy_, true);
    work_.cancelled = false;
    try {
        RunBeside(work, UserInput::Let, &work_);
    } catch (const WorkCancelled&) {
        throw Error(kMailCancelled, tr("Sending was cancelled"), QStringLiteral("Send"));
    }
}

std::vector<MailHost> SmtpSender::MailHostOf(const QString& address) {
    std::vector<MailHost> hosts;
    RunMeanwhile([&] { hosts = FindMailHosts(address, nameServers_, work_.cancelled); });
    return hosts;
}

void SmtpSender::Send(const MailMessage& message) {
    SmtpDelivery delivery = delivery_;
    delivery.sender = message.Sender();
    delivery.recipients = message.Recipients();
    qint64 lastSent = 0;
    RunMeanwhile([&] {
        delivery.text = message.Text();
        DeliverBySmtp(delivery, work_.cancelled, [&](qint64 sent, qint64 total) {
            if (sent == lastSent || sent >= total) return;
            lastSent = sent;
            HandBack(this, [this, sent, total] { Q_EMIT Progress(sent, total); });
        });
    });
    Q_EMIT Progress(delivery.text.size(), delivery.text.size());
}

}  // namespace kelu
