// Temporary folder, locks and the one instance: private, and free again when their owner dies.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include "platform/private_folder.h"
#include "platform/recent_files.h"
#include "platform/single_instance.h"
#include "platform/temporary_folder.h"

namespace kelu {
namespace {

int Mode(const QString& name) {
    struct stat state {};
    return ::lstat(QFile::encodeName(name).constData(), &state) == 0 ? state.st_mode & 07777 : -1;
}

struct Folders : testing::Test {
    QTemporaryDir home;
    const QByteArray oldTemp = qgetenv("TEMP"), oldCache = qgetenv("XDG_CACHE_HOME");
    ~Folders() override {
        qputenv("TEMP", oldTemp);
        qputenv("XDG_CACHE_HOME", oldCache);
    }
    QString Make(const char* name, mode_t mode) {
        const QString path = home.filePath(name);
        QDir().mkpath(path);
        ::chmod(QFile::encodeName(path).constData(), mode);
        return path;
    }
};

TEST_F(Folders, TheDesktopsListOfRecentFilesKeepsWhatOthersPutThere) {
    const QByteArray oldData = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", home.filePath("share").toLocal8Bit());
    const auto restore = qScopeGuard([&] { qputenv("XDG_DATA_HOME", oldData); });
    QFile list(home.filePath("share/recently-used.xbel"));
    const auto read = [&list] { return list.open(QFile::ReadOnly) ? list.readAll() : QByteArray(); };
    RememberRecentFile(home.filePath("a & b.png"));
    RememberRecentFile(home.filePath("second.jpg"));
    RememberRecentFile(home.filePath("a & b.png"));
    const QByteArray both = read();
    list.close();
    EXPECT_EQ(both.count("<bookmark:application name=\"Kelu\""), 2) << both.constData();
    EXPECT_TRUE(both.contains("a%20&amp;%20b.png") && both.contains("second.jpg") && both.contains("image/jpeg"));
    EXPECT_EQ(Mode(list.fileName()), 0600);
    ASSERT_TRUE(list.open(QFile::WriteOnly) && list.write("not a list") > 0);
    list.close();
    RememberRecentFile(home.filePath("third.png"));
    EXPECT_EQ(read(), "not a list");
}

TEST_F(Folders, TemporaryFolderIsTheNamedOneOrAPrivateOne) {
    const QString own = Make("own", 0755);
    qputenv("TEMP", own.toLocal8Bit());
    EXPECT_EQ(TemporaryFolder(), own);

    const QString open = Make("open", 01777);
    qputenv("TEMP", open.toLocal8Bit());
    const QString inside = TemporaryFolder();
    EXPECT_EQ(QFileInfo(inside).path(), open);
    EXPECT_EQ(Mode(inside), 0700);
    EXPECT_EQ(TemporaryFolder(), inside);  // the same in the next run, which tidies up

    // Somebody else took that name: a link to a folder of theirs.
    QDir().rmdir(inside);
    ASSERT_TRUE(QFile::link(own, inside));
    EXPECT_NE(TemporaryFolder(), inside);
    EXPECT_EQ(QFileInfo(TemporaryFolder()).path(), open);
    EXPECT_EQ(Mode(TemporaryFolder()), 0700);

    qputenv("XDG_CACHE_HOME", home.filePath("cache").toLocal8Bit());
    for (const QByteArray& temp : {QByteArray(), home.filePath("missing").toLocal8Bit()}) {
        qputenv("TEMP", temp);
        EXPECT_EQ(TemporaryFolder(), home.filePath("cache/Tarvane/Kelu/Temp"));
        EXPECT_EQ(Mode(TemporaryFolder()), 0700);
    }
}

TEST_F(Folders, PrivateFolderClosesAnOpenOneAndRefusesLinks) {
    const QString open = Make("open", 0777);
    EXPECT_TRUE(OthersCanWrite(open));
    EXPECT_TRUE(MakePrivateFolder(open));
    EXPECT_EQ(Mode(open), 0700);
    EXPECT_FALSE(OthersCanWrite(open));
    ASSERT_TRUE(QFile::link(open, home.filePath("link")));
    EXPECT_FALSE(MakePrivateFolder(home.filePath("link")));
    EXPECT_TRUE(MakePrivateFolder(home.filePath("a/b/c")));
    EXPECT_EQ(Mode(home.filePath("a/b")), 0700);
}

TEST(Locks, OneInstanceOfAFolderUntilItsProcessDies) {
    QTemporaryDir folder, elsewhere;
    const QString home = folder.filePath("settings");
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const SingleInstance instance(home, "test-instance");
        const char answer = instance.IsFirst() ? 'y' : 'n';
        if (::write(ready[1], &answer, 1) != 1) ::_exit(1);
        for (;;) ::pause();
    }
    char answer = 0;
    ASSERT_EQ(::read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_FALSE(SingleInstance(home, "test-instance").IsFirst());
    EXPECT_TRUE(SingleInstance(home, "other-program").IsFirst());
    EXPECT_TRUE(SingleInstance(elsewhere.path(), "test-instance").IsFirst());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const SingleInstance next(home, "test-instance");
    EXPECT_TRUE(next.IsFirst());
    EXPECT_FALSE(SingleInstance(home, "test-instance").IsFirst());
}

TEST(Locks, WaitsAndGivesUp) {
    QTemporaryDir folder;
    FileLock held(folder.filePath("lock")), waiting(folder.filePath("lock"));
    ASSERT_EQ(held.Lock(std::chrono::milliseconds(0)), FileLock::Answer::Locked);
    EXPECT_EQ(waiting.Lock(std::chrono::milliseconds(30)), FileLock::Answer::Busy);
    held.Unlock();
    EXPECT_EQ(waiting.Lock(std::chrono::milliseconds(0)), FileLock::Answer::Locked);
    // A link to a file of somebody else's is no lock of ours, also when nothing is there yet.
    ASSERT_TRUE(QFile::link("elsewhere", folder.filePath("link")));
    EXPECT_EQ(FileLock(folder.filePath("link")).Lock(std::chrono::milliseconds(0)), FileLock::Answer::Impossible);
    EXPECT_FALSE(QFile::exists(folder.filePath("elsewhere")));
    EXPECT_EQ(FileLock(folder.filePath("no/lock")).Lock(std::chrono::milliseconds(0)), FileLock::Answer::Impossible);
}

}  // namespace
}  // namespace kelu
