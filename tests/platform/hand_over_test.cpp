// A second start gives its picture to the first: who may, where, and what is taken.
// SPDX-License-Identifier: MIT
#include "platform/hand_over.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <thread>

namespace kelu {
namespace {

TEST(HandOver, GivesAbsolutePathsToTheInstanceThatListens) {
    const QTemporaryDir folder;
    const QString socket = folder.filePath("s.socket");
    EXPECT_FALSE(GivePicture(socket, "a.png")) << "nobody listens";
    QFile left(socket);  // by one that was killed
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.close();
    HandOver first(socket);
    QSignalSpy given(&first, &HandOver::PictureGiven);
    EXPECT_EQ(int(QFileInfo(socket).permissions() & 0x77), 0) << "for the user alone";

    const QString names[] = {"a.png", QString::fromUtf8("/tmp/with blank\nand ü.jpg")};
    bool heard = true;
    std::thread second([&] {
        for (const QString& name : names) heard = GivePicture(socket, name) && heard;
        QLocalSocket stranger;
        stranger.connectToServer(socket);
        stranger.waitForConnected();
        stranger.write("no path at all");
        stranger.waitForBytesWritten();
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return given.size() == 2; }));
    second.join();
    // Another user, however he came to the socket.
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7555)));
    ASSERT_TRUE(QFile::setPermissions(socket, QFile::Permissions(0x7777)));
    const pid_t other = ::geteuid() == 0 ? ::fork() : -1;
    if (other == 0) {
        const sockaddr_un address{AF_UNIX, "s.socket"};
        const int end = ::socket(AF_UNIX, SOCK_STREAM, 0);
        ::_exit(::chdir(QFile::encodeName(folder.path()).constData()) == 0 && ::setuid(65534) == 0 &&
                        ::connect(end, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                        ::write(end, "/tmp/his.png", 12) == 12
                    ? 0
                    : 1);
    }
    int reached = 0;
    EXPECT_TRUE(other < 0 || (::waitpid(other, &reached, 0) == other && reached == 0));
    QTest::qWait(50);
    EXPECT_TRUE(heard);
    ASSERT_EQ(given.size(), 2);
    EXPECT_EQ(given[0][0].toString(), QDir::current().absoluteFilePath("a.png"));
    EXPECT_EQ(given[1][0].toString(), names[1]);
}

TEST(HandOver, ListensInAPrivateFolderOnly) {
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    const QString one = HandOverSocket("/home/a"), other = HandOverSocket("/home/b");
    EXPECT_TRUE(one.startsWith(runtime.path()));
    EXPECT_NE(one, other) << "other settings, another instance";
    ASSERT_TRUE(QFile::setPermissions(runtime.path(), QFile::Permissions(0x7777)));
    EXPECT_EQ(HandOverSocket("/home/a"), "/home/a/kelu.socket");
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}

}  // namespace
}  // namespace kelu
