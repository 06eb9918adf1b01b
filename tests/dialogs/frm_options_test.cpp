// The settings dialog: every setting read, changed, written and read back; what Cancel leaves; unknown values; cameras.
// SPDX-License-Identifier: MIT
#include "dialogs/options/frm_options.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QtTest>

#include "controls/tool_button/tool_button.h"
#include "output/password_scrambling.h"
#include "platform/error.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

struct OptionsTest : testing::Test {
    MemorySettings settings;
    SharedState state;
    ScriptedDialog dialog;
    QStringList cameras{"Front", "Back"};
    int connectError = 0;
    std::vector<int> connected;
    QStringList calls;

    std::unique_ptr<frmOptions> Dialog() {
        auto form = std::make_unique<frmOptions>(
            settings, state, dialog,
            frmOptions::Surroundings{[this] { return cameras; },
                                     [this](int device) {
                                         connected.push_back(device);
                                         if (connectError) throw Error(connectError, "no camera");
                                     },
                                     [this] { calls << "help"; }, [this] { calls << "about"; }},
            nullptr);
        form->show();
        return form;
    }
};

TEST_F(OptionsTest, EverySettingIsWrittenOnOkAndReadBack) {
    {
        const auto form = Dialog();
        EXPECT_TRUE(form->chkReminder->isChecked());
        EXPECT_TRUE(form->chkResize->isChecked());
        EXPECT_TRUE(form->chkSFXSelector->isChecked());
        EXPECT_FALSE(form->txtPassword->isEnabled());
        EXPECT_EQ(form->cboCaptureSize->currentText(), "640 x 480");
        EXPECT_EQ(connected, std::vector<int>{0});
        QTest::mouseClick(form->pnlMenu[1], Qt::LeftButton);
        EXPECT_EQ(form->pages->currentIndex(), 1);
        EXPECT_FALSE(form->pnlMenu[0]->isChecked()) << "one page is chosen at a time";
        EXPECT_TRUE(form->optEmail[0]->isChecked()) << "and no option is lost by that";
        form->picCursor[2]->click();
        EXPECT_TRUE(form->optCursor[2]->isChecked());
        form->optEmail[2]->click();
        EXPECT_TRUE(form->txtPassword->isEnabled());
        form->txtUserName->setText("ann");
        form->txtPassword->setText("s3cret!");
        form->chkReminder->click();
        form->chkResize->click();
        form->chkSFXSelector->click();
        form->cboDevices->setCurrentIndex(1);
        form->cboCaptureSize->setCurrentIndex(0);
        form->cmdOK->click();
        EXPECT_EQ(form->result(), QDialog::Accepted);
    }
    EXPECT_EQ(settings.Read(settings::kReminder), "0");
    EXPECT_EQ(settings.Read(settings::kMailMethod), "3");
    EXPECT_EQ(settings.Read(settings::kSelector), "0");
    EXPECT_EQ(settings.Read(settings::kResize), "0");
    EXPECT_EQ(settings.Read(settings::kCursorStyle), "3");
    EXPECT_EQ(settings.Read(settings::kDevice), "1");
    EXPECT_EQ(settings.Read(settings::kCaptureSize), "0");
    EXPECT_EQ(settings.Read(settings::kAccountPassword), ScramblePassword("s3cret!"));

    const auto form = Dialog();
    EXPECT_TRUE(form->optEmail[2]->isChecked());
    EXPECT_TRUE(form->txtUserName->isEnabled()) << "at once, with the account way chosen";
    EXPECT_EQ(form->txtUserName->text(), "ann");
    EXPECT_EQ(form->txtPassword->text(), "s3cret!");
    EXPECT_TRUE(form->optCursor[2]->isChecked());
    EXPECT_FALSE(form->chkReminder->isChecked());
    EXPECT_FALSE(form->chkSFXSelector->isChecked());
    EXPECT_EQ(form->cboDevices->currentIndex(), 1);
    EXPECT_EQ(form->cboCaptureSize->currentIndex(), 0);
}

TEST_F(OptionsTest, CancelWritesNothing) {
    const auto form = Dialog();
    form->chkReminder->click();
    form->optCursor[1]->click();
    form->cmdCancel->click();
    EXPECT_EQ(settings.Read(settings::kReminder, "unset"), "unset");
    EXPECT_EQ(settings.Read(settings::kCursorStyle, "unset"), "unset");
}

TEST_F(OptionsTest, UnknownValuesSurvive) {
    settings.Write(settings::kCursorStyle, "7");
    settings.Write(settings::kMailMethod, "pigeon");
    settings.Write(settings::kReminder, "2");
    const auto form = Dialog();
    EXPECT_TRUE(form->optCursor[0]->isChecked());
    EXPECT_TRUE(form->optEmail[0]->isChecked());
    EXPECT_TRUE(form->chkReminder->isChecked());
    EXPECT_EQ(form->txtPassword->text(), "Not Set");
    form->cmdOK->click();
    EXPECT_EQ(settings.Read(settings::kCursorStyle), "7");
    EXPECT_EQ(settings.Read(settings::kMailMethod), "pigeon");
    EXPECT_EQ(settings.Read(settings::kAccountPassword), ScramblePassword("Not Set"));
}

TEST_F(OptionsTest, WorksWithoutACamera) {
    cameras.clear();
    connectError = kNoCamera;
    settings.Write(settings::kDevice, "3");
    settings.Write(settings::kCaptureSize, "1");
    const auto form = Dialog();
    EXPECT_TRUE(dialog.shown.empty());
    EXPECT_TRUE(state.CameraMissing);
    EXPECT_EQ(form->cboCaptureSize->currentIndex(), 1);
    form->cmdOK->click();
    EXPECT_EQ(settings.Read(settings::kDevice), "0");
    EXPECT_EQ(settings.Read(settings::kCaptureSize), "1");

    connectError = kFileError;
    Dialog();
    EXPECT_EQ(dialog.shown.size(), 1u) << "any other failure is told";
}

TEST_F(OptionsTest, MaskHelpAndAbout) {
    const auto form = Dialog();
    EXPECT_EQ(form->txtPassword->echoMode(), QLineEdit::Password);
    form->optEmail[2]->click();
    form->chkMask->click();
    EXPECT_EQ(form->txtPassword->echoMode(), QLineEdit::Normal);
    form->cmdHelp->click();
    EXPECT_EQ(state.CurrentSFX, 99);
    form->cmdAbout->click();
    EXPECT_EQ(calls, (QStringList{"help", "about"}));
}

}  // namespace
}  // namespace kelu
