// The program itself, as a process: its command line without a display, and its window under a real window manager.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QProcess>
#include <QRect>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "app/command_line.h"
#include "tests/support/tools.h"

namespace kelu {
namespace {

TEST(CommandLine, IsReadWithoutAnApplication) {
    const struct {
        QStringList words;
        int status;  // -1: the window comes
        const char *picture, *out, *error;
    } rows[] = {
        {{}, -1, "", "", ""},
        {{"a b.jpg"}, -1, "a b.jpg", "", ""},
        {{"file:///tmp/a%20b.jpg"}, -1, "/tmp/a b.jpg", "", ""},
        {{"a.jpg", "b.jpg"}, -1, "b.jpg", "", "one picture at a time: b.jpg"},
        {{"--", "-x.jpg"}, -1, "-x.jpg", "", ""},
        {{"-platform", "xcb", "--style=fusion", "a.jpg"}, -1, "a.jpg", "", ""},
        {{"--help"}, 0, "", "Usage: kelu [options] [picture]", ""},
        {{"--version", "a.jpg"}, 0, "", "kelu " KELU_VERSION "\n", ""},
        {{"--loud", "a.jpg"}, 2, "", "", "'loud'"},
    };
    for (const auto& row : rows) {
        const CommandLine line = ReadCommandLine(QStringList{"/usr/bin/kelu"} + row.words);
        const std::string words = row.words.join(' ').toStdString();
        EXPECT_EQ(line.status.value_or(-1), row.status) << words;
        if (row.status < 0) {
            EXPECT_EQ(line.picture.toStdString(), row.picture) << words;
        }
        EXPECT_TRUE(line.out.contains(row.out) && line.out.isEmpty() == !*row.out) << line.out.toStdString();
        EXPECT_TRUE(line.error.contains(row.error) && line.error.isEmpty() == !*row.error) << line.error.toStdString();
    }
}

struct Program : testing::Test {
    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

    Program() {
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) environment.remove(name);
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "XDG_STATE_HOME"})
            environment.insert(name, home.path());
    }
    std::unique_ptr<QProcess> Start(const QString& program, const QStringList& words = {}) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->start(program, words);
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }
    QByteArray Output(const QString& program, const QStringList& words) const {
        const auto process = Start(program, words);
        process->waitForFinished();
        return process->readAllStandardOutput();
    }
};

TEST_F(Program, WithoutADisplayOrAddressSpaceIsOneLineAndNoCrash) {
    for (const QString& limit : {QString("unlimited"), QString("600000")}) {
#ifdef __SANITIZE_ADDRESS__
        if (limit != "unlimited") break;  // the sanitizer's own need is beyond every limit
#endif
        const auto kelu = Start("sh", {"-c", "ulimit -v " + limit + " && exec \"$0\"", KELU_PROGRAM});
        ASSERT_TRUE(kelu->waitForFinished());
        EXPECT_EQ(kelu->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(kelu->exitCode(), 1);
        const QByteArray told = kelu->readAllStandardError();
        EXPECT_TRUE(told.count('\n') == 1 && told.contains("address space") == (limit != "unlimited")) << told.data();
    }
}

/// A screen of its own with a window manager.
struct Desktop : Program {
    std::unique_ptr<QProcess> screen, manager, kelu;
    QByteArray window;

    void SetUp() override {
        KELU_NEEDS("Xvfb", "openbox", "xdotool", "xprop");
        screen = Start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp"});
        ASSERT_TRUE(Soon([&] { return screen->canReadLine(); }));
        environment.insert("DISPLAY", ":" + screen->readLine().trimmed());
        manager = Start("openbox");
        ASSERT_TRUE(Soon([&] { return Output("xprop", {"-root", "_NET_SUPPORTING_WM_CHECK"}).contains("window id"); }));
        kelu = Start(KELU_PROGRAM);
        ASSERT_TRUE(QTest::qWaitFor(
            [this] {
                return !(window = Output("xdotool", {"search", "--onlyvisible", "--name", "^Kelu$"})).isEmpty();
            },
            20000));
        window = window.trimmed().split('\n').last();
        // Where there is no camera a message says so behind the splash, which may take the first key.
        const auto message = [this] { return Output("xdotool", {"search", "--onlyvisible", "--name", "^Error$"}); };
        if (Soon([&] { return !message().isEmpty(); })) {
            EXPECT_TRUE(Soon([&] {
                Output("xdotool", {"key", "--delay", "50", "Return"});
                return message().isEmpty();
            }));
        }
    }
    void TearDown() override {
        for (QProcess* process : {kelu.get(), manager.get(), screen.get()})
            if (process) process->kill(), process->waitForFinished();
    }
    QRect Geometry() const {
        QList<int> numbers;
        for (const QByteArray& line : Output("xdotool", {"getwindowgeometry", "--shell", window}).split('\n'))
            numbers.append(line.mid(line.indexOf('=') + 1).toInt());  // id, x, y, width, height
        return numbers.size() > 4 ? QRect(numbers[1], numbers[2], numbers[3], numbers[4]) : QRect();
    }
    bool Maximised() const { return Output("xprop", {"-id", window, "_NET_WM_STATE"}).contains("MAXIMIZED_VERT"); }
    bool Iconic() const { return Output("xprop", {"-id", window, "WM_STATE"}).contains("Iconic"); }
    /// Clicks so many pixels left of the window's right edge, in its title bar.
    void ClickTitle(int fromRight) const {
        const QRect at = Geometry();
        Output("xdotool", {"mousemove", "--sync", QString::number(at.right() - fromRight), QString::number(at.y() + 17),
                           "click", "1"});
    }
    template <typename Condition>
    static bool Soon(Condition condition) {
        return QTest::qWaitFor(condition, 20000);
    }
};

TEST_F(Desktop, TheWindowIsMaximisedMinimisedAndRestoredToItsPlace) {
    constexpr int kMinimise = 58, kRestore = 38;
    Output("xdotool", {"windowmove", "--sync", window, "90", "70"});
    const QRect before = Geometry();
    const QRect full(0, 0, 1280, 900);
    ClickTitle(kRestore);
    ASSERT_TRUE(Soon([&] { return Maximised() && Geometry() == full; }));
    Output("xdotool", {"mousemove", "--sync", "640", "17", "mousedown", "1", "mousemove_relative", "--sync", "40", "60",
                       "mousemove_relative", "--sync", "40", "60", "mouseup", "1"});
    EXPECT_EQ(Geometry(), full) << "what fills the screen can't be pushed off it";
    ClickTitle(kMinimise);
    ASSERT_TRUE(Soon([&] { return Iconic(); }));
    ASSERT_TRUE(Soon([&] {
        Output("xdotool", {"windowmap", window});
        return !Iconic();
    }));
    EXPECT_TRUE(Soon([&] { return Maximised() && Geometry() == full; }));
    ClickTitle(kRestore);
    EXPECT_TRUE(Soon([&] { return !Maximised() && Geometry() == before; }));

    // A second start from another session: the settings are the same.
    environment.remove("XDG_RUNTIME_DIR");
    const auto second = Start(KELU_PROGRAM);
    EXPECT_TRUE(second->waitForFinished(20000));
    EXPECT_EQ(second->exitCode(), 0);
}

}  // namespace
}  // namespace kelu
