// Finds the servers that accept mail for an address, by mail exchanger records.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_host_lookup.h"

#define CARES_NO_DEPRECATED  // what newer releases offer in place of these calls is missing in older ones
#include <ares.h>
#include <arpa/inet.h>
#include <arpa/nameser.h>
#include <poll.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <algorithm>
#include <memory>

#include "output/mail/email_address.h"
#include "output/mail/mail_error.h"
#include "platform/error.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::SmtpSender)
};

constexpr int kTryMs = 3000;  // patience for one server, doubled with each round
constexpr int kTries = 3;
constexpr int kLookMs = 100;           // between two looks at the cancel flag
constexpr std::size_t kMostHosts = 8;  // the rest of a long list is not worth the wait

[[noreturn]] void Fail(const QString& reason) { throw Error(kMailFailed, reason, QStringLiteral("MailHostOf")); }

struct Exchanger {
    int preference;
    QString name;
};

/// One conversation with the name servers. Answers fill the public members.
class Resolver {
 public:
    Resolver(const NameServerOptions& options, const std::atomic<bool>& cancelled)
        : cancelled_(cancelled), timeoutMs_(options.timeoutMs) {
        ares_options settings{};
        settings.timeout = kTryMs;
        settings.tries = kTries;
        int status = ares_init_options(&channel_, &settings, ARES_OPT_TIMEOUTMS | ARES_OPT_TRIES);
        if (status == ARES_SUCCESS && !options.servers.isEmpty())
            status = ares_set_servers_ports_csv(channel_, options.servers.toLatin1().constData());
        if (status != ARES_SUCCESS) Fail(QString::fromLatin1(ares_strerror(status)));
        clock_.start();
    }
    ~Resolver() {
        if (channel_ != nullptr) ares_destroy(channel_);
    }
    Resolver(const Resolver&) = delete;
    Resolver& operator=(const Resolver&) = delete;

    /// ARES_SUCCESS, or the reason why there is no answer.
    int AskExchangers(const QString& domain) {
        ares_query(channel_, domain.toLatin1().constData(), C_IN, T_MX, &Resolver::TakeExchangers, this);
        return Wait();
    }
    int AskAddresses(const QString& host) {
        addresses.clear();
        ares_addrinfo_hints hints{};
        hints.ai_family = AF_UNSPEC;
        hints.ai_flags = ARES_AI_NOSORT;
        ares_getaddrinfo(channel_, host.toLatin1().constData(), nullptr, &hints, &Resolver::TakeAddresses, this);
        return Wait();
    }

    std::vector<Exchanger> exchangers;
    QStringList addresses;

 private:
    static void TakeExchangers(void* self, int status, int, unsigned char* answer, int length) {
        auto& resolver = *static_cast<Resolver*>(self);
        ares_mx_reply* replies = nullptr;
        if (status == ARES_SUCCESS) status = ares_parse_mx_reply(answer, length, &replies);
        for (const ares_mx_reply* reply = replies; reply != nullptr; reply = reply->next)
            resolver.exchangers.push_back({reply->priority, QString::fromLatin1(reply->host)});
        if (replies != nullptr) ares_free_data(replies);
        resolver.status_ = status;
        resolver.done_ = true;
    }
    static void TakeAddresses(void* self, int status, int, ares_addrinfo* found) {
        auto& resolver = *static_cast<Resolver*>(self);
        for (const ares_addrinfo_node* node = found != nullptr ? found->nodes : nullptr; node != nullptr;
             node = node->ai_next) {
            char text[INET6_ADDRSTRLEN] = {};
            const void* number =
                node->ai_family == AF_INET
                    ? static_cast<const void*>(&reinterpret_cast<sockaddr_in*>(node->ai_addr)->sin_addr)
                    : &reinterpret_cast<sockaddr_in6*>(node->ai_addr)->sin6_addr;
            if (::inet_ntop(node->ai_family, number, text, sizeof text) != nullptr)
                resolver.addresses.append(QString::fromLatin1(text));
        }
        if (found != nullptr) ares_freeaddrinfo(found);
        resolver.status_ = status;
        resolver.done_ = true;
    }

