// The picture goes out through the window: the real save dialog under every filter, failures, the clipboard, and the
// ways out of the program with unsaved changes.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <csignal>

#include "pictures/picture_file.h"
#include "tests/app/dialog_hands.h"
#include "tests/app/main_window_fixture.h"

namespace kelu {
namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

struct SaveWalk : MainWindowFixture {
    SaveWalk() : MainWindowFixture(Dialogs::Real) {}

    void OpenAndPaint() {
        OpenPhoto();
        Arm();
        Stroke({{60, 60}, {120, 80}, {200, 200}});
        ASSERT_TRUE(state.ImageDirty);
    }
    void Write(const QString& name, const QByteArray& bytes) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

struct Row {
    int filter;
    const char* name;
    const char* file;
    const char* begins;
    bool lossless;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name << " under filter " << row.filter; }

struct EveryFilter : SaveWalk, testing::WithParamInterface<Row> {};

INSTANTIATE_TEST_SUITE_P(
    Names, EveryFilter,
    testing::Values(Row{1, "a.bmp", "a.bmp", "BM", true}, Row{2, "a.png", "a.png", "\x89PNG", true},
                    Row{3, "a.gif", "a.gif", "GIF8", false}, Row{4, "a.jpg", "a.jpg", "\xff\xd8\xff", false},
                    Row{1, "a.jpg", "a.jpg", "\xff\xd8\xff", false},  // the name tells the format
                    Row{4, "a.BMP", "a.BMP", "BM", true},
                    Row{4, "a", "a.PNG", "\x89PNG", true},  // and without one it is PNG
                    Row{4, "two.dots", "two.dots.jpg", "\xff\xd8\xff", false}, Row{2, "a.pdf", "a.pdf", "%PDF", false},
                    Row{5, "a.pdf", "a.pdf", "%PDF", false},
                    Row{5, "a.png", "a.png", "%PDF", false},  // but a PDF is one by its filter
                    Row{5, "a", "a.PNG", "%PDF", false}));

TEST_P(EveryFilter, WritesTheFormatAndSettlesTheWindow) {
    const Row row = GetParam();
    OpenAndPaint();
    const QImage painted = Canvas();
    const QString status = Status();
    DialogScript script;
    script.Then<QFileDialog>(SaveAs(folder.filePath(row.name), row.filter));
    if (QByteArray(row.begins) == "%PDF") {
        script.Then([&](QWidget& message) {
            EXPECT_EQ(message.windowTitle(), "Information");
            EXPECT_EQ(message.accessibleDescription(),
                      QStringLiteral("Information\n\nPDF file '%1' created successfully!").arg(row.file));
        });
        script.Press("OK");
    }
    Key(Qt::Key_S, Qt::ControlModifier);

    EXPECT_TRUE(Bytes(folder.filePath(row.file)).startsWith(row.begins));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2) << "the photo and the saved file";
    if (row.lossless) {
        EXPECT_EQ(ReadPicture(folder.filePath(row.file)), painted);
    }

    EXPECT_FALSE(state.ImageDirty);
    EXPECT_EQ(Status(), status) << "the name stays the one of the opened picture";
    EXPECT_EQ(Canvas(), painted);
    Stroke({{300, 200}, {340, 220}});
    EXPECT_TRUE(state.ImageDirty) << "the brush stays armed";
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), painted);
    script.Then<QFileDialog>(CancelSave());
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(state.ImageDirty) << "changed after a save, one Cancel is enough";
}

TEST_F(SaveWalk, AFirstCancelBringsTheDialogOnceMore) {
    OpenAndPaint();
    DialogScript script;
    script.Then<QFileDialog>(CancelSave()).Then<QFileDialog>(CancelSave());
    Click(Command::Save);
    EXPECT_TRUE(state.ImageDirty);
    EXPECT_TRUE(state.ImageActive);
    script.Then<QFileDialog>(CancelSave()).Then<QFileDialog>(SaveAs(folder.filePath("second.png")));
    Click(Command::Save);
    EXPECT_EQ(ReadPicture(folder.filePath("second.png")), Canvas());
    EXPECT_FALSE(state.ImageDirty);
}

TEST_F(SaveWalk, AFileIsReplacedOnlyWhenAsked) {
    OpenAndPaint();
    Write("out.png", "old");
    const QString path = folder.filePath("out.png");
    DialogScript script;
    script.Then<QFileDialog>(SaveAs(path)).Press("No").Then<QFileDialog>(CancelSave()).Then<QFileDialog>(CancelSave());
    Click(Command::Save);
    EXPECT_EQ(Bytes(path), "old");
    script.Then<QFileDialog>(SaveAs(path)).Press("Yes");
    Click(Command::Save);
    EXPECT_EQ(ReadPicture(path), Canvas());
}

