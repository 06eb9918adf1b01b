// The splash's rotation.
// SPDX-License-Identifier: MIT
#include "app/splash.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>

#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

class SplashTest : public testing::Test {
 protected:
    SplashTest() {
        for (int number = 1; number <= 8; ++number) {
            QImage picture(80, 60, QImage::Format_RGB32);
            picture.fill(QColor(number * 20, 0, 0));
            picture.save(FileOf(number), "PNG");
        }
    }
    QString FileOf(int number) { return folder_.filePath(QString("scr_loader%1.rs").arg(number)); }

    // One start of the program with the stored number; the picture's number, or 0.
    int Start(const QString& stored) {
        settings_.WriteText(settings::kSplashNumber.key, stored);
        QLabel cover;
        Splash splash(cover, state_, settings_, dialog_, folder_.path());
        splash.LoadSplash();
        return cover.pixmap().isNull() ? 0 : (qRed(cover.pixmap().toImage().pixel(50, 50)) + 10) / 20;
    }
    QString Stored() { return settings_.ReadText(settings::kSplashNumber); }

    QTemporaryDir folder_;
    SharedState state_;
    MemorySettings settings_;
    ScriptedDialog dialog_;
};

TEST_F(SplashTest, ShowsOnePictureAfterTheOther) {
    struct Case {
        const char* stored;
        int picture;
        const char* next;
    };
    for (const Case& test : {Case{"1", 1, "2"},
                             {"2", 2, "3"},
                             {"7", 7, "8"},
                             {"8", 8, "1"},
                             {"0", 0, "1"},
                             {"9", 0, "1"},
                             {"99999", 0, "1"},
                             {"abc", 0, "1"}}) {
        EXPECT_EQ(Start(test.stored), test.picture) << test.stored;
        EXPECT_EQ(Stored(), test.next) << test.stored;
    }
    EXPECT_TRUE(dialog_.shown.empty());
}

TEST_F(SplashTest, AMissingPictureKeepsItsTurn) {
    QFile::remove(FileOf(3));
    EXPECT_EQ(Start("3"), 0);
    ASSERT_EQ(dialog_.shown.size(), 1U);
    EXPECT_EQ(dialog_.shown[0].heading, "Error");
    EXPECT_EQ(Stored(), "3");
}

}  // namespace
}  // namespace kelu
