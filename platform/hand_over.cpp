// SPDX-License-Identifier: MIT
#include "platform/hand_over.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include "platform/private_folder.h"

namespace kelu {

namespace {

constexpr int kLongestWait = 1000;          // ms
constexpr qint64 kLongestPath = 64 * 1024;  // bytes

bool IsOwnProcess(const QLocalSocket& socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

}  // namespace

QString HandOverSocket(const QString& settingsFolder) {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.isEmpty() || !QDir(runtime).exists() || OthersCanWrite(runtime))
        return settingsFolder + QStringLiteral("/kelu.socket");
    // Instances with other settings are other instances.
    const QByteArray settings =
        QCryptographicHash::hash(QDir::cleanPath(settingsFolder).toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral("%1/kelu-%2.socket").arg(runtime, QString::fromLatin1(settings.toHex().left(12)));
}

HandOver::HandOver(const QString& socket, QObject* parent) : QObject(parent) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* sender = server_.nextPendingConnection()) Accept(*sender);
    });
    QLocalServer::removeServer(socket);
    server_.listen(socket);
}

void HandOver::Accept(QLocalSocket& sender) {
    connect(&sender, &QLocalSocket::disconnected, &sender, &QObject::deleteLater);
    if (!IsOwnProcess(sender)) return sender.abort();
    sender.setReadBufferSize(kLongestPath);
    const auto finish = [this, &sender] {
        const QString path = QString::fromUtf8(sender.readAll());
        if (QDir::isAbsolutePath(path)) Q_EMIT PictureGiven(path);
    };
    if (sender.state() == QLocalSocket::UnconnectedState)
        finish(), sender.deleteLater();
    else
        connect(&sender, &QLocalSocket::disconnected, this, finish);
}

bool GivePicture(const QString& socket, const QString& path) {
    QLocalSocket giver;
    giver.connectToServer(socket, QIODevice::WriteOnly);
    if (!giver.waitForConnected(kLongestWait)) return false;
    giver.write(QFileInfo(path).absoluteFilePath().toUtf8());
    giver.waitForBytesWritten(kLongestWait);
    giver.disconnectFromServer();
    return true;
}

}  // namespace kelu
