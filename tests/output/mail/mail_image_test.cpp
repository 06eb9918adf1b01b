// The E-mail command: when it runs, and the picture it sends.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_image.h"

#include <gtest/gtest.h>

#include <QFileInfo>

#include "platform/temporary_folder.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

struct MailImageTest : testing::Test {
    Surface picCanvas;
    SharedState state;
    ScriptedDialog dialog;
    NetworkState network{{{"eth0", true, true, false, false, true}}, false, 0};
    QStringList shown;
    MailImage mail{picCanvas, state, dialog, [this](const QString& path) { shown.append(path); },
                   [this] { return network; }};

    MailImageTest() {
        state.ImageActive = true;
        Open(400, 300);
    }
    void Open(int width, int height) { picCanvas.CreateBlank(width, height, 24, QColor(200, 30, 30)); }
};

TEST_F(MailImageTest, SendsAJpegOfAHandySize) {
    const struct {
        QSize opened, sent;
    } kCases[] = {
        {{400, 300}, {800, 600}},  {{300, 400}, {600, 800}}, {{500, 500}, {800, 800}},
        {{1600, 800}, {800, 400}}, {{90, 3}, {800, 27}},
    };
    for (const auto& [opened, sent] : kCases) {
        Open(opened.width(), opened.height());
        const QImage before = picCanvas.Picture();
        mail.cmdEmail_Click();
        ASSERT_FALSE(shown.isEmpty());
        EXPECT_EQ(shown.last(), TemporaryFolder() + "/Kelu.jpg");
        const QImage attachment(shown.last(), "JPEG");
        EXPECT_EQ(attachment.size(), sent);
        EXPECT_EQ(picCanvas.Picture(), before);
    }
    EXPECT_TRUE(dialog.shown.empty());
    EXPECT_TRUE(QFileInfo::exists(TemporaryFolder() + "/Kelu.jpg"));  // left behind
}

TEST_F(MailImageTest, RunsOnlyWithNetworkAndPictureAndWithoutCamera) {
    state.CaptureBusy = true;
    mail.cmdEmail_Click();
    EXPECT_TRUE(state.InternetConnected);
    state.CaptureBusy = false;
    state.ImageActive = false;
    mail.cmdEmail_Click();
    state.ImageActive = true;
    network.interfaces[0].isRunning = false;
    mail.cmdEmail_Click();
    EXPECT_FALSE(state.InternetConnected);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(MailImageTest, AFailedLookAtTheNetworkKeepsTheLastAnswer) {
    mail.Check4InternetConnection();
    network = {{}, false, 5};
    mail.Check4InternetConnection();
    EXPECT_TRUE(state.InternetConnected);
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(dialog.shown[0].text.contains("Win32API Error: 5 "));
}

TEST_F(MailImageTest, AFailedSaveIsShownAndEndsThere) {
    const QByteArray temp = qgetenv("TEMP");
    QFile::remove(TemporaryFolder() + "/Kelu.jpg");
    ASSERT_TRUE(QDir().mkpath(TemporaryFolder() + "/Kelu.jpg"));
    mail.EmailPhoto();
    EXPECT_TRUE(shown.isEmpty());
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].heading, "Error");
    QDir().rmdir(TemporaryFolder() + "/Kelu.jpg");
}

}  // namespace
}  // namespace kelu