    int Wait() {
        done_ = false;
        // An answer may have come from a cache or a file already, within the question.
        while (!done_) {
            if (cancelled_ || clock_.elapsed() > timeoutMs_) {
                ares_cancel(channel_);  // answers the question in hand
                return cancelled_ ? ARES_ECANCELLED : ARES_ETIMEOUT;
            }
            ares_socket_t sockets[ARES_GETSOCK_MAXNUM];
            const int wanted = ares_getsock(channel_, sockets, ARES_GETSOCK_MAXNUM);
            pollfd polled[ARES_GETSOCK_MAXNUM];
            nfds_t count = 0;
            for (int i = 0; i < ARES_GETSOCK_MAXNUM; ++i) {
                const short events = static_cast<short>((ARES_GETSOCK_READABLE(wanted, i) ? POLLIN : 0) |
                                                        (ARES_GETSOCK_WRITABLE(wanted, i) ? POLLOUT : 0));
                if (events != 0) polled[count++] = {sockets[i], events, 0};
            }
            if (count == 0) return status_;
            ::poll(polled, count, kLookMs);
            for (nfds_t i = 0; i < count; ++i)
                ares_process_fd(channel_,
                                polled[i].revents & (POLLIN | POLLERR | POLLHUP) ? polled[i].fd : ARES_SOCKET_BAD,
                                polled[i].revents & POLLOUT ? polled[i].fd : ARES_SOCKET_BAD);
            ares_process_fd(channel_, ARES_SOCKET_BAD, ARES_SOCKET_BAD);  // looks at its own time-outs
        }
        return status_;
    }

    ares_channel channel_ = nullptr;
    const std::atomic<bool>& cancelled_;
    int timeoutMs_;
    QElapsedTimer clock_;
    int status_ = ARES_SUCCESS;
    bool done_ = false;
};

[[noreturn]] void FailFor(const QString& domain, int status) {
    if (status == ARES_ENOTFOUND) Fail(Texts::tr("The mail domain \"%1\" does not exist").arg(domain));
    Fail(Texts::tr("The mail server of \"%1\" could not be found: %2")
             .arg(domain, QString::fromLatin1(ares_strerror(status))));
}

void InitialiseOnce() {
    static const int status = ares_library_init(ARES_LIB_INIT_ALL);
    if (status != ARES_SUCCESS) Fail(QString::fromLatin1(ares_strerror(status)));
}

}  // namespace

std::vector<MailHost> FindMailHosts(const QString& address, const NameServerOptions& options,
                                    const std::atomic<bool>& cancelled) {
    InitialiseOnce();
    const QString domain = MailDomain(address);
    if (domain.isEmpty()) Fail(Texts::tr("\"%1\" is no mail address").arg(OneLine(address)));
    Resolver resolver(options, cancelled);
    const int status = resolver.AskExchangers(domain);
    std::vector<Exchanger>& exchangers = resolver.exchangers;
    if (status == ARES_ENODATA || (status == ARES_SUCCESS && exchangers.empty()))
        exchangers = {{0, domain}};
    else if (status != ARES_SUCCESS)
        FailFor(domain, status);
    if (exchangers.size() == 1 && (exchangers[0].name.isEmpty() || exchangers[0].name == u'.'))
        Fail(Texts::tr("The mail domain \"%1\" accepts no mail").arg(domain));

    // Servers of one preference share the load, so their order is drawn.
    std::shuffle(exchangers.begin(), exchangers.end(), *QRandomGenerator::global());
    std::stable_sort(exchangers.begin(), exchangers.end(),
                     [](const Exchanger& a, const Exchanger& b) { return a.preference < b.preference; });
    if (exchangers.size() > kMostHosts) exchangers.resize(kMostHosts);
    std::vector<MailHost> hosts;
    int lastStatus = ARES_ENOTFOUND;
    for (const Exchanger& each : std::vector<Exchanger>(exchangers)) {
        lastStatus = resolver.AskAddresses(each.name);
        if (!resolver.addresses.isEmpty()) hosts.push_back({each.name, resolver.addresses});
    }
    if (hosts.empty()) FailFor(domain, lastStatus);
    return hosts;
}

}  // namespace kelu
