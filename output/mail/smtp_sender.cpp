// Sends mail while the window stays alive.
// SPDX-License-Identifier: MIT
#include "output/mail/smtp_sender.h"

#include <QEventLoop>
#include <QScopeGuard>
#include <QThread>
#include <exception>
#include <memory>

#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

SmtpSender::SmtpSender(QObject* parent) : QObject(parent) {}

SmtpSender::~SmtpSender() = default;

/// A nested event loop rather than pumping from the library's callbacks: those come up to a second apart.
void SmtpSender::RunMeanwhile(const std::function<void()>& work) {
    if (busy_) throw Error(kMailFailed, QStringLiteral("A message is being sent already"), QStringLiteral("Send"));
    busy_ = true;
    cancelled_ = false;
    std::exception_ptr failure;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    const auto end = qScopeGuard([&] { busy_ = false; });
    QEventLoop loop;
    connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    // The loop ends early only with the application.
    if (!thread->isFinished()) cancelled_ = true;
    thread->wait();
    if (failure) std::rethrow_exception(failure);
}

std::vector<MailHost> SmtpSender::MailHostOf(const QString& address) {
    std::vector<MailHost> hosts;
    RunMeanwhile([&] { hosts = FindMailHosts(address, nameServers_, cancelled_); });
    return hosts;
}

void SmtpSender::Send(const MailMessage& message) {
    SmtpDelivery delivery = delivery_;
    delivery.sender = message.Sender();
    delivery.recipients = message.Recipients();
    qint64 lastSent = 0;
    RunMeanwhile([&] {
        delivery.text = message.Text();
        DeliverBySmtp(delivery, cancelled_, [&](qint64 sent, qint64 total) {
            if (sent == lastSent || sent >= total) return;
            lastSent = sent;
            QMetaObject::invokeMethod(
                this, [this, sent, total] { Q_EMIT Progress(sent, total); }, Qt::QueuedConnection);
        });
    });
    Q_EMIT Progress(delivery.text.size(), delivery.text.size());
}

}  // namespace kelu
