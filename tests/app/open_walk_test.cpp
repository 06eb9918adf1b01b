// Pictures come in through the window: by the browse dialog, by a drop, from the command line, on a clean and on a
// changed picture, with every answer to the question.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QLabel>

#include "controls/note/note_bar.h"
#include "pictures/picture_file.h"
#include "tests/app/dialog_hands.h"
#include "tests/app/main_window_fixture.h"

namespace kelu {
namespace {

enum class Way { Browse, Drop };

struct RealDialogs : MainWindowFixture {
    RealDialogs() : MainWindowFixture(Dialogs::Real) {
        settings.Write(settings::kLastFolder, folder.path());  // what the browse dialog shows
    }
    void Open(Way way, const QString& path, DialogScript& script) {
        if (way == Way::Drop) return Drop(path);
        script.Then<frmBrowse>(OpenIn(path));
        Click(Command::Open);
    }
};

struct Answer {
    Way way;
    const char* button;
    bool saves;  // else the save dialog is cancelled
};

void PrintTo(const Answer& row, std::ostream* out) {
    *out << (row.way == Way::Drop ? "drop " : "browse ") << row.button << (row.saves ? " saved" : "");
}

struct ChangedPicture : RealDialogs, testing::WithParamInterface<Answer> {};

INSTANTIATE_TEST_SUITE_P(AllAnswers, ChangedPicture,
                         testing::Values(Answer{Way::Browse, "Yes", true}, Answer{Way::Browse, "Yes", false},
                                         Answer{Way::Browse, "No", false}, Answer{Way::Browse, "Cancel", false},
                                         Answer{Way::Drop, "Yes", true}, Answer{Way::Drop, "Yes", false},
                                         Answer{Way::Drop, "No", false}, Answer{Way::Drop, "Cancel", false}));

TEST_P(ChangedPicture, IsSettledBeforeTheNextOne) {
    const auto [way, button, saves] = GetParam();
    const QString next = MakePhoto("next.png", 120, 90);
    OpenPhoto();
    Arm();
    Stroke({{60, 60}, {120, 80}});
    const QImage painted = Canvas();
    const bool yes = qstrcmp(button, "Yes") == 0;
    const bool goesOn = qstrcmp(button, "Cancel") != 0;

    DialogScript script;
    script.Then([&](QWidget& message) {
        EXPECT_EQ(message.accessibleDescription(), "Confirm\n\nSave changes to 'photo.png'?");
    });
    script.Press(button);
    if (yes) script.Then<QFileDialog>(saves ? SaveAs(folder.filePath("kept.png")) : CancelSave());
    if (goesOn)
        Open(way, next, script);
    else
        way == Way::Drop ? Drop(next) : Click(Command::Open);

    EXPECT_EQ(QFile::exists(folder.filePath("kept.png")), saves);
    if (saves) {
        EXPECT_EQ(ReadPicture(folder.filePath("kept.png")), painted);
    }
    EXPECT_EQ(Canvas(), goesOn ? ReadPicture(next) : painted);
    EXPECT_EQ(state.ImageDirty, !goesOn);
    EXPECT_TRUE(state.ImageActive);
    EXPECT_EQ(window.surfaces.picCanvas.CanUndo(), !goesOn);
    EXPECT_EQ(state.CurrentFileName, goesOn ? "next.png" : "photo.png");
    EXPECT_EQ(Status(), goesOn ? "next.png - [120 x 90 / 24 bits / 100%]" : "photo.png - (400 x 300 / 24 bits)");
    EXPECT_EQ(state.EffectReady, way == Way::Drop || !goesOn) << "only the browse dialog disarms the brush";
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), ReadPicture(goesOn ? next : folder.filePath("photo.png")));
}

TEST_F(RealDialogs, ACleanPictureGivesWayWithoutAQuestion) {
    OpenPhoto();
    const QString second = MakePhoto("second.jpg", 90, 120), third = MakePhoto("third.bmp", 50, 40);
    DialogScript script;
    Open(Way::Browse, second, script);
    EXPECT_EQ(Status(), "second.jpg - [90 x 120 / 24 bits / 100%]");
    Open(Way::Drop, third, script);
    EXPECT_EQ(Status(), "third.bmp - (50 x 40 / 24 bits)");
    EXPECT_EQ(window.surfaces.picOriginal.Picture(), ReadPicture(third));
    EXPECT_EQ(window.surfaces.picPen.Picture(), ReadPicture(third));
    EXPECT_EQ(script.met.size(), 1) << "the browse dialog and no question";
}

