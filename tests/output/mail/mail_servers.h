// Real mail and name servers on loopback, as child processes of a test, and certificates of an authority of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace kelu {

class LoopbackServer {
 public:
    explicit LoopbackServer(const QStringList& arguments, const QString& script = KELU_MAIL_SERVERS) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // The system's own interpreter has the packages, whatever else stands in the path.
        process_.start("/usr/bin/python3", QStringList{script} + arguments);
        while (!process_.canReadLine() && process_.waitForReadyRead(20'000)) {
        }
        port_ = process_.readLine().trimmed().split(' ').value(1).toInt();
        EXPECT_GT(port_, 0) << "the server did not start: " << arguments.join(' ').toStdString();
    }
    ~LoopbackServer() {
        process_.closeWriteChannel();
        if (!process_.waitForFinished(1000)) process_.kill();
        process_.waitForFinished(1000);
    }

    int Port() const { return port_; }

 private:
    QProcess process_;
    int port_ = 0;
};

/// What the server kept, oldest first.
inline std::vector<QJsonObject> ReceivedMessages(const QString& path) {
    std::vector<QJsonObject> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return messages;
    while (!file.atEnd()) messages.push_back(QJsonDocument::fromJson(file.readLine()).object());
    return messages;
}

inline QString Header(const QJsonObject& message, const QString& name) {
    QStringList found;
    for (const auto header : message["headers"].toArray())
        if (header.toArray()[0].toString().compare(name, Qt::CaseInsensitive) == 0)
            found.append(header.toArray()[1].toString());
    return found.join('|');
}

/// Keys in a folder: ca.pem signs localhost.pem/.key and other.pem/.key (for another name).
class Certificates {
 public:
    Certificates() {
        const QStringList key{"-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes"};
        Run(QStringList{"req", "-x509", "-days", "2", "-subj", "/CN=Test", "-keyout", "ca.key", "-out", "ca.pem"} +
            key);
        for (const QString name : {"localhost", "other"}) {
            QFile extension(Path(name + ".ext"));
            EXPECT_TRUE(extension.open(QIODevice::WriteOnly));
            extension.write("subjectAltName=DNS:" + name.toLatin1() + '\n');
            extension.close();
            Run(QStringList{"req", "-subj", "/CN=" + name, "-keyout", name + ".key", "-out", name + ".csr"} + key);
            Run({"x509", "-req", "-days", "2", "-in", name + ".csr", "-CA", "ca.pem", "-CAkey", "ca.key", "-out",
                 name + ".pem", "-CAcreateserial", "-extfile", name + ".ext"});
        }
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }

 private:
    void Run(const QStringList& arguments) {
        QProcess process;
        process.setWorkingDirectory(folder_.path());
        process.start("openssl", arguments);
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
            << arguments.join(' ').toStdString() << process.readAllStandardError().toStdString();
    }

    QTemporaryDir folder_;
};

}  // namespace kelu
