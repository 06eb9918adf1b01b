// One delivery of a message by SMTP, over libcurl.
// SPDX-License-Identifier: MIT
#include "output/mail/smtp_session.h"

#include <curl/curl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <algorithm>
#include <cstring>
#include <memory>

#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::SmtpSender)
};

constexpr qsizetype kLongestReason = 300;  // characters of a refusal that are shown

struct FreeHandle {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using Handle = std::unique_ptr<CURL, FreeHandle>;
using List = std::unique_ptr<curl_slist, FreeHandle>;

void Append(List& list, const QByteArray& text) {
    curl_slist* longer = curl_slist_append(list.get(), text.constData());
    if (longer == nullptr) throw std::bad_alloc();
    static_cast<void>(list.release());
    list.reset(longer);
}

/// What a server said, fit for a message: of a reasonable length, and no address in it that a click would open.
QString Readable(const QByteArray& said) {
    static const QRegularExpression scheme(QStringLiteral("\\b[A-Za-z][A-Za-z0-9+.-]*://"));
    QString text = OneLine(QString::fromUtf8(said)).remove(scheme).simplified();
    if (text.size() > kLongestReason) text = text.left(kLongestReason) + QStringLiteral("\u2026");
    return text;
}

/// The server's last refusal, whole: each line repeats the code of the first, and often what stands behind it.
class Refusal {
 public:
    void Take(const QByteArray& line) {
        const QByteArray code = line.left(3);
        if (!(code.startsWith('4') || code.startsWith('5')) || line.size() < 4) return;
        const QByteArray rest = line.mid(4).trimmed();
        const QByteArray detail = rest.left(rest.indexOf(' ') + 1);
        if (!more_ || !text_.startsWith(code))
            text_ = code + ' ' + rest;
        else
            text_ += ' ' + (text_.startsWith(code + ' ' + detail) ? rest.mid(detail.size()) : rest);
        more_ = line[3] == '-';
    }
    const QByteArray& Text() const { return text_; }
    bool IsForGood() const { return text_.startsWith('5'); }

 private:
    QByteArray text_;
    bool more_ = false;  ///< the refusal goes on in the next line
};

/// One attempt with one server.
class Session {
 public:
    Session(const SmtpDelivery& delivery, const MailHost& host, const std::atomic<bool>& cancelled,
            const std::function<void(qint64, qint64)>& progress)
        : delivery_(delivery), host_(host), cancelled_(cancelled), progress_(progress) {}

    /// `encryption` is one of the library's CURLUSESSL numbers, which some of its releases have as an enumeration.
    CURLcode Run(long encryption) {
        Handle handle(curl_easy_init());
        if (!handle) throw std::bad_alloc();
        curl_ = handle.get();
        offset_ = sent_ = 0;
        refusal_ = Refusal();
        greeted_ = encrypting_ = silent_ = false;
        errorText_[0] = '\0';
        List resolved, recipients;
        SetServer(resolved);
        SetEncryption(encryption);
        SetEnvelope(recipients);
        SetLogin();
        SetCallbacks();
        sinceSign_.start();
        const CURLcode code = curl_easy_perform(curl_);
        errorText_[sizeof errorText_ - 1] = '\0';
        return code;
    }

    /// Whether the session broke off between the go-ahead for encryption and the first encrypted reply. The codes of
    /// such an end are many.
    bool EncryptionFailed(CURLcode code) const { return code != CURLE_OK && encrypting_; }

    /// Whether another server may be asked: nothing was sent, and no server refused the message for good.
    bool MayTryNext() const { return offset_ == 0 && !refusal_.IsForGood(); }

    QString Reason(CURLcode code) const {
        if (!refusal_.Text().isEmpty()) return Readable(refusal_.Text());
        if (silent_) return Texts::tr("The mail server does not answer");
        const QString text = Readable(errorText_);
        return text.isEmpty() ? QString::fromLatin1(curl_easy_strerror(code)) : text;
    }

