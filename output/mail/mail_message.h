// A message and its form on the wire.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace kelu {

class MailMessage {
 public:
    QString From;  ///< one address, may have a name, may be empty
    QString To;    ///< addresses parted by commas or semicolons
    QString CC;
    QString Subject;
    QString Body;  ///< lines may end in CR LF or LF

    /// The file goes along as an attachment; it is read by Text().
    void AddAttachment(const QString& path) { attachments_.append(path); }

    /// Addresses of the envelope; an invalid sender counts as none. Recipients throws Error(kMailFailed) for an invalid
    /// one.
    QByteArray Sender() const;
    QList<QByteArray> Recipients() const;

    /// The whole message, headers in UTF-8 encoded words, lines ending in CR LF and no longer than 78 bytes but for
    /// addresses. Throws Error(kFileError) when an attachment can't be read.
    QByteArray Text(const QDateTime& date = QDateTime::currentDateTime()) const;

 private:
    QStringList attachments_;
};

}  // namespace kelu
