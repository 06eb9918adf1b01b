// The open dialog over real folders: what it lists, how list and combo keep in step, choosing, OK, languages, and
// thumbnails with their cache.
// SPDX-License-Identifier: MIT
#include "dialogs/browse/frm_browse.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QAbstractItemView>
#include <QAction>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>
#include <algorithm>
#include <filesystem>

#include "controls/tool_button/tool_button.h"
#include "dialogs/browse/folder_combo.h"
#include "platform/error.h"
#include "platform/temporary_folder.h"
#include "tests/support/kit.h"
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
    void Write(const QString& name, const QByteArray& bytes) { WriteBytes(home.filePath(name), bytes); }
    frmBrowse* latest = nullptr;
    std::unique_ptr<frmBrowse> Dialog() {
        auto form = std::make_unique<frmBrowse>(
            settings, dialog,
            [this](const QString& path) {
                EXPECT_FALSE(latest->isVisible()) << "a large picture takes its time";
                if (!failure.isEmpty()) throw Error(kInvalidPicture, failure);
                opened << path;
            },
            nullptr, places, ThumbnailCache(cacheFolder.path()));
        latest = form.get();
        form->show();
        // On a busy machine the folder may take longer than the dialog waits for it.
        EXPECT_TRUE(QTest::qWaitFor([&] { return EmptyText(*form) != "Reading the folder..."; }));
        return form;
    }
    static QStringList Rows(frmBrowse& form) {
        QStringList rows;
        for (int row = 0; row < form.FileViewer_->Model().rowCount(); ++row)
            rows << form.FileViewer_->Model().index(row, 0).data().toString();
        return rows;
    }
    static QAbstractItemView* View(frmBrowse& form) {
        return qobject_cast<QAbstractItemView*>(form.FileViewer_->currentWidget());
    }
    static void Choose(frmBrowse& form, const QString& path) {
        View(form)->setCurrentIndex(form.FileViewer_->Model().RowOf(path));
    }
    void GoTo(frmBrowse& form, const QString& path) {
        QTest::keyClick(&form, Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(form.ComboDrive->findChild<QLineEdit*>(), path);
        QTest::keyClick(form.ComboDrive->findChild<QLineEdit*>(), Qt::Key_Return);
    }
    /// Of a picture or of the mark of a broken one; null: none of both yet.
    static QSize Shown(frmBrowse& form, const QString& path) {
        const QModelIndex row = form.FileViewer_->Model().RowOf(path);
        return row.data(FolderModel::kBrokenRole).toBool()
                   ? QSize(-1, -1)
                   : row.data(FolderModel::kThumbnailRole).value<QPixmap>().size();
    }
    static QString EmptyText(frmBrowse& form) {
        const auto* text = form.FileViewer_->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        return text->isVisible() ? text->text() : QString();
    }
};

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

TEST_F(BrowseTest, MouseAndKeysWalkTheFolders) {
    const auto form = Dialog();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    Choose(*form, home.filePath("Gallery/b.png"));
    form->cmdFolder[0]->click();
    EXPECT_TRUE(form->cmdFolder[0]->isChecked());
    EXPECT_EQ(form->ComboDrive->Folder(), places.pictures);
    const QString sea = home.filePath("Pictures/Sea");
    for (const auto view : {FileViewer::ViewKind::Thumbnails, FileViewer::ViewKind::Details}) {
        form->FileViewer_->SetView(view);
        Choose(*form, sea);
        QTest::keyClick(View(*form), Qt::Key_Return);
        EXPECT_EQ(form->FileViewer_->Folder(), sea);
        EXPECT_TRUE(form->isVisible() && opened.isEmpty()) << "a folder is entered and no more";
        QTest::keyClick(View(*form), Qt::Key_Backspace);
        EXPECT_EQ(form->FileViewer_->Folder(), places.pictures);
        EXPECT_EQ(form->FileViewer_->CurrentItem()->path, sea) << "where one came from is marked";
    }
    EXPECT_EQ(View(*form)->selectionModel()->selectedIndexes().size(), 4) << "the whole row";
    QTest::keyClick(View(*form), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(form->ComboDrive->currentText(), "Sea");
    QTest::keyClick(View(*form), Qt::Key_Up, Qt::AltModifier);
    QWheelEvent wheel({5, 5}, form->ComboDrive->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(form->ComboDrive, &wheel);
    EXPECT_EQ(form->FileViewer_->Folder(), places.pictures) << "the wheel leads nowhere";
    for (int step = 0; step < 9; ++step) form->cmdBack->click();
    EXPECT_EQ(form->FileViewer_->Folder(), places.gallery) << "there is nothing before the first folder";
    form->cmdFolder[3]->click();
    EXPECT_THAT(Rows(*form), testing::Contains(QStringLiteral("/")));

    GoTo(*form, places.documents);
    EXPECT_EQ(form->FileViewer_->Folder(), places.documents);
    EXPECT_EQ(EmptyText(*form), "No pictures in this folder");
    GoTo(*form, "../nowhere");
    EXPECT_EQ(dialog.shown.size(), 1u);
    GoTo(*form, "file://" + home.filePath("Gallery/a2.bmp") + " ");
    EXPECT_EQ(form->FileViewer_->CurrentItem()->path, home.filePath("Gallery/a2.bmp"));
    QTest::keyClick(form->ComboDrive, Qt::Key_L, Qt::ControlModifier);
    QTest::keyClick(form->ComboDrive->findChild<QLineEdit*>(), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible()) << "Escape ends the typing, not the dialog";
    QTest::keyClick(View(*form), Qt::Key_Return);
    EXPECT_EQ(opened, QStringList{home.filePath("Gallery/a2.bmp")});

    const auto next = Dialog();
    ASSERT_TRUE(QTest::qWaitForWindowActive(next.get()));
    View(*next)->selectionModel()->setCurrentIndex(next->FileViewer_->Model().RowOf(home.filePath("Gallery/b.png")),
                                                   QItemSelectionModel::NoUpdate);
    QTest::keyClick(View(*next), Qt::Key_Return);
    EXPECT_EQ(opened.size(), 2) << "where the keys stand, marked or not";
}

/// Every text that the dialog shows or tells in the language of this ID.
QStringList TextsOf(frmBrowse& form) {
    QStringList texts{form.windowTitle(), form.FileViewer_->accessibleName()};
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        texts << widget->accessibleName();
        if (const auto* label = qobject_cast<const QLabel*>(widget)) texts << label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) texts << button->text();
        if (const auto* button = qobject_cast<const ToolButton*>(widget)) texts << button->Tip();
    }
    for (const QAction* action : form.mnuViews) texts << action->text();
    for (int row = 0; row < form.ComboDrive->count(); ++row) texts << form.ComboDrive->itemText(row);
    for (int column = 0; column < 4; ++column)
        texts << form.FileViewer_->Model().headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    return texts;
}

