// The order of the start, what stops it, the settings read at its end, and the ways out.
// SPDX-License-Identifier: MIT
#include "app/start_up.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>

#include "app/paint_reminder.h"
#include "platform/error.h"
#include "platform/registry_access.h"
#include "platform/temporary_folder.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScriptedSteps : public StartUpSteps {
 public:
    QStringList calls;
    bool anotherRuns = false;
    QString failing;
    int deviceError = 0;

    bool AnotherInstanceRuns() override { return anotherRuns; }
    void Connect2Camera() override { Step("Connect2Camera"); }
    void PlaceCompassInPager() override { Step("PlaceCompassInPager"); }
    void SetUpSFXList() override { Step("SetUpSFXList"); }
    void LoadSplash() override { Step("LoadSplash"); }
    void AddDropShadow() override { Step("AddDropShadow"); }
    void PrepareCanvasBackground() override { Step("PrepareCanvasBackground"); }
    void LoadPlaceholder() override { Step("LoadPlaceholder"); }
    void LoadLanguage() override { Step("LoadLanguage"); }
    void SendToBack() override { Step("SendToBack"); }
    void SetVideoSize(const QString& code) override { Step("SetVideoSize " + code); }
    void SetSelector(const QString& code) override { Step("SetSelector " + code); }
    void LoadDevices() override { Step("LoadDevices"); }
    void SelectDevice(int index) override {
        Step(QStringLiteral("SelectDevice %1").arg(index));
        if (deviceError) throw Error(deviceError, QStringLiteral("Invalid property value"));
    }
    void Unload() override { Step("Unload"); }

 private:
    void Step(const QString& name) {
        calls << name;
        if (name == failing) throw Error(kFileError, QStringLiteral("no such file"));
    }
};

class NoSaveDialog : public SaveDialog {
 public:
    int shown = 0;
    bool Show(QString&, int&) override { return ++shown, false; }
};

struct StartUpTest : testing::Test {
    MemorySettings settings;
    SharedState state;
    Surfaces surfaces;
    NullView view;
    ScriptedDialog dialog;
    NoSaveDialog saveDialog;
    ScriptedSteps steps;
    Document document{surfaces, view, view, state};
    OpenSave openSave{document, state, dialog, saveDialog, [] {}, [](const QString&) {}};
    StartUp startUp{steps, state, settings, dialog, openSave};
};

TEST_F(StartUpTest, RunsItsStepsInOrder) {
    const QString leftOver = QDir(TemporaryFolder()).filePath("_kelutmpimg.tif");
    QFile file(leftOver);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    state.ShowingOriginal = true;
    startUp.SetMeUp();
    EXPECT_THAT(steps.calls,
                ElementsAre("Connect2Camera", "PlaceCompassInPager", "SetUpSFXList", "LoadSplash", "AddDropShadow",
                            "PrepareCanvasBackground", "LoadPlaceholder", "LoadLanguage", "SendToBack"));
    EXPECT_EQ(state.GraySelect, 1);
    EXPECT_EQ(state.MaximumSelect, 1);
    EXPECT_EQ(state.MinimumSelect, 0);
    EXPECT_EQ(state.CompassDirection, 3);
    EXPECT_EQ(state.ResizeOnOpen, 1) << "the default of the setting";
    EXPECT_FALSE(state.ShowingOriginal);
    EXPECT_FALSE(QFile::exists(leftOver));
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(StartUpTest, ASecondInstanceUnloadsWithoutAWord) {
    steps.anotherRuns = true;
    startUp.SetMeUp();
    EXPECT_THAT(steps.calls, ElementsAre("Unload"));
    EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(StartUpTest, AFailingStepEndsTheStartWithTheStandardMessage) {
    steps.failing = QStringLiteral("LoadPlaceholder");
    startUp.SetMeUp();
    EXPECT_EQ(steps.calls.last(), "LoadPlaceholder");
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].heading, "Error");
    EXPECT_EQ(dialog.shown[0].text, "The following error has occured:\r\nno such file (57)\r\n");
}

TEST_F(StartUpTest, SettingsAreReadInOrderAndAMissingCameraIsSilent) {
    settings.Write(settings::kCaptureSize, "1");
    settings.Write(settings::kSelector, "0");
    settings.Write(settings::kDevice, "7");
    steps.deviceError = kInvalidProperty;
    startUp.LoadMySettings();
    EXPECT_THAT(steps.calls, ElementsAre("SetVideoSize 1", "SetSelector 0", "LoadDevices", "SelectDevice 7"));
    EXPECT_TRUE(state.CameraMissing);
    EXPECT_TRUE(dialog.shown.empty());

    state.CameraMissing = false;
    steps.deviceError = kFileError;
    startUp.LoadMySettings();
    EXPECT_FALSE(state.CameraMissing);
    EXPECT_EQ(dialog.shown.size(), 1u) << "any other failure is told";
}

TEST_F(StartUpTest, LeavingAsksWhenThereAreChanges) {
    struct Row {
        bool dirty;
        MsgAnswer answer;
        bool unloads;
        int saveDialogs;
    };
    const Row rows[] = {
        {false, MsgAnswer::Ok, true, 0},
        {true, MsgAnswer::Yes, true, 1},  // a cancelled save dialog does not stop the exit
        {true, MsgAnswer::No, true, 0},
        {true, MsgAnswer::Cancel, false, 0},
    };
    for (const Row& row : rows) {
        steps.calls.clear();
        dialog.shown.clear();
        dialog.beeps = 0;
        saveDialog.shown = 0;
        state.ImageDirty = row.dirty;
        state.CurrentFileName = QStringLiteral("cat.jpg");
        dialog.answers = {row.answer};
        startUp.ExitApp();
        EXPECT_EQ(steps.calls.contains("Unload"), row.unloads) << int(row.answer);
        EXPECT_EQ(saveDialog.shown, row.saveDialogs) << int(row.answer);
        EXPECT_EQ(dialog.beeps, row.dirty ? 1 : 0);
        if (row.dirty) {
            ASSERT_EQ(dialog.shown.size(), 1u);
            EXPECT_EQ(dialog.shown[0].text, "Save changes to 'cat.jpg'?\r\n");
        }
    }
}

TEST_F(StartUpTest, TheReminderStopsOnceItsBoxIsTicked) {
    PaintReminder reminder(dialog, settings);
    reminder.PrepareReminder();
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].heading, "Information");
    EXPECT_EQ(dialog.shown[0].checkbox, "Don't Show This Again");
    EXPECT_EQ(settings.Read(settings::kReminder), "1");

    dialog.ticks = true;
    reminder.PrepareReminder();
    EXPECT_EQ(settings.Read(settings::kReminder), "0");
    reminder.PrepareReminder();
    EXPECT_EQ(dialog.shown.size(), 2u) << "silent from the next time on";
}

}  // namespace
}  // namespace kelu
