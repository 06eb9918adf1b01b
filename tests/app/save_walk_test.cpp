// The picture goes out through the window: the real save dialog under every filter, and the ways out of the program
// with unsaved changes.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "pictures/picture_file.h"
#include "tests/app/dialog_hands.h"
#include "tests/app/main_window_fixture.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

struct SaveWalk : MainWindowFixture {
    SaveWalk() : MainWindowFixture(Dialogs::Real) {}

    void OpenAndPaint() {
        OpenPhoto();
        Arm();
        Stroke({{60, 60}, {120, 80}, {200, 200}});
        ASSERT_TRUE(state.ImageDirty);
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

    EXPECT_TRUE(ReadBytes(folder.filePath(row.file)).startsWith(row.begins));
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

TEST_F(SaveWalk, AFileIsReplacedOnlyWhenAsked) {
    OpenAndPaint();
    WriteBytes(folder.filePath("out.png"), "old");
    const QString path = folder.filePath("out.png");
    DialogScript script;
    script.Then<QFileDialog>(SaveAs(path)).Press("No").Then<QFileDialog>(CancelSave()).Then<QFileDialog>(CancelSave());
    Click(Command::Save);
    EXPECT_EQ(ReadBytes(path), "old");
    script.Then<QFileDialog>(SaveAs(path)).Press("Yes");
    Click(Command::Save);
    EXPECT_EQ(ReadPicture(path), Canvas());

    const QString other = folder.filePath("other");
    ASSERT_TRUE(QDir().mkdir(other));
    for (const char* name : {"one.png", "two.png"}) {
        Stroke({{300, 200}, {340, 220}});
        script.Then<QFileDialog>([&](QFileDialog& save) {
            EXPECT_EQ(save.directory().path(), name[0] == 'o' ? folder.path() : other) << "where the last one went";
            SaveAs(other + '/' + name)(save);
        });
        Click(Command::Save);
    }
}

// What becomes of the picture at each answer is tested where the next one opens.
TEST_F(SaveWalk, EveryWayOutAsksAboutUnsavedChanges) {
    OpenAndPaint();
    const QImage painted = Canvas();
    DialogScript script;
    const std::function<void()> ways[] = {[&] { Click(Command::Close); }, [&] { Key(Qt::Key_F4, Qt::AltModifier); },
                                          [&] { EXPECT_FALSE(window.close()); }};
    for (const auto& leave : ways) {
        script.Press("Cancel");
        leave();
        EXPECT_TRUE(window.isVisible() && camera.Connected());
        EXPECT_EQ(Canvas(), painted);
    }
    script.Press("No");
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible() || camera.Connected());
}

TEST_F(SaveWalk, WithoutChangesThereIsNoQuestion) {
    OpenPhoto();
    const DialogScript none;
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace kelu