TEST_F(BrowseTest, SpeaksOneLanguageAtATime) {
    const auto textsIn = [&](const char* id) {
        settings.Write(settings::kLanguage, id);
        settings.Write(settings::kLastFolder, "/");
        return TextsOf(*Dialog());
    };
    const QStringList english = textsIn("0");
    EXPECT_TRUE(english.contains("Move up one folder"));
    for (const char* id : {"1", "7", "pigeon"}) EXPECT_EQ(textsIn(id), english) << id;
    const QStringList french = textsIn("3");
    const QStringList spanish = textsIn("2");
    EXPECT_TRUE(spanish.contains("Avanzar una carpeta") && spanish.contains("Miniaturas de Imágenes"));
    ASSERT_EQ(spanish.size(), english.size());
    for (qsizetype i = 0; i < english.size(); ++i) {
        EXPECT_TRUE(english[i] != spanish[i] || english[i].size() < 3) << english[i].toStdString();
        EXPECT_TRUE(french[i] == english[i] || english[i] == "Close")
            << "no French was asked for here: " << french[i].toStdString();
    }
    textsIn("0");
}

TEST_F(BrowseTest, ShowsWhatHappensInTheFolder) {
    const auto form = Dialog();
    const QString slow = home.filePath("Gallery/slow.bmp");
    Choose(*form, home.filePath("Gallery/b.png"));
    // A picture that arrives in two pieces, with its second piece no event of the folder's own.
    QImage picture(200, 200, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(picture.save(&buffer, "bmp"));
    Write("Gallery/slow.bmp", bytes.left(30000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(*form, slow) == QSize(-1, -1); })) << "half a picture is none";
    QFile file(slow);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(bytes.mid(30000));
    file.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(*form, slow) == QSize(96, 96); })) << "whole, it is shown";
    ASSERT_TRUE(picture.scaled(50, 80).save(slow));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(*form, slow) == QSize(50, 80); })) << "overwritten";
    EXPECT_EQ(form->FileViewer_->CurrentItem()->path, home.filePath("Gallery/b.png"));

    // Files that never cease to come don't hide those that are there.
    bool listed = false;
    for (int i = 0; i < 40 && !listed; ++i, QTest::qWait(60)) {
        Write(QStringLiteral("Gallery/more %1.png").arg(i), "x");
        listed = Rows(*form).contains("more 0.png");
    }
    EXPECT_TRUE(listed);
    GoTo(*form, home.filePath("Pictures/Sea"));
    QDir(home.filePath("Pictures/Sea")).removeRecursively();
    EXPECT_TRUE(QTest::qWaitFor([&] { return EmptyText(*form) == "This folder can't be read"; }));
}