// What refuses the bytes: a folder that the user must not write into, and a disk that is full at the first block and
// in the middle of the file.
TEST_F(SaveWalk, ARefusedWriteIsOneErrorAndLosesNothing) {
    OpenAndPaint();
    const QImage painted = Canvas();
    QDir(folder.path()).mkdir("locked");
    Write("locked/out.png", "old");
    Write("out.png", "old");
    const auto save = [&](const QString& path, const char* reason) {
        DialogScript script;
        script.Then<QFileDialog>(SaveAs(path)).Press("Yes");
        script.Then([&](QWidget& message) {
            const QString text = message.accessibleDescription();
            EXPECT_TRUE(text.startsWith("Error\n\nThe following error has occured:\n" + path + ": " + reason))
                << text.toStdString();
        });
        script.Press("OK");
        script.Then<QFileDialog>(CancelSave());  // the second round of the command
        Click(Command::Save);
        EXPECT_EQ(Bytes(path), "old");
        EXPECT_EQ(QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden).filter(".kelu"), QStringList());
        EXPECT_TRUE(state.ImageDirty);
        EXPECT_TRUE(state.ImageActive);
        EXPECT_EQ(Canvas(), painted);
    };

    // A folder is no obstacle to the system's administrator, who gives the right up meanwhile.
    const QString locked = folder.filePath("locked");
    for (const QString& path : {folder.path(), QFileInfo(folder.path()).path()})
        ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(locked, QFile::Permissions(0x5555)));
    const bool administrator = ::geteuid() == 0;
    if (administrator) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    save(locked + "/out.png", "Permission denied");
    if (administrator) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    QFile::setPermissions(locked, QFile::Permissions(0x7755));

    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t room : {rlim_t{16}, rlim_t{40000}}) {
        const rlimit full{room, before.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
        save(folder.filePath("out.png"), "File too large");
        ::setrlimit(RLIMIT_FSIZE, &before);
    }
    std::signal(SIGXFSZ, handler);

    DialogScript script;
    script.Then<QFileDialog>(SaveAs(folder.filePath("out.png"))).Press("Yes");
    Click(Command::Save);
    EXPECT_EQ(ReadPicture(folder.filePath("out.png")), painted) << "once there is room again";
}

TEST_F(SaveWalk, TheClipboardGetsTheCanvasAsItIs) {
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull()) << "the placeholder is no picture of the user's";
    OpenAndPaint();
    Key(Qt::Key_C, Qt::ControlModifier);
    const QImage painted = Canvas();
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), painted);
    Stroke({{300, 100}, {340, 120}});
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), painted)
        << "later strokes don't reach what was copied";
}

struct WayOut {
    const char* way;
    const char* button;
    bool saves;
};
void PrintTo(const WayOut& row, std::ostream* out) {
    *out << row.way << ' ' << row.button << (row.saves ? " saved" : "");
}

struct UnsavedChanges : SaveWalk, testing::WithParamInterface<WayOut> {};

INSTANTIATE_TEST_SUITE_P(AllAnswers, UnsavedChanges,
                         testing::Values(WayOut{"button", "Yes", true}, WayOut{"button", "Yes", false},
                                         WayOut{"button", "No", false}, WayOut{"button", "Cancel", false},
                                         WayOut{"key", "Yes", true}, WayOut{"key", "Cancel", false},
                                         WayOut{"system", "No", false}, WayOut{"system", "Cancel", false}));

TEST_P(UnsavedChanges, AreAskedForOnTheWayOut) {
    const WayOut row = GetParam();
    OpenAndPaint();
    const QImage painted = Canvas();
    const bool stays = qstrcmp(row.button, "Cancel") == 0;
    const QByteArray way = row.way;
    DialogScript script;
    script.Press(row.button);
    if (qstrcmp(row.button, "Yes") == 0)
        script.Then<QFileDialog>(row.saves ? SaveAs(folder.filePath("kept.png")) : CancelSave());
    if (way == "button") Click(Command::Close);
    if (way == "key") Key(Qt::Key_F4, Qt::AltModifier);
    if (way == "system") {
        EXPECT_EQ(window.close(), !stays);
    }
    EXPECT_EQ(window.isVisible(), stays);
    EXPECT_EQ(camera.Connected(), stays);
    EXPECT_EQ(QFile::exists(folder.filePath("kept.png")), row.saves);
    if (row.saves) {
        EXPECT_EQ(ReadPicture(folder.filePath("kept.png")), painted);
    }
    if (!stays) return;
    EXPECT_EQ(Canvas(), painted);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), ReadPicture(folder.filePath("photo.png")));
}

TEST_F(SaveWalk, WithoutChangesThereIsNoQuestion) {
    OpenPhoto();
    const DialogScript none;
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace kelu
