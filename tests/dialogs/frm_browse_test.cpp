// The open dialog over real folders: what it lists, how list and combo keep in step, choosing, OK, languages, and
// thumbnails with their cache.
// SPDX-License-Identifier: MIT
#include "dialogs/browse/frm_browse.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "controls/tool_button/tool_button.h"
#include "dialogs/browse/folder_combo.h"
#include "platform/error.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

struct BrowseTest : testing::Test {
    QTemporaryDir home;
    QTemporaryDir cacheFolder;
    MemorySettings settings;
    ScriptedDialog dialog;
    QStringList opened;
    QString failure;
    frmBrowse::Places places;

    void SetUp() override {
        for (const char* folder : {"Pictures/Sea", "Gallery", "Documents"}) QDir(home.path()).mkpath(folder);
        places = {home.filePath("Pictures"), home.filePath("Gallery"), home.filePath("Documents")};
        MakePicture("Gallery/b.png");
        MakePicture("Gallery/A10.JPEG", "jpg");
        MakePicture("Gallery/a2.bmp");
        Write("Gallery/notes.txt", "no picture");
        Write("Gallery/broken.png", QByteArray(20000, 'x'));
    }
    void MakePicture(const QString& name, const char* format = nullptr) {
        QImage image(300, 200, QImage::Format_RGB32);
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 300; ++x) image.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, (x * y) % 256));
        ASSERT_TRUE(image.save(home.filePath(name), format));
    }
    void Write(const QString& name, const QByteArray& bytes) {
        QFile file(home.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::unique_ptr<frmBrowse> Dialog() {
        auto form = std::make_unique<frmBrowse>(
            settings, dialog,
            [this](const QString& path) {
                if (!failure.isEmpty()) throw Error(kInvalidPicture, failure);
                opened << path;
            },
            nullptr, places, ThumbnailCache(cacheFolder.path()));
        form->show();
        return form;
    }
    static QStringList Rows(frmBrowse& form) {
        QStringList rows;
        for (int row = 0; row < form.FileViewer_->Model().rowCount(); ++row)
            rows << form.FileViewer_->Model().index(row, 0).data().toString();
        return rows;
    }
    static void Choose(frmBrowse& form, const QString& path) {
        auto* view = qobject_cast<QAbstractItemView*>(form.FileViewer_->currentWidget());
        view->setCurrentIndex(form.FileViewer_->Model().RowOf(path));
    }
};

TEST(PictureNames, EndAsTheListSays) {
    for (const char* name : {"a.bmp", "a.JPG", "a.b.Jpeg", "/x/y.tif", "p.pcx", "p.psd", "p.tga", "g.gif", "q.png"})
        EXPECT_TRUE(IsPictureName(name)) << name;
    for (const char* name : {"a.tiff", "apng", "a.png.txt", "", "a.rs"}) EXPECT_FALSE(IsPictureName(name)) << name;
}

TEST_F(BrowseTest, StartsInTheGalleryAndListsOnlyPictures) {
    const auto form = Dialog();
    EXPECT_EQ(form->FileViewer_->Folder(), places.gallery);
    EXPECT_EQ(Rows(*form), (QStringList{"a2.bmp", "A10.JPEG", "b.png", "broken.png"}));
    EXPECT_EQ(form->ComboDrive->Folder(), places.gallery);
    EXPECT_EQ(form->ComboDrive->currentText(), "Gallery");
    EXPECT_FALSE(form->cmdOK->isEnabled());
    EXPECT_EQ(form->FileViewer_->View(), FileViewer::ViewKind::Thumbnails);
    EXPECT_TRUE(form->mnuViews[4]->isChecked());
}

TEST_F(BrowseTest, OkOpensTheChosenPictureAndKeepsTheFolderShown) {
    const auto form = Dialog();
    Choose(*form, home.filePath("Gallery/b.png"));
    ASSERT_TRUE(form->cmdOK->isEnabled());
    form->cmdFolder[0]->click();
    EXPECT_TRUE(form->cmdOK->isEnabled()) << "the choice outlives the folder";
    form->cmdOK->click();
    EXPECT_EQ(opened, QStringList{home.filePath("Gallery/b.png")});
    EXPECT_EQ(settings.Read(settings::kLastFolder), places.pictures) << "the folder shown, not the file's";
    EXPECT_EQ(form->result(), QDialog::Accepted);

    const auto next = Dialog();
    EXPECT_EQ(next->FileViewer_->Folder(), places.pictures);
    next->cmdFolder[2]->click();
    next->cmdCancel->click();
    EXPECT_EQ(settings.Read(settings::kLastFolder), places.pictures) << "Cancel stores nothing";
}

TEST_F(BrowseTest, AFailureKeepsTheDialogOpen) {
    const auto form = Dialog();
    failure = QStringLiteral("not a picture");
    Choose(*form, home.filePath("Gallery/broken.png"));
    form->cmdOK->click();
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].text, "The following error has occured:\r\nnot a picture (481)\r\n");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(settings.Read(settings::kLastFolder), "");
    failure.clear();
    Choose(*form, home.filePath("Gallery/b.png"));
    form->cmdOK->click();
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(BrowseTest, ListAndComboKeepInStep) {
    const auto form = Dialog();
    form->cmdFolder[0]->click();
    EXPECT_TRUE(form->cmdFolder[0]->isChecked());
    EXPECT_EQ(form->ComboDrive->Folder(), places.pictures);
    // A folder is entered by activating it; that chooses no picture.
    auto* view = qobject_cast<QAbstractItemView*>(form->FileViewer_->currentWidget());
    Q_EMIT view->activated(form->FileViewer_->Model().RowOf(home.filePath("Pictures/Sea")));
    EXPECT_EQ(form->FileViewer_->Folder(), home.filePath("Pictures/Sea"));
    EXPECT_EQ(form->ComboDrive->currentText(), "Sea");
    EXPECT_FALSE(form->cmdOK->isEnabled());
    form->CmdUp->click();
    EXPECT_EQ(form->FileViewer_->Folder(), places.pictures);
    form->cmdBack->click();
    EXPECT_EQ(form->FileViewer_->Folder(), home.filePath("Pictures/Sea"));
    form->cmdBack->click();
    form->cmdBack->click();
    EXPECT_EQ(form->FileViewer_->Folder(), places.gallery);
    form->cmdBack->click();
    EXPECT_EQ(form->FileViewer_->Folder(), places.gallery) << "there is nothing before the first folder";
    form->cmdFolder[3]->click();
    EXPECT_THAT(Rows(*form), testing::Contains(QStringLiteral("/")));
    form->cmdFolder[1]->click();
    EXPECT_FALSE(form->cmdFolder[3]->isChecked());
    EXPECT_TRUE(form->cmdFolder[1]->isChecked());
}

