// The document's logic with real files and without a window: opening, shrinking, status text, saving, undo and zoom.
// SPDX-License-Identifier: MIT
#include "document/document.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QColorSpace>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "document/history.h"
#include "document/open_save.h"
#include "document/zoom_view.h"
#include "platform/error.h"
#include "tests/support/kept_notes.h"
#include "tests/support/kit.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/scripted_save_dialog.h"

namespace kelu {
namespace {

struct DocumentTest : testing::Test {
    QTemporaryDir folder;
    SharedState state;
    Surfaces surfaces;
    NullView view;
    NullView originalView;
    ScriptedDialog dialog;
    ScriptedSaveDialog saveDialog;
    QStringList pdfs, folders;
    int browses = 0;
    bool escapes = false;  // the user leaves whatever takes long
    Document document{
        surfaces, view, originalView, state, SessionLog::None(), [this](const std::function<void()>& run) {
            if (escapes) throw WorkCancelled();
            run();
        }};
    KeptNotes notes;
    OpenSave openSave{document,
                      state,
                      dialog,
                      saveDialog,
                      notes,
                      {[this] { ++browses; }, [this](const QString& path) { return pdfs << path, true; },
                       [] { return QStringLiteral("B/W"); }, [this](const QString& path) { folders << path; }}};
    History history{surfaces.picCanvas, view, state, notes};
    ZoomView zoom{document, view, state};

