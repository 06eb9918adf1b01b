// A second start hands its picture to the instance that runs: over a local socket that only this user can reach.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

class QLocalSocket;

namespace kelu {

/// Where the instance of the settings in this folder listens: in the user's run-time folder when there is a private
/// one, else beside the settings.
QString HandOverSocket(const QString& settingsFolder);

/// The receiving end. To be made only by the instance that holds the place: it takes over what a killed one left.
class HandOver : public QObject {
    Q_OBJECT

 public:
    /// Without a socket, as in a folder that can't be written, nothing is received; that is no failure.
    explicit HandOver(const QString& socket, QObject* parent = nullptr);

 Q_SIGNALS:
    /// Another start of this user was asked to open this file; an absolute path.
    void PictureGiven(const QString& path);

 private:
    void Accept(QLocalSocket& sender);

    QLocalServer server_;
};

/// The giving end; waits no longer than a second. False when nobody listens.
bool GivePicture(const QString& socket, const QString& path);

}  // namespace kelu
