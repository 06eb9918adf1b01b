// One delivery of a message by SMTP, over libcurl.
// SPDX-License-Identifier: MIT
#include "output/mail/smtp_session.h"

#include <curl/curl.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

namespace {

constexpr long kConnectMs = 20'000;
constexpr long kSlowestBytesPerSecond = 16;

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

/// One attempt with one server.
class Session {
 public:
    Session(const SmtpDelivery& delivery, const MailHost& host, const std::atomic<bool>& cancelled,
            const std::function<void(qint64, qint64)>& progress)
        : delivery_(delivery), host_(host), cancelled_(cancelled), progress_(progress) {}

    CURLcode Run(curl_usessl encryption) {
        Handle handle(curl_easy_init());
        if (!handle) throw std::bad_alloc();
        offset_ = 0;
        refusal_.clear();
        greeted_ = encrypting_ = false;
        CURL* curl = handle.get();
        const QByteArray scheme = delivery_.encrypted ? "smtps" : "smtp";
        const QByteArray url = scheme + "://" + host_.name.toLatin1() + ':' + QByteArray::number(delivery_.port);
        curl_easy_setopt(curl, CURLOPT_URL, url.constData());
        curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
        curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, errorText_);

        List resolved, recipients;
        if (!host_.addresses.isEmpty()) {
            QStringList numbers;
            for (const QString& address : host_.addresses)
                numbers.append(address.contains(u':') ? u'[' + address + u']' : address);
            Append(resolved,
                   (host_.name + u':' + QString::number(delivery_.port) + u':' + numbers.join(u',')).toLatin1());
            curl_easy_setopt(curl, CURLOPT_RESOLVE, resolved.get());
        }
        SetEncryption(curl, encryption);
        SetTimeouts(curl);

        const QByteArray sender = '<' + delivery_.sender + '>';
        curl_easy_setopt(curl, CURLOPT_MAIL_FROM, sender.constData());
        for (const QByteArray& recipient : delivery_.recipients) Append(recipients, '<' + recipient + '>');
        curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, recipients.get());
        const QByteArray user = delivery_.userName.toUtf8(), password = delivery_.password.toUtf8();
        if (!user.isEmpty()) {
            curl_easy_setopt(curl, CURLOPT_USERNAME, user.constData());
            curl_easy_setopt(curl, CURLOPT_PASSWORD, password.constData());
        }

        curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
        curl_easy_setopt(curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(delivery_.text.size()));
        curl_easy_setopt(curl, CURLOPT_READFUNCTION, &Session::GiveText);
        curl_easy_setopt(curl, CURLOPT_READDATA, this);
        curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, &Session::TakeReply);
        curl_easy_setopt(curl, CURLOPT_HEADERDATA, this);
        curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
        curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, &Session::TellProgress);
        curl_easy_setopt(curl, CURLOPT_XFERINFODATA, this);

        errorText_[0] = '\0';
        const CURLcode code = curl_easy_perform(curl);
        errorText_[sizeof errorText_ - 1] = '\0';
        return code;
    }

    /// Whether the session broke off between the go-ahead for encryption and the first encrypted reply. The codes of
    /// such an end are many.
    bool EncryptionFailed(CURLcode code) const { return code != CURLE_OK && encrypting_; }

    /// Whether another server may be asked: nothing was sent, and no server refused the message for good.
    bool MayTryNext() const { return offset_ == 0 && !refusal_.startsWith('5'); }

    QString Reason(CURLcode code) const {
        if (!refusal_.isEmpty()) return OneLine(QString::fromUtf8(refusal_));
        const QString text = OneLine(QString::fromUtf8(errorText_));
        return text.isEmpty() ? QString::fromLatin1(curl_easy_strerror(code)) : text;
    }

 private:
    void SetEncryption(CURL* curl, curl_usessl encryption) const {
        curl_easy_setopt(curl, CURLOPT_USE_SSL, static_cast<long>(encryption));
        curl_easy_setopt(curl, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
        curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, delivery_.encrypted ? 1L : 0L);
        curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, delivery_.encrypted ? 2L : 0L);
        if (!delivery_.certificates.isEmpty())
            curl_easy_setopt(curl, CURLOPT_CAINFO, delivery_.certificates.toLocal8Bit().constData());
    }
    void SetTimeouts(CURL* curl) const {
        const long seconds = std::max(1L, static_cast<long>((delivery_.timeoutMs + 999) / 1000));
        curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, std::min(kConnectMs, static_cast<long>(delivery_.timeoutMs)));
        curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, seconds);
        curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, kSlowestBytesPerSecond);
        curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, seconds);
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
        if (reply.startsWith('4') || reply.startsWith('5')) session.refusal_ = reply;
        session.encrypting_ = session.greeted_ && reply.startsWith("220");
        session.greeted_ = true;
        return size * count;
    }
    static int TellProgress(void* self, curl_off_t, curl_off_t, curl_off_t total, curl_off_t sent) {
        const auto& session = *static_cast<Session*>(self);
        if (total > 0 && sent > 0) session.progress_(sent, total);
        return session.cancelled_ ? 1 : 0;
    }

    const SmtpDelivery& delivery_;
    const MailHost& host_;
    const std::atomic<bool>& cancelled_;
    const std::function<void(qint64, qint64)>& progress_;
    qsizetype offset_ = 0;
    QByteArray refusal_;
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
    if (delivery.recipients.isEmpty()) fail(kMailFailed, QStringLiteral("The message has no recipient"));

    QString reason = QStringLiteral("No mail server is known");
    for (const MailHost& host : delivery.hosts) {
        Session session(delivery, host, cancelled, progress);
        CURLcode code = session.Run(delivery.encrypted ? CURLUSESSL_ALL : CURLUSESSL_TRY);
        // A server that offers encryption and then can't do it still takes the message as any old one does.
        if (!delivery.encrypted && session.EncryptionFailed(code) && !cancelled) code = session.Run(CURLUSESSL_NONE);
        if (cancelled) fail(kMailCancelled, QStringLiteral("Sending was cancelled"));
        if (code == CURLE_OK) return;
        reason = host.name + QStringLiteral(": ") + session.Reason(code);
        if (!session.MayTryNext()) break;
    }
    fail(kMailFailed, reason);
}

}  // namespace kelu