 private:
    /// Where `resolved` names the host's addresses; it has to live as long as the session, as in SetEnvelope.
    void SetServer(List& resolved) {
        const QByteArray scheme = delivery_.encrypted ? "smtps" : "smtp";
        const QByteArray url = scheme + "://" + host_.name.toLatin1() + ':' + QByteArray::number(delivery_.port);
        Set(CURLOPT_URL, url.constData());
        Set(CURLOPT_PROTOCOLS_STR, "smtp,smtps");
        if (host_.addresses.isEmpty()) return;
        QStringList numbers;
        for (const QString& address : host_.addresses)
            numbers.append(address.contains(u':') ? u'[' + address + u']' : address);
        Append(resolved, (host_.name + u':' + QString::number(delivery_.port) + u':' + numbers.join(u',')).toLatin1());
        Set(CURLOPT_RESOLVE, resolved.get());
    }
    void SetEncryption(long encryption) {
        Set(CURLOPT_USE_SSL, encryption);
        Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
        Set(CURLOPT_SSL_VERIFYPEER, delivery_.encrypted ? 1L : 0L);
        Set(CURLOPT_SSL_VERIFYHOST, delivery_.encrypted ? 2L : 0L);
        if (!delivery_.certificates.isEmpty()) Set(CURLOPT_CAINFO, delivery_.certificates.toLocal8Bit().constData());
    }
    void SetEnvelope(List& recipients) {
        Set(CURLOPT_MAIL_FROM, ('<' + delivery_.sender + '>').constData());
        for (const QByteArray& recipient : delivery_.recipients) Append(recipients, '<' + recipient + '>');
        Set(CURLOPT_MAIL_RCPT, recipients.get());
        Set(CURLOPT_UPLOAD, 1L);
        Set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(delivery_.text.size()));
    }
    void SetLogin() {
        if (delivery_.userName.isEmpty()) return;
        Set(CURLOPT_USERNAME, delivery_.userName.toUtf8().constData());
        Set(CURLOPT_PASSWORD, delivery_.password.toUtf8().constData());
    }
    void SetCallbacks() {
        Set(CURLOPT_NOSIGNAL, 1L);
        Set(CURLOPT_ERRORBUFFER, errorText_);
        Set(CURLOPT_READFUNCTION, &Session::GiveText);
        Set(CURLOPT_READDATA, this);
        Set(CURLOPT_HEADERFUNCTION, &Session::TakeReply);
        Set(CURLOPT_HEADERDATA, this);
        Set(CURLOPT_NOPROGRESS, 0L);
        Set(CURLOPT_XFERINFOFUNCTION, &Session::TellProgress);
        Set(CURLOPT_XFERINFODATA, this);
        Set(CURLOPT_SOCKOPTFUNCTION, &Session::TakeSocket);
        Set(CURLOPT_SOCKOPTDATA, this);
        Set(CURLOPT_CLOSESOCKETFUNCTION, &Session::CloseSocket);
        Set(CURLOPT_CLOSESOCKETDATA, this);
        // The library measures each phase by itself. One clock of ours, looked at in TellProgress, ends them all; these
        // only have to be later.
        const long later = delivery_.timeoutMs / 1000 + 60;
        Set(CURLOPT_CONNECTTIMEOUT, later);
        Set(CURLOPT_SERVER_RESPONSE_TIMEOUT, later);
    }
    /// Texts are copied by the library.
    template <typename Value>
    void Set(CURLoption option, Value value) {
        curl_easy_setopt(curl_, option, value);
    }

