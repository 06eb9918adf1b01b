// The network side of loading by URL.
// SPDX-License-Identifier: MIT
#include "controls/animated_gif/remote_read.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace kelu {
namespace {

constexpr int kTransferTimeoutMs = 30000;

}  // namespace

bool RemoteRead::Start(const QString& url) {
    Cancel();
    QUrl address(url);
    if (address.scheme().isEmpty()) address = QUrl::fromLocalFile(url);
    const QStringList readable = {"http", "https", "file"};
    if (!address.isValid() || !readable.contains(address.scheme())) return false;
    QNetworkRequest request(address);
    request.setTransferTimeout(kTransferTimeoutMs);
    QNetworkReply* reply = network_.get(request);
    reply_ = reply;
    connect(reply, &QNetworkReply::downloadProgress, this, [reply](qint64 received, qint64 total) {
        if (received > kMaxBytes || total > kMaxBytes) reply->abort();
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { End(reply); });
    return true;
}

void RemoteRead::Cancel() {
    if (!reply_) return;
    QNetworkReply* reply = reply_;
    reply_.clear();
    disconnect(reply, nullptr, this, nullptr);
    reply->abort();
    reply->deleteLater();
}

void RemoteRead::End(QNetworkReply* reply) {
    reply->deleteLater();
    if (reply != reply_) return;
    reply_.clear();
    if (reply->error() != QNetworkReply::NoError) {
        Q_EMIT Failed();
    } else {
        Q_EMIT Finished(reply->readAll());
    }
}

}  // namespace kelu