    QString MakePicture(int width, int height, const QString& name = QStringLiteral("a.png"), QRgb color = 0xff336699) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        const QString path = folder.filePath(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    /// One stroke, as the painter makes it.
    void Paint() {
        surfaces.picPen.CreateBlank(surfaces.picCanvas.ImageWidth(), surfaces.picCanvas.ImageHeight(), 24, Qt::red);
        surfaces.picCanvas.SelectBrush(surfaces.picPen.MakeBrush(5));
        surfaces.picCanvas.PushUndo();
        surfaces.picCanvas.DrawBrushLine(5, 5, 9, 5, 255);
        state.ImageDirty = true;
    }
};

TEST_F(DocumentTest, ShrinksWhatIsLargerThanTheLimits) {
    struct Row {
        int width, height, resize;
        QSize opened;
    };
    const Row rows[] = {
        {3000, 2000, 1, {800, 533}},   {2048, 1000, 1, {2048, 1000}}, {2049, 1000, 1, {800, 390}},
        {1000, 2000, 1, {600, 1200}},  {1000, 1536, 1, {1000, 1536}}, {1000, 1537, 1, {600, 922}},
        {2100, 2100, 1, {2100, 2100}}, {3000, 2000, 0, {3000, 2000}}, {3000, 2000, 2, {3000, 2000}},
    };
    for (const Row& row : rows) {
        state.ResizeOnOpen = static_cast<std::int16_t>(row.resize);
        document.Open(MakePicture(row.width, row.height), Document::Source::Browse);
        for (Surface* surface : {&surfaces.picCanvas, &surfaces.picPen, &surfaces.picOriginal})
            EXPECT_EQ(QSize(surface->ImageWidth(), surface->ImageHeight()), row.opened)
                << row.width << "x" << row.height;
    }
    state.ResizeOnOpen = 1;
    document.Open(MakePicture(3000, 2000), Document::Source::Capture);
    EXPECT_EQ(surfaces.picCanvas.ImageWidth(), 3000) << "a snapshot is never shrunk";
}

TEST_F(DocumentTest, SaveFollowsTheExtensionAndSettlesTheState) {
    document.Open(MakePicture(40, 30), Document::Source::Browse);
    openSave.PerformSave();
    EXPECT_EQ(saveDialog.shown, 0) << "no changes, no dialog";

    Paint();
    openSave.PerformSave();
    EXPECT_EQ(saveDialog.shown, 2) << "a first Cancel brings the dialog again";
    EXPECT_EQ(saveDialog.offeredFilter, 2);
    EXPECT_TRUE(state.ImageDirty);
    EXPECT_TRUE(state.ImageActive);

    // The name decides, whatever the filter.
    saveDialog.names = {folder.filePath("out.jpg")};
    saveDialog.chosenFilter = 1;
    openSave.PerformSave();
    EXPECT_EQ(saveDialog.shown, 3);
    EXPECT_TRUE(ReadBytes(folder.filePath("out.jpg")).startsWith("\xff\xd8"));
    EXPECT_FALSE(state.ImageDirty);
    EXPECT_FALSE(state.ImageActive);

    history.PerformUndo();
    EXPECT_TRUE(state.ImageDirty) << "undo works after a save";
    openSave.PerformSave();
    EXPECT_EQ(saveDialog.shown, 4) << "after a save one Cancel is enough";

    saveDialog.names = {folder.filePath("page.png")};
    saveDialog.chosenFilter = SaveDialog::kPdfFilter;
    openSave.PerformSave();
    EXPECT_EQ(pdfs, QStringList{folder.filePath("page.png")});
    EXPECT_FALSE(state.ImageDirty);
}

TEST_F(DocumentTest, ASavedPictureIsToldAndCanBeGoneOnWith) {
    state.ResizeOnOpen = 1;
    openSave.Drop(MakePicture(3000, 2000, QStringLiteral("big cat.jpg")));
    ASSERT_EQ(notes.shown.size(), 1u);
    EXPECT_EQ(notes.shown[0].text, QString::fromUtf8("Made smaller, 3000 × 2000 to 800 × 533"));
    const std::function<void()> inFullSize = notes.shown[0].buttons.at(0).run;
    Paint();
    // Over the opened file only after a warning; No leads back to the dialog.
    saveDialog.names = {folder.filePath("big cat.jpg"), folder.filePath("out.png")};
    dialog.answers = {MsgAnswer::No};
    openSave.PerformSave();
    EXPECT_EQ(saveDialog.offeredName, folder.filePath("big cat - B-W.png"));
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(dialog.shown[0].text.contains(QString::fromUtf8("3000 × 2000")));
    EXPECT_EQ(QImage(folder.filePath("big cat.jpg")).width(), 3000);
    ASSERT_EQ(notes.shown.size(), 2u);
    const Note saved = notes.shown[1];
    EXPECT_EQ(saved.text, "Saved as out.png");
    saved.buttons.at(1).run();
    EXPECT_EQ(folders, QStringList{folder.path()});
    saved.buttons.at(0).run();
    EXPECT_EQ(state.CurrentFileName, "out.png");
    EXPECT_TRUE(state.ImageActive);

    inFullSize();
    EXPECT_EQ(surfaces.picCanvas.ImageWidth(), 3000);
    Paint();
    saveDialog.names = {folder.filePath("big cat.jpg")};
    openSave.PerformSave();
    EXPECT_EQ(dialog.shown.size(), 1u) << "nothing is lost, nothing to warn of";
}

TEST_F(DocumentTest, AFailedSaveKeepsTheChanges) {
    document.Open(MakePicture(40, 30), Document::Source::Browse);
    Paint();
    saveDialog.names = {folder.filePath("no/such/folder/a.png"), folder.filePath("a.unknown")};
    openSave.PerformSave();
    EXPECT_EQ(dialog.shown.size(), 2u);
    EXPECT_EQ(saveDialog.shown, 2);
    EXPECT_TRUE(state.ImageDirty);
    EXPECT_TRUE(state.ImageActive);
}

TEST_F(DocumentTest, WhatIsLeftWithEscapeChangesNothingAndIsNoError) {
    document.Open(MakePicture(40, 30), Document::Source::Browse);
    const QString other = MakePicture(20, 10, QStringLiteral("b.png"));
    escapes = true;
    openSave.Drop(other);
    EXPECT_EQ(state.CurrentFileName, "a.png");
    EXPECT_EQ(surfaces.picCanvas.ImageWidth(), 40);
    Paint();
    saveDialog.names = {other, other};
    const QByteArray before = ReadBytes(other);
    openSave.PerformSave();
    EXPECT_EQ(ReadBytes(other), before);
    EXPECT_TRUE(state.ImageDirty);
    EXPECT_TRUE(state.ImageActive);
    QGuiApplication::clipboard()->clear();
    openSave.Copy();
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(DocumentTest, CopyOffersThePictureInSeveralFormatsAndKeepsItFromLaterStrokes) {
    document.Open(MakePicture(40, 30), Document::Source::Browse);
    Paint();
    const QImage copied = surfaces.picCanvas.Picture().copy();
    openSave.Copy();
    surfaces.picCanvas.DrawBrushLine(5, 15, 20, 15, 255);
    const QMimeData* clipboard = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), copied);
    for (const char* format : {"image/png", "image/bmp", "image/tiff"}) {
        EXPECT_TRUE(clipboard->hasFormat(format)) << format;
        QImage pasted = QImage::fromData(clipboard->data(format));
        pasted.setColorSpace({});
        EXPECT_EQ(pasted.convertToFormat(QImage::Format_RGB32), copied) << format;
    }
    EXPECT_TRUE(clipboard->data("image/jpeg").startsWith("\xff\xd8"));
    QGuiApplication::clipboard()->clear();
}

TEST_F(DocumentTest, UndoKeepsTheViewAndCompareIsTold) {
    document.Open(MakePicture(40, 30), Document::Source::Browse);
    QSignalSpy shown(&history, &History::OriginalShown);
    history.PerformUndo();
    EXPECT_FALSE(state.ImageDirty) << "nothing to undo";
    const QImage before = surfaces.picCanvas.Picture().copy();
    Paint();
    const QImage after = surfaces.picCanvas.Picture().copy();
    view.SetFreeView();
    state.ImageDirty = false;
    history.PerformUndo();
    EXPECT_EQ(surfaces.picCanvas.Picture(), before);
    EXPECT_TRUE(state.ImageDirty);
    EXPECT_EQ(view.ViewMode(), ViewKind::Free) << "the user keeps looking where he looks";
    EXPECT_TRUE(view.ViewScrollable());
    history.PerformRedo();
    EXPECT_EQ(surfaces.picCanvas.Picture(), after);

    history.ToggleOriginal();
    history.ToggleOriginal();
    ASSERT_EQ(shown.size(), 2);
    ASSERT_EQ(notes.shown.size(), 1u);
    EXPECT_TRUE(notes.shown[0].stays);
    EXPECT_EQ(notes.cleared, 1);
    EXPECT_TRUE(shown[0][0].toBool());
    EXPECT_FALSE(shown[1][0].toBool());
}

TEST_F(DocumentTest, ZoomStepsAndTheirViews) {
    document.Open(MakePicture(40, 30), Document::Source::Browse);
    struct Row {
        void (ZoomView::*command)();
        int from, to;
        bool startsFree, endsFree;
    };
    const Row rows[] = {
        {&ZoomView::ZoomIn, 41, 51, false, true},  {&ZoomView::ZoomIn, 40, 50, true, false},
        {&ZoomView::ZoomIn, 100, 110, true, true}, {&ZoomView::ZoomOut, 13, 3, false, false},
        {&ZoomView::ZoomOut, 3, 3, false, false},  {&ZoomView::ZoomOut, 55, 45, true, true},
        {&ZoomView::ZoomOut, 14, 4, true, true},   {&ZoomView::Reset, 80, 80, true, false},
    };
    for (const Row& row : rows) {
        row.startsFree ? view.SetFreeView() : view.SetFittedView();
        view.SetZoomPercent(row.from);
        (zoom.*row.command)();
        EXPECT_EQ(view.ZoomPercent(), row.to) << row.from;
        EXPECT_EQ(view.ViewMode(), row.endsFree ? ViewKind::Free : ViewKind::Fitted) << row.from;
        EXPECT_EQ(view.ViewScrollable(), row.endsFree) << row.from;
    }
}

}  // namespace
}  // namespace kelu