    static std::size_t GiveText(char* buffer, std::size_t size, std::size_t count, void* self) {
        auto& session = *static_cast<Session*>(self);
        const QByteArray& text = session.delivery_.text;
        const qsizetype length = std::min(static_cast<qsizetype>(size * count), text.size() - session.offset_);
        std::memcpy(buffer, text.constData() + session.offset_, static_cast<std::size_t>(length));
        session.offset_ += length;
        return static_cast<std::size_t>(length);
    }
    /// The server's replies, line by line. The last refusal tells the reason; the farewell behind it doesn't.
    static std::size_t TakeReply(char* line, std::size_t size, std::size_t count, void* self) {
        const QByteArray reply(line, static_cast<qsizetype>(size * count));
        auto& session = *static_cast<Session*>(self);
        session.sinceSign_.start();
        session.refusal_.Take(reply);
        session.encrypting_ = session.greeted_ && reply.startsWith("220");
        session.greeted_ = true;
        return size * count;
    }
    /// Called each second at least. Anything but 0 ends the session.
    static int TellProgress(void* self, curl_off_t, curl_off_t, curl_off_t total, curl_off_t sent) {
        auto& session = *static_cast<Session*>(self);
        if (sent != session.sent_) session.sinceSign_.start();
        session.sent_ = sent;
        session.silent_ = session.silent_ || session.sinceSign_.hasExpired(session.delivery_.timeoutMs);
        if (total > 0 && sent > 0) session.progress_(sent, total);
        if (!session.cancelled_ && !session.silent_) return 0;
        // Or the library would wait for the server's farewell, as long again.
        ::shutdown(session.socket_, SHUT_RDWR);
        return 1;
    }
    static int TakeSocket(void* self, curl_socket_t socket, curlsocktype) {
        static_cast<Session*>(self)->socket_ = socket;
        return CURL_SOCKOPT_OK;
    }
    static int CloseSocket(void* self, curl_socket_t socket) {
        auto& session = *static_cast<Session*>(self);
        if (session.socket_ == socket) session.socket_ = CURL_SOCKET_BAD;
        return ::close(socket);
    }

    const SmtpDelivery& delivery_;
    const MailHost& host_;
    const std::atomic<bool>& cancelled_;
    const std::function<void(qint64, qint64)>& progress_;
    CURL* curl_ = nullptr;
    curl_socket_t socket_ = CURL_SOCKET_BAD;
    qsizetype offset_ = 0;
    curl_off_t sent_ = 0;
    Refusal refusal_;
    QElapsedTimer sinceSign_;  ///< since the server showed its last sign of life
    bool silent_ = false;      ///< for too long
    bool greeted_ = false;
    bool encrypting_ = false;  ///< the last reply was the go-ahead for encryption
    char errorText_[CURL_ERROR_SIZE] = {};
};

}  // namespace

void DeliverBySmtp(const SmtpDelivery& delivery, const std::atomic<bool>& cancelled,
                   const std::function<void(qint64, qint64)>& progress) {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    const auto fail = [](int number, const QString& reason) { throw Error(number, reason, QStringLiteral("Send")); };
    if (ready != CURLE_OK) fail(kMailFailed, QString::fromLatin1(curl_easy_strerror(ready)));
    if (delivery.recipients.isEmpty()) fail(kMailFailed, Texts::tr("The message has no recipient"));

    QString reason = Texts::tr("No mail server is known");
    for (const MailHost& host : delivery.hosts) {
        Session session(delivery, host, cancelled, progress);
        CURLcode code = session.Run(static_cast<long>(delivery.encrypted ? CURLUSESSL_ALL : CURLUSESSL_TRY));
        // A server that offers encryption and then can't do it still takes the message as any old one does.
        if (!delivery.encrypted && session.EncryptionFailed(code) && !cancelled)
            code = session.Run(static_cast<long>(CURLUSESSL_NONE));
        if (cancelled) fail(kMailCancelled, Texts::tr("Sending was cancelled"));
        if (code == CURLE_OK) return;
        reason = host.name + QStringLiteral(": ") + session.Reason(code);
        if (!session.MayTryNext()) break;
    }
    fail(kMailFailed, reason);
}

}  // namespace kelu
