// The settings dialog: every setting changed by mouse and keys and read by the next start; Cancel; unknown values;
// cameras.
// SPDX-License-Identifier: MIT
#include "dialogs/options/frm_options.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QtTest>

#include "capture/capture_settings.h"
#include "controls/tool_button/tool_button.h"
#include "platform/error.h"
#include "platform/password_scrambling.h"
#include "platform/registry_access.h"
#include "platform/registry_file.h"
#include "tests/support/kit.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

// The program's settings as one start of it sees them: read from the file anew.
class Start {
 public:
    explicit Start(const QString& path) : store_(path), registry_(store_), settings(registry_) {}

 private:
    RegistryFile store_;
    clsRegistryAccess registry_;

 public:
    Settings settings;
};

struct OptionsTest : testing::Test {
    MemorySettings settings;
    SharedState state;
    ScriptedDialog dialog;
    QStringList cameras{"Front", "Back"};
    int connectError = 0;
    std::vector<int> connected;
    QStringList calls;

    std::unique_ptr<frmOptions> Dialog() { return Dialog(settings); }
    std::unique_ptr<frmOptions> Dialog(Settings& read) {
        auto form = std::make_unique<frmOptions>(
            read, state, dialog,
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

void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2)); }

void Press(QWidget* widget, Qt::Key key) {
    widget->setFocus();
    QTest::keyClick(widget, key);
}

void Type(QLineEdit* field, const char* text) {
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
}

TEST_F(OptionsTest, WhatMouseAndKeysSetIsThereAtTheNextStart) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.txt");
    {
        Start first(path);
        const auto form = Dialog(first.settings);
        EXPECT_TRUE(form->chkReminder->isChecked() && form->chkResize->isChecked() &&
                    form->chkSFXSelector->isChecked() && !form->txtPassword->isEnabled());
        EXPECT_EQ(form->cboCaptureSize->currentText(), "640 x 480");
        EXPECT_EQ(connected, std::vector<int>{0});
        Click(form->optEmail[2]);
        EXPECT_TRUE(form->txtPassword->isEnabled());
        Type(form->txtUserName, "ann");
        Type(form->txtPassword, "s3cret!");
        Click(form->pnlMenu[1]);
        EXPECT_EQ(form->pages->currentIndex(), 1);
        EXPECT_FALSE(form->pnlMenu[0]->isChecked()) << "one page is chosen at a time";
        EXPECT_TRUE(form->optEmail[2]->isChecked()) << "and no option is lost by that";
        Click(form->picCursor[2]);
        EXPECT_TRUE(form->optCursor[2]->isChecked());
        Click(form->pnlMenu[2]);
        Press(form->chkReminder, Qt::Key_Space);
        Press(form->pnlMenu[3], Qt::Key_Space);
        Click(form->chkResize);
        Click(form->pnlMenu[4]);
        Press(form->cboDevices, Qt::Key_Down);
        Press(form->cboCaptureSize, Qt::Key_Home);
        Click(form->pnlMenu[5]);
        Press(form->chkSFXSelector, Qt::Key_Space);
        Click(form->cmdOK);
        EXPECT_EQ(form->result(), QDialog::Accepted);
    }
    EXPECT_FALSE(ReadBytes(path).contains("s3cret!")) << "no password in the open";

    Start second(path);
    const auto form = Dialog(second.settings);
    EXPECT_TRUE(form->optEmail[2]->isChecked() && form->optCursor[2]->isChecked());
    EXPECT_TRUE(form->txtUserName->isEnabled()) << "at once, with the account way chosen";
    EXPECT_EQ(form->txtUserName->text(), "ann");
    EXPECT_EQ(form->txtPassword->text(), "s3cret!");
    EXPECT_FALSE(form->chkReminder->isChecked() || form->chkResize->isChecked() || form->chkSFXSelector->isChecked());
    EXPECT_EQ(form->cboDevices->currentIndex(), 1);
    EXPECT_EQ(form->cboCaptureSize->currentIndex(), 0);
}

TEST_F(OptionsTest, CancelAndEscapeWriteNothing) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.txt");
    for (const bool byKey : {false, true}) {
        Start start(path);
        const auto form = Dialog(start.settings);
        Click(form->optEmail[1]);
        Press(form->pnlMenu[2], Qt::Key_Space);
        Click(form->chkReminder);
        if (byKey)
            QTest::keyClick(form.get(), Qt::Key_Escape);
        else
            Click(form->cmdCancel);
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(QFile::exists(path));
    }
    // And what can't be written is told, once: a folder lies where the file should.
    ASSERT_TRUE(QDir().mkdir(path));
    Start start(path);
    Dialog(start.settings)->cmdOK->click();
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(dialog.shown[0].text.contains(path + ": ")) << dialog.shown[0].text.toStdString();
}

TEST_F(OptionsTest, UnknownValuesSurvive) {
    settings.WriteText(settings::kCursorStyle.key, "7");
    settings.WriteText(settings::kMailMethod.key, "pigeon");
    settings.WriteText(settings::kReminder.key, "2");
    const auto form = Dialog();
    EXPECT_TRUE(form->optCursor[0]->isChecked());
    EXPECT_TRUE(form->optEmail[0]->isChecked());
    EXPECT_TRUE(form->chkReminder->isChecked());
    EXPECT_EQ(form->txtPassword->text(), "Not Set");
    form->cmdOK->click();
    EXPECT_EQ(settings.ReadText(settings::kCursorStyle), "7");
    EXPECT_EQ(settings.ReadText(settings::kMailMethod), "pigeon");
    EXPECT_EQ(settings.Read(settings::kAccountPassword), ScramblePassword("Not Set"));
}

TEST_F(OptionsTest, WorksWithoutACamera) {
    cameras.clear();
    connectError = kNoCamera;
    settings.Write(settings::kDevice, 3);
    settings.Write(settings::kCaptureSize, CaptureSize::Middle);
    const auto form = Dialog();
    EXPECT_TRUE(dialog.shown.empty());
    EXPECT_TRUE(state.CameraMissing);
    EXPECT_EQ(form->cboCaptureSize->currentIndex(), 1);
    form->cmdOK->click();
    EXPECT_EQ(settings.Read(settings::kDevice), 0);
    EXPECT_EQ(settings.Read(settings::kCaptureSize), CaptureSize::Middle);

    connectError = kFileError;
    Dialog();
    EXPECT_EQ(dialog.shown.size(), 1u) << "any other failure is told";
}

}  // namespace
}  // namespace kelu
