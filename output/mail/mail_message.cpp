// A message and its form on the wire: MIME, one text part and the attachments.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_message.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>
#include <QRandomGenerator>
#include <QUrl>
#include <algorithm>

#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

namespace {

constexpr int kLineLength = 76;          // characters of an encoded body line
constexpr int kWordBytes = 42;           // of text in one encoded word, which then stays below 75 characters
constexpr int kLongestPlainHeader = 60;  // a longer one is folded, by encoded words

bool IsPlain(const QString& text) {
    return text.size() <= kLongestPlainHeader && !text.contains(QLatin1String("=?")) &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c <= u'~'; });
}

QByteArray EncodedWords(const QString& text) {
    QByteArray words, bytes;
    const auto finish = [&] {
        if (!words.isEmpty()) words += "\r\n ";
        words += "=?UTF-8?B?" + bytes.toBase64() + "?=";
        bytes.clear();
    };
    for (const char32_t code : text.toStdU32String()) {
        const QByteArray character = QString::fromUcs4(&code, 1).toUtf8();
        if (bytes.size() + character.size() > kWordBytes) finish();
        bytes += character;
    }
    finish();
    return words;
}

QByteArray HeaderText(const QString& text) {
    const QString line = OneLine(text);
    return IsPlain(line) ? line.toLatin1() : EncodedWords(line);
}

QByteArray Quoted(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\""));
    return ('"' + escaped + '"').toLatin1();
}

/// The address with its domain as name servers know it.
QByteArray WireAddress(const QString& address) {
    const qsizetype at = address.lastIndexOf(u'@');
    if (at < 0) return {};
    const QString domain = MailDomain(address);
    return (address.left(at + 1) + (domain.isEmpty() ? address.mid(at + 1) : domain)).toUtf8();
}

QByteArray Phrase(const QString& name) { return IsPlain(name) ? Quoted(name) : EncodedWords(name); }

QByteArray AddressHeader(const QString& text) {
    QByteArray header;
    for (const MailAddress& each : ParseAddresses(text)) {
        if (!header.isEmpty()) header += ",\r\n ";
        if (!each.name.isEmpty()) header += Phrase(each.name) + ' ';
        header += '<' + WireAddress(each.address) + '>';
    }
    return header;
}

/// A message needs an author; where the field names none by an address, it is a group without members, which may stand
/// in the place of one.
QByteArray AuthorHeader(const QString& text) {
    if (ValidMailList(text)) return AddressHeader(text);
    const QString name = OneLine(text);
    return Phrase(name.isEmpty() ? QStringLiteral("Kelu") : name) + ":;";
}

QByteArray Token() { return QByteArray::number(QRandomGenerator::system()->generate64(), 16); }

QByteArray Hex(char byte) { return '=' + QByteArray(1, byte).toHex().toUpper(); }

/// Quoted-printable, which leaves plain text readable and keeps every line end.
QByteArray QuotedPrintable(const QString& text) {
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    QByteArray encoded;
    for (const QByteArray& line : lines.toUtf8().split('\n')) {
        qsizetype column = 0;
        for (qsizetype i = 0; i < line.size(); ++i) {
            const char c = line[i];
            const bool isBlank = c == ' ' || c == '\t';
            const bool plain = isBlank ? i + 1 < line.size() : c > ' ' && c <= '~' && c != '=';
            const QByteArray piece = plain ? QByteArray(1, c) : Hex(c);
            if (column + piece.size() > kLineLength - 1) {
                encoded += "=\r\n";
                column = 0;
            }
            encoded += piece;
            column += piece.size();
        }
        encoded += "\r\n";
    }
    return encoded;
}

QByteArray Base64Lines(const QByteArray& bytes) {
    const QByteArray encoded = bytes.toBase64();
    QByteArray lines;
    lines.reserve(encoded.size() + encoded.size() / kLineLength * 2 + 2);
    for (qsizetype i = 0; i < encoded.size(); i += kLineLength) lines += encoded.mid(i, kLineLength) + "\r\n";
    return lines;
}

QByteArray FileNameParameter(const QString& name) {
    const QString line = OneLine(name);
    if (IsPlain(line)) return "filename=" + Quoted(line);
    return "filename*=UTF-8''" + QUrl::toPercentEncoding(line);
}

QByteArray AttachmentPart(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(kFileError, path + QStringLiteral(": ") + file.errorString(), QStringLiteral("MailMessage"));
    const QString type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension).name();
    return "Content-Type: " + type.toLatin1() +
           "\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment;" + "\r\n " +
           FileNameParameter(QFileInfo(path).fileName()) + "\r\n\r\n" + Base64Lines(file.readAll());
}

}  // namespace

QByteArray MailMessage::Sender() const {
    const std::vector<MailAddress> addresses = ParseAddresses(From);
    const bool valid = !addresses.empty() && ValidEmailAddress(addresses.front().address);
    return valid ? WireAddress(addresses.front().address) : QByteArray();
}

QList<QByteArray> MailMessage::Recipients() const {
    QList<QByteArray> recipients;
    for (const QString& list : {To, CC})
        for (const MailAddress& each : ParseAddresses(list)) {
            if (!ValidEmailAddress(each.address))
                throw Error(kMailFailed,
                            QCoreApplication::translate("kelu::MailMessage", "\"%1\" is no mail address")
                                .arg(each.address.isEmpty() ? each.name : each.address),
                            QStringLiteral("MailMessage"));
            const QByteArray address = WireAddress(each.address);
            if (!recipients.contains(address)) recipients.append(address);
        }
    return recipients;
}

QByteArray MailMessage::Text(const QDateTime& date) const {
    const QByteArray boundary = "=_kelu_" + Token();
    const QString domain = MailDomain(QString::fromUtf8(Sender()));
    QByteArray text;
    text += "Date: " + QLocale::c().toString(date, QStringLiteral("ddd, d MMM yyyy HH:mm:ss ")).toLatin1() +
            date.toString(Qt::RFC2822Date).right(5).toLatin1() + "\r\n";
    text += "Message-ID: <" + Token() + Token() + '@' + (domain.isEmpty() ? "localhost" : domain.toLatin1()) + ">\r\n";
    text += "From: " + AuthorHeader(From) + "\r\n";
    text += "To: " + AddressHeader(To) + "\r\n";
    const QByteArray copies = AddressHeader(CC);
    if (!copies.isEmpty()) text += "Cc: " + copies + "\r\n";
    text += "Subject: " + HeaderText(Subject) + "\r\n";
    text += "MIME-Version: 1.0\r\nContent-Type: multipart/mixed;\r\n boundary=\"" + boundary + "\"\r\n\r\n";
    text += "--" + boundary +
            "\r\nContent-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: quoted-printable\r\n\r\n" +
            QuotedPrintable(Body);
    for (const QString& path : attachments_) text += "--" + boundary + "\r\n" + AttachmentPart(path);
    return text + "--" + boundary + "--\r\n";
}

}  // namespace kelu
