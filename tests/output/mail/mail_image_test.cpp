// The E-mail command: when it runs, and the picture it sends.
// SPDX-License-Identifier: MIT
#include "output/mail/mail_image.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "platform/temporary_folder.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

struct MailImageTest : testing::Test {
    const QString attachment = TemporaryFolder() + "/Kelu.jpg";
    Surface picCanvas;
    SharedState state;
    ScriptedDialog dialog;
    NetworkState network{{{"eth0", true, true, false, false, true}}, false, 0};
    QStringList shown;
    MailImage mail{picCanvas, state, dialog, [this](const QString& path) { shown.append(path); },
                   [this] { return network; }};

    MailImageTest() {
        state.ImageActive = true;
        picCanvas.CreateBlank(400, 300, 24, Qt::red);
    }
};

TEST_F(MailImageTest, SendsAJpegOfAHandySizeThatNobodyElseCanRead) {
    QFile(attachment).open(QIODevice::WriteOnly);
    QFile::setPermissions(attachment, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    const std::pair<QSize, QSize> kCases[] = {
        {{400, 300}, {800, 600}}, {{300, 400}, {600, 800}}, {{500, 500}, {800, 800}}, {{90, 3}, {800, 27}}};
    Metadata told;
    told.xmp = "a place";
    for (const auto& [opened, sent] : kCases) {
        picCanvas.CreateBlank(opened.width(), opened.height(), 24, Qt::red);
        picCanvas.SetPicture(picCanvas.Picture(), told);
        mail.cmdEmail_Click();
        QFile file(attachment);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly) && !file.readAll().contains(told.xmp));
        EXPECT_EQ(QImage(shown.value(0), "JPEG").size(), sent);
        EXPECT_EQ(picCanvas.Picture().size(), opened);
    }
    EXPECT_EQ(shown, QStringList(4, attachment));
    EXPECT_EQ(QFile::permissions(attachment) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(MailImageTest, FailuresAreToldAndEndIt) {
    mail.Check4InternetConnection();
    network = {{}, false, 5};
    mail.Check4InternetConnection();
    EXPECT_TRUE(state.InternetConnected) << "the last answer stands";
    QFile::remove(attachment);
    ASSERT_TRUE(QDir().mkpath(attachment));
    mail.EmailPhoto();
    QDir().rmdir(attachment);
    EXPECT_TRUE(shown.isEmpty());
    ASSERT_EQ(dialog.shown.size(), 2u);
    EXPECT_TRUE(dialog.shown[0].text.contains("Win32API Error: 5 "));
}

}  // namespace
}  // namespace kelu
