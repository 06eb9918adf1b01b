// Reads all bytes behind a URL (http, https, file) without holding up the program.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>

class QNetworkReply;

namespace kelu {

class RemoteRead : public QObject {
    Q_OBJECT

 public:
    /// More than this is refused, and the read fails.
    static constexpr qint64 kMaxBytes = 256 << 20;

    explicit RemoteRead(QObject* parent = nullptr) : QObject(parent) {}
    ~RemoteRead() override { Cancel(); }

    /// Starts a read and drops one that is still under way. A text without a scheme is a local path. False when nothing
    /// could be started.
    bool Start(const QString& url);
    /// Drops the read; no signal follows.
    void Cancel();

 Q_SIGNALS:
    /// Exactly one of these follows each started read, from the event loop.
    void Finished(const QByteArray& bytes);
    void Failed();

 private:
    void End(QNetworkReply* reply);

    QNetworkAccessManager network_;
    QPointer<QNetworkReply> reply_;
};

}  // namespace kelu
