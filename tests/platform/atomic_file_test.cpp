// Whole or not at all: failures, full disks and kills at any moment leave the old file and nothing else.
// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <fstream>

#include "platform/error.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

/// Runs in a child process and gives its exit status.
template <typename Work>
int InChild(Work&& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct AtomicFileTest : testing::Test {
    QTemporaryDir folder;
    const QString path = folder.filePath("target.bin");

    static void Put(const QString& name, const QByteArray& bytes) {
        AtomicFile file(name);
        file.Write(bytes);
        file.Commit();
    }
    static int Mode(const QString& name) {
        struct stat state {};
        return ::stat(QFile::encodeName(name).constData(), &state) == 0 ? state.st_mode & 07777 : -1;
    }
    QStringList Entries() {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

TEST_F(AtomicFileTest, CommitReplacesAndNoCommitLeavesAlone) {
    Put(path, "old");
    {
        AtomicFile file(path);
        file.Write("new");
        file.Device().flush();
        EXPECT_EQ(ReadBytes(path), "old");
    }
    EXPECT_EQ(ReadBytes(path), "old");
    AtomicFile file(path);
    file.Write("new and longer");
    ASSERT_TRUE(file.Device().seek(0));  // formats go back to fill in their headers
    file.Write("NEW");
    file.Commit();
    EXPECT_EQ(ReadBytes(path), "NEW and longer");
    EXPECT_THROW(file.Commit(), Error);
    EXPECT_EQ(Entries(), QStringList("target.bin"));
}

TEST_F(AtomicFileTest, KeepsPermissionsAndFollowsLinks) {
    const mode_t old = ::umask(027);
    Put(path, "1");
    EXPECT_EQ(Mode(path), 0640);
    ::umask(old);
    ::chmod(QFile::encodeName(path).constData(), 0604);
    Put(path, "2");
    EXPECT_EQ(Mode(path), 0604);
    AtomicFile secret(path, AtomicFile::Access::Private);
    secret.Commit();
    EXPECT_EQ(Mode(path), 0600);

    ASSERT_TRUE(QDir(folder.path()).mkdir("real"));
    ASSERT_TRUE(QFile::link("real/not there yet", folder.filePath("link")));
    ASSERT_TRUE(QFile::link("link", folder.filePath("link2")));
    Put(folder.filePath("link2"), "through links");
    EXPECT_TRUE(QFileInfo(folder.filePath("link2")).isSymLink());
    EXPECT_TRUE(QFileInfo(folder.filePath("link")).isSymLink());
    EXPECT_EQ(ReadBytes(folder.filePath("real/not there yet")), "through links");
}

TEST_F(AtomicFileTest, RefusesWhatIsNoPlaceForAFile) {
    ASSERT_TRUE(QFile::link("circle", folder.filePath("circle")));
    for (const QString& bad : {folder.path(), folder.filePath("no/such"), folder.filePath("circle"),
                               QStringLiteral("/dev/null"), QStringLiteral("/proc/no-such-file")}) {
        const Error error = ErrorOf([&] { Put(bad, "x"); });
        EXPECT_EQ(error.Number(), kFileError) << bad.toStdString();
        EXPECT_TRUE(error.Description().startsWith(bad + ": ")) << error.what();
    }
}

TEST_F(AtomicFileTest, AnOwnFileInAFolderThatMayNotBeWrittenIsReplacedInItsPlace) {
    const QTemporaryDir temporary;
    const QString closed = folder.filePath("closed"), old = closed + "/old.bin";
    ASSERT_TRUE(QDir(folder.path()).mkdir("closed"));
    Put(old, "old");
    ::chmod(QFile::encodeName(closed).constData(), 0555);
    const auto put = [&](const QString& name, rlim_t limit) {
        return InChild([&] {
            // Without its privileges the superuser is bound by a folder's mode as anybody.
            __user_cap_header_struct head{_LINUX_CAPABILITY_VERSION_3, 0};
            __user_cap_data_struct none[2]{};
            ::syscall(SYS_capset, &head, none);
            qputenv("TEMP", temporary.path().toLocal8Bit());
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit most{limit, limit};
            ::setrlimit(RLIMIT_FSIZE, &most);
            const Error error = ErrorOf([&] { Put(name, QByteArray(100'000, 'n')); });
            return error.Number() == 0 ? 0 : error.Description().contains("folder cannot be written to") ? 7 : 8;
        });
    };
    EXPECT_EQ(put(closed + "/new.bin", 1 << 20), 7) << "what is wrong is the folder";
    EXPECT_EQ(put(old, 1000), 8);
    EXPECT_EQ(ReadBytes(old), "old");
    EXPECT_EQ(put(old, 1 << 20), 0);
    EXPECT_EQ(ReadBytes(old), QByteArray(100'000, 'n'));
    EXPECT_EQ(QDir(temporary.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
    ::chmod(QFile::encodeName(closed).constData(), 0755);
}

TEST_F(AtomicFileTest, FullDiskLeavesTheOldFile) {
    Put(path, "old");
    // A limit on the file's size makes the system refuse bytes as a full disk does. The writer doesn't look, and goes
    // on when there is room again.
    for (const int size : {9000, 5'000'000}) {
        const int status = InChild([&] {
            ::signal(SIGXFSZ, SIG_IGN);
            rlimit limit{8192, RLIM_INFINITY};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            const Error error = ErrorOf([&] {
                AtomicFile file(path);
                file.Device().write(QByteArray(size, 'x'));
                limit.rlim_cur = RLIM_INFINITY;
                ::setrlimit(RLIMIT_FSIZE, &limit);
                file.Device().write("the rest");
                file.Commit();
            });
            return error.Description() == path + ": File too large" ? 7 : 2;
        });
        EXPECT_EQ(status, 7) << size;
        EXPECT_EQ(ReadBytes(path), "old");
        EXPECT_EQ(Entries(), QStringList("target.bin"));
    }
    // What can't reach the disk: a pipe in the file's place can't be flushed.
    const Error error = ErrorOf([&] {
        AtomicFile file(path);
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        ::dup2(ends[1], file.Device().handle());
        file.Commit();
    });
    EXPECT_EQ(error.Description(), path + ": Invalid argument");
}

TEST_F(AtomicFileTest, KilledAtAnyMomentTheFileIsOldOrNew) {
    const QByteArray old(300'000, 'a'), fresh(400'000, 'b');
    Put(path, old);
    int news = 0;
    for (int moment = 0; moment < 60; ++moment) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) {
                Put(path, fresh);
                Put(path, old);
            }
        }
        ::usleep(static_cast<useconds_t>(500 + moment * moment * 14));  // to 50 ms
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const QByteArray now = ReadBytes(path);
        ASSERT_TRUE(now == old || now == fresh) << now.size();
        news += now == fresh;
    }
    // What a kill between the naming and the renaming left is tidied by the next save, but not what others still write.
    const QString inUse = folder.filePath(".kelu-0123456789abcdef.tmp");
    const int writer = ::open(QFile::encodeName(inUse).constData(), O_CREAT | O_RDWR, 0600);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    std::ofstream(folder.filePath(".kelu-fedcba9876543210.tmp").toStdString()) << "orphan";
    Put(path, fresh);
    EXPECT_EQ(Entries(), QStringList({".kelu-0123456789abcdef.tmp", "target.bin"}));
    ::close(writer);
    EXPECT_GT(news, 0) << "no kill fell on a time when something had been written";
}

}  // namespace
}  // namespace kelu