TEST_F(BrowseTest, TakesNamesAsTheyAre) {
    const std::string folder = places.documents.toStdString();
    const std::filesystem::path picture = home.filePath("Gallery/a2.bmp").toStdString();
    std::filesystem::create_directory(folder + "/\xc0lbum");
    std::filesystem::copy(picture, folder + "/\xc0lbum/caf\xe9.bmp");
    std::filesystem::copy(picture, folder + "/two\nlines.bmp");
    std::filesystem::copy(picture, folder + "/<b>bold.bmp");
    mkfifo((folder + "/pipe.bmp").c_str(), 0600);
    const QString left = TemporaryFolder() + "/names-left";
    std::filesystem::create_directory(left.toStdString());
    std::filesystem::create_symlink(folder, left.toStdString() + "/link");
    const auto form = Dialog();
    EXPECT_FALSE(QFileInfo::exists(left)) << "what a killed program left";
    GoTo(*form, places.documents);
    EXPECT_EQ(Rows(*form), (QStringList{QString(QChar(0xfffd)) + "lbum", "<b>bold.bmp", "two lines.bmp"}));
    FolderModel& model = form->FileViewer_->Model();
    EXPECT_TRUE(model.index(1, 0).data(Qt::ToolTipRole).toString().contains("&lt;b&gt;bold.bmp"));
    View(*form)->setCurrentIndex(model.index(0, 0));
    QTest::keyClick(View(*form), Qt::Key_Return);
    View(*form)->setCurrentIndex(model.index(0, 0));
    QTest::keyClick(View(*form), Qt::Key_Return);
    ASSERT_EQ(opened.size(), 1);
    Dialog();  // which leaves alone what is in use
    EXPECT_EQ(QImage(opened[0]).size(), QSize(300, 200)) << opened[0].toStdString();
    EXPECT_EQ(settings.Read(settings::kLastFolder), places.documents) << "the link is gone with the program";
    form->FileViewer_->GoUp();
    EXPECT_EQ(form->FileViewer_->Folder(), places.documents);
    std::filesystem::remove_all(folder);
}

TEST_F(BrowseTest, KeepsThumbnailsOnDiskAsLongAsTheFileIsTheSame) {
    const auto age = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadWrite) &&
               file.setFileTime(QDateTime::fromSecsSinceEpoch(1700000000), QFileDevice::FileModificationTime);
    };
    const QString good = home.filePath("Gallery/a2.bmp");
    const QString broken = home.filePath("Gallery/broken.png");
    ASSERT_TRUE(age(good) && age(broken));
    const auto form = Dialog();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Shown(*form, good).width() == 120; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(*form, broken) == QSize(-1, -1); }));
    const QDir large(cacheFolder.filePath("large"));
    const QStringList kept = large.entryList(QDir::Files);
    ASSERT_EQ(kept.size(), 1) << "what was written just now may still be written to";
    EXPECT_EQ(int(QFileInfo(large.path()).permissions() & 0x77), 0) << "for the user alone";
    EXPECT_EQ(QDir(cacheFolder.filePath("fail/kelu")).entryList(QDir::Files).size(), 1);
    QImage other(64, 64, QImage::Format_RGB32);
    other.fill(Qt::blue);
    const ThumbnailCache cache(cacheFolder.path());
    ASSERT_TRUE(other.save(large.filePath(kept[0]), "png"));
    EXPECT_EQ(cache.Thumbnail(good).width(), 256) << "not what another picture left";
    EXPECT_EQ(QImage(large.filePath(kept[0])).width(), 256) << "kept anew";
    ASSERT_TRUE(other.scaled(90, 90).save(good) && age(good));
    EXPECT_EQ(cache.Thumbnail(good).size(), QSize(90, 90)) << "another picture of the same time";
}

TEST_F(BrowseTest, LetsThumbnailsGo) {
    constexpr int kPictures = 300;  // of 256 KB each, where 64 MB are kept
    QImage picture(256, 256, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(home.filePath("one.bmp")));
    for (int i = 0; i < kPictures; ++i)
        QFile::link(home.filePath("one.bmp"), home.filePath(QStringLiteral("Pictures/%1.bmp").arg(i)));
    FolderModel model{ThumbnailCache(cacheFolder.path())};
    model.SetFilter("*.bmp");
    model.SetFolder(places.pictures);
    ASSERT_TRUE(QTest::qWaitFor([&] { return model.rowCount() > kPictures; }, 20000));
    QModelIndexList rows;
    for (int row = 1; row <= kPictures; ++row) rows << model.index(row, 0);
    int made = 0;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, [&] { ++made; });
    model.WishThumbnails(rows);
    ASSERT_TRUE(QTest::qWaitFor([&] { return made >= kPictures; }, 20000));
    const auto held = std::count_if(rows.begin(), rows.end(),
                                    [](const auto& row) { return row.data(FolderModel::kThumbnailRole).isValid(); });
    EXPECT_GT(held, 200);
    EXPECT_LT(held, 257);
}

}  // namespace
}  // namespace kelu