TEST_F(BrowseTest, SpeaksItsLanguages) {
    struct Row {
        const char* id;
        const char* caption;
        const char* cancel;
        const char* details;
        const char* up;
    };
    for (const Row& row : {Row{"0", "Open", "Cancel", "Details", "Move up one folder"},
                           Row{"1", "Open", "Cancel", "Details", "Move up one folder"},
                           Row{"2", "Abrir", "Cancelar", "Detalles", "Avanzar una carpeta"},
                           Row{"3", "Open", "Cancel", "Details", "Move up one folder"}}) {
        settings.Write(settings::kLanguage, row.id);
        const auto form = Dialog();
        EXPECT_EQ(form->windowTitle(), row.caption) << row.id;
        EXPECT_EQ(form->cmdCancel->text(), row.cancel);
        EXPECT_EQ(form->mnuViews[3]->text(), row.details);
        EXPECT_EQ(form->CmdUp->Tip(), row.up);
    }
}

TEST_F(BrowseTest, ShowsChangesOfTheFolderAndKeepsTheChoice) {
    const auto form = Dialog();
    Choose(*form, home.filePath("Gallery/b.png"));
    MakePicture("Gallery/a1.png");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Rows(*form).contains("a1.png"); }, 3000));
    EXPECT_EQ(form->FileViewer_->CurrentItem()->path, home.filePath("Gallery/b.png"));
    QFile::remove(home.filePath("Gallery/b.png"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Rows(*form).contains("b.png"); }, 3000));
}

TEST_F(BrowseTest, MakesThumbnailsOnceAndMarksBrokenFiles) {
    const auto thumbnail = [](frmBrowse& form, const QString& path) {
        return form.FileViewer_->Model().RowOf(path).data(FolderModel::kThumbnailRole).value<QPixmap>();
    };
    const QString good = home.filePath("Gallery/a2.bmp");
    const QString broken = home.filePath("Gallery/broken.png");
    {
        const auto form = Dialog();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !thumbnail(*form, good).isNull(); }, 5000));
        EXPECT_EQ(thumbnail(*form, good).width(), 256);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return form->FileViewer_->Model().RowOf(broken).data(FolderModel::kBrokenRole).toBool(); }, 5000));
    }
    QDir large(cacheFolder.filePath("large"));
    EXPECT_EQ(large.entryList(QDir::Files).size(), 3);
    EXPECT_EQ(QDir(cacheFolder.filePath("fail/kelu")).entryList(QDir::Files).size(), 1);
    const QImage kept(large.filePath(large.entryList(QDir::Files).first()));
    EXPECT_FALSE(kept.text("Thumb::URI").isEmpty());

    // The cache is used as long as the file is the same, and not a moment longer.
    const ThumbnailCache cache(cacheFolder.path());
    const QImage before = cache.Thumbnail(good);
    QImage other(64, 64, QImage::Format_RGB32);
    other.fill(Qt::blue);
    ASSERT_TRUE(other.save(good));
    QFile file(good);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addSecs(-100), QFileDevice::FileModificationTime);
    file.close();
    EXPECT_EQ(before.width(), 256);
    EXPECT_EQ(cache.Thumbnail(good).size(), QSize(64, 64));
}

}  // namespace
}  // namespace kelu
