// The user's own mail program, through the desktop's xdg-email.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_client.h"

#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

namespace {

/// Statuses of xdg-email.
enum Status { kHandedOver = 0, kFileMissing = 2, kNoClient = 3 };

[[noreturn]] void Fail(const QString& reason) { throw Error(kMailFailed, reason, QStringLiteral("SendMessage")); }

}  // namespace

void DesktopMailClient::SignOn() {
    program_ = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (program_.isEmpty()) Fail(QStringLiteral("This desktop has no way to open a mail program (xdg-email)"));
}

void DesktopMailClient::SendMessage(const ClientMessage& message) {
    QStringList arguments{QStringLiteral("--utf8"), QStringLiteral("--subject"), OneLine(message.MsgSubject),
                          QStringLiteral("--body"), message.MsgNoteText,         QStringLiteral("--attach"),
                          message.AttachmentPath};
    // As an address of its own scheme, which no text can turn into an option.
    const QString recipient = OneLine(message.RecipientAddress);
    if (!recipient.isEmpty())
        arguments.append(QStringLiteral("mailto:") +
                         QString::fromLatin1(QUrl::toPercentEncoding(recipient, QByteArrayLiteral("@,"))));

    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, [&](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) loop.quit();
    });
    process.start(program_, arguments);
    if (process.state() != QProcess::NotRunning) loop.exec();
    if (process.error() == QProcess::FailedToStart) Fail(process.errorString());
    if (process.exitStatus() != QProcess::NormalExit) Fail(QStringLiteral("The mail program could not be opened"));
    switch (process.exitCode()) {
        case kHandedOver:
            return;
        case kFileMissing:
            Fail(message.AttachmentPath + QStringLiteral(": the file is missing"));
        case kNoClient:
            Fail(QStringLiteral("No mail program is set up on this system"));
        default:
            Fail(QStringLiteral("The mail program could not be opened"));
    }
}

}  // namespace kelu
