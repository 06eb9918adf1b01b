// The user's own mail program, through the desktop's xdg-email.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_client.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <memory>

#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::MailClient)
};

/// Statuses of xdg-email.
enum Status { kHandedOver = 0, kFileMissing = 2, kNoClient = 3 };

[[noreturn]] void Fail(const QString& reason) { throw Error(kMailFailed, reason, QStringLiteral("SendMessage")); }

}  // namespace

void DesktopMailClient::SignOn() {
    program_ = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (program_.isEmpty()) Fail(Texts::tr("This desktop has no way to open a mail program (xdg-email)"));
}

void DesktopMailClient::SendMessage(const ClientMessage& message) {
    // xdg-email makes line ends of its own from plain ones.
    const QString text = QString(message.MsgNoteText).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QStringList arguments{QStringLiteral("--utf8"),
                          QStringLiteral("--subject"),
                          OneLine(message.MsgSubject),
                          QStringLiteral("--body"),
                          text,
                          QStringLiteral("--attach"),
                          message.AttachmentPath};
    // As an address of its own scheme, which no text can turn into an option.
    const QString recipient = OneLine(message.RecipientAddress);
    if (!recipient.isEmpty())
        arguments.append(QStringLiteral("mailto:") +
                         QString::fromLatin1(QUrl::toPercentEncoding(recipient, QByteArrayLiteral("@,"))));

    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    QEventLoop loop;
    QObject::connect(process.get(), &QProcess::finished, &loop, &QEventLoop::quit);
    process->start(program_, arguments);
    if (!process->waitForStarted()) Fail(process->errorString());
    cancelled_ = false;
    waiting_ = &loop;
    if (process->state() != QProcess::NotRunning) loop.exec();
    waiting_ = nullptr;
    if (cancelled_) {
        // Left to itself: its end would take the client along.
        QProcess* const abandoned = process.release();
        QObject::connect(abandoned, &QProcess::finished, abandoned, &QObject::deleteLater);
        throw Error(kMailCancelled, Texts::tr("Sending was cancelled"), QStringLiteral("SendMessage"));
    }
    if (process->exitStatus() != QProcess::NormalExit) Fail(Texts::tr("The mail program could not be opened"));
    switch (process->exitCode()) {
        case kHandedOver:
            return;
        case kFileMissing:
            Fail(Texts::tr("%1: the file is missing").arg(message.AttachmentPath));
        case kNoClient:
            Fail(Texts::tr("No mail program is set up on this system"));
        default:
            Fail(Texts::tr("The mail program could not be opened"));
    }
}

void DesktopMailClient::Cancel() {
    if (waiting_ == nullptr) return;
    cancelled_ = true;
    waiting_->quit();
}

}  // namespace kelu