TEST_F(RealDialogs, WhatIsDroppedOrPastedIsAFileOrAPictureWithoutOne) {
    const QString first = MakePhoto("first.png", 120, 90), second = MakePhoto("second.png", 90, 60);
    const QImage web = ReadPicture(MakePhoto("web.png", 70, 80));
    QFile file(folder.filePath("web.png"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const QUrl address("https://example.org/a.png");
    const struct {
        const char* what;
        QList<QUrl> urls;
        QByteArray png;
        bool image;
        QSize opened;  // empty: refused
    } rows[] = {{"files", {address, QUrl::fromLocalFile(first), QUrl::fromLocalFile(second)}, {}, false, {120, 90}},
                {"a browser's picture", {address}, bytes, false, {70, 80}},
                {"pixels alone", {}, {}, true, {70, 80}},
                {"an address alone", {address}, {}, false, {}}};
    DialogScript script;
    for (const bool pasted : {false, true})
        for (const auto& row : rows) {
            Drop(second);
            QMimeData data;
            if (!row.urls.isEmpty()) data.setUrls(row.urls);
            if (!row.png.isEmpty()) data.setData("image/png", row.png);
            if (row.image) data.setImageData(web);
            if (pasted) {
                auto* copied = new QMimeData;
                for (const QString& format : data.formats()) copied->setData(format, data.data(format));
                if (row.image) copied->setImageData(web);
                QGuiApplication::clipboard()->setMimeData(copied);
                Key(Qt::Key_V, Qt::ControlModifier);
            } else {
                EXPECT_EQ(Drop(data), !row.opened.isEmpty()) << row.what;
            }
            EXPECT_EQ(Canvas().size(), row.opened.isEmpty() ? QSize(90, 60) : row.opened) << row.what << pasted;
            if (row.opened != web.size()) continue;
            EXPECT_EQ(Canvas(), web) << row.what << pasted;
            EXPECT_EQ(Status(), "Kelu_Paste.png - (70 x 80 / 24 bits)");
        }
    QMimeData never;  // as of a program that hangs
    never.setData("image/png", "");
    const QImage before = Canvas();
    script.Then([](QWidget& message) {
        EXPECT_TRUE(message.accessibleDescription().contains("did not give the picture that it offers"));
    });
    script.Press("OK");
    EXPECT_TRUE(Drop(never));
    EXPECT_EQ(Canvas(), before);
    Arm();
    Stroke({{30, 30}, {60, 40}});
    const QImage painted = Canvas();
    script.Press("Cancel");
    QGuiApplication::clipboard()->setImage(web);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), painted) << "a paste asks as a drop does";
}

TEST_F(RealDialogs, ABrokenFileIsOneErrorAndChangesNothing) {
    const QString broken = folder.filePath("broken.png");
    ASSERT_TRUE(QFile::copy(MakePhoto(), broken));
    ASSERT_TRUE(QFile::resize(broken, QFileInfo(broken).size() / 2));
    OpenPhoto();
    Arm();
    Stroke({{60, 60}, {120, 80}});
    const QImage painted = Canvas();
    const QString status = Status();
    DialogScript script;
    script.Press("No").Then<frmBrowse>(OpenIn(broken));  // give the changes up
    script.Then([](QWidget& message) {
        EXPECT_TRUE(
            message.accessibleDescription().startsWith("Error\n\nThe following error has occured:\nbroken.png: "))
            << message.accessibleDescription().toStdString();
    });
    script.Press("OK").Then<frmBrowse>(CancelBrowse());
    Click(Command::Open);
    EXPECT_EQ(Canvas(), painted);
    EXPECT_EQ(Status(), status);
    EXPECT_TRUE(state.ImageActive && state.EffectReady);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), ReadPicture(folder.filePath("photo.png")));
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Canvas(), painted);
}

struct CommandLine : RealDialogs {
    void SetUp() override {}  // the splash is still to come
};

TEST_F(CommandLine, APictureOpensBehindTheSplash) {
    window.Start();
    window.show();
    settings.Write(settings::kResize, 1);
    state.ResizeOnOpen = 1;
    window.OpenPicture(MakePhoto(QStringLiteral("photo.png"), 2400, 1600));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QImage behind = window.grab().toImage();
    QTest::keyClick(window.controls.picCover, Qt::Key_Return);
    QTest::qWait(20);
    EXPECT_EQ(window.controls.note->Text(), QString::fromUtf8("Made smaller, 2400 \u00D7 1600 to 800 \u00D7 533"))
        << "not ended by the key that uncovers it";
    const QImage open = window.grab().toImage();
    const QPoint zoom = window.controls.picZoomContainer->geometry().center();
    EXPECT_TRUE(canvas.isVisible());
    EXPECT_TRUE(window.controls.picZoomContainer->isVisible());
    EXPECT_EQ(window.childAt(zoom)->parentWidget(), window.controls.picZoomContainer);
    EXPECT_NE(behind.copy(canvas.geometry()), open.copy(canvas.geometry())) << "the splash covers the picture";
    EXPECT_EQ(Status(), "photo.png - (800 x 533 / 24 bits)");
    Arm();
    Stroke({{50, 50}, {90, 90}});
    EXPECT_TRUE(state.ImageDirty);
}

}  // namespace
}  // namespace kelu
