// Sends a message to a server on this machine that answers any bytes, all at once, and then hangs up. Each must end
// soon, with a reason that is fit to be shown. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QRegularExpression>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "output/mail/smtp_session.h"
#include "platform/error.h"

namespace {

int port = 0;
std::mutex mutex;
QByteArray answer;

[[noreturn]] void Serve(int listening) {
    for (;;) {
        const int client = ::accept(listening, nullptr, nullptr);
        if (client < 0) std::abort();
        QByteArray bytes;
        {
            const std::lock_guard lock(mutex);
            bytes = answer;
        }
        ::send(client, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
        ::shutdown(client, SHUT_WR);
        char heard[4096];
        while (::read(client, heard, sizeof heard) > 0) continue;
        ::close(client);
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const int listening = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (::bind(listening, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listening, 8) != 0 ||
        ::getsockname(listening, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        std::abort();
    port = ntohs(address.sin_port);
    std::thread(Serve, listening).detach();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 60'000) return 0;  // more than a socket takes at once differs in nothing but length
    {
        const std::lock_guard lock(mutex);
        answer = QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    }
    kelu::SmtpDelivery delivery;
    delivery.hosts = {{QStringLiteral("localhost"), {QStringLiteral("127.0.0.1")}}};
    delivery.port = port;
    delivery.timeoutMs = 5000;
    delivery.sender = "a@example.org";
    delivery.recipients = {"b@example.org"};
    delivery.text = "Subject: x\r\n\r\nx\r\n";
    if (size % 2 != 0) delivery.userName = delivery.password = QStringLiteral("someone");
    const std::atomic<bool> cancelled(false);
    try {
        kelu::DeliverBySmtp(delivery, cancelled, [](qint64, qint64) {});
    } catch (const kelu::Error& error) {
        const QString reason = error.Description();
        static const QRegularExpression link(QStringLiteral("\\b[A-Za-z][A-Za-z0-9+.-]*://"));
        if (reason.isEmpty() || reason.size() > 400 || reason.contains(u'\n') || reason.contains(link)) std::abort();
    }
    return 0;
}
