// Every key command with the right and with the wrong modifiers, wherever the focus is.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QClipboard>

#include "capture/capture_panel.h"
#include "tests/app/main_window_fixture.h"
#include "tests/support/dialog_script.h"

namespace kelu {
namespace {

constexpr Qt::KeyboardModifiers kNone = Qt::NoModifier, kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier,
                                kAlt = Qt::AltModifier, kMeta = Qt::MetaModifier;

struct KeyRow {
    Qt::Key key;
    const char* name;
    bool modal;  // brings up a dialog of its own
    std::vector<Qt::KeyboardModifiers> right;
    std::vector<Qt::KeyboardModifiers> wrong;
};

struct KeyWalk : MainWindowFixture {
    bool HelpShows() const {
        for (const QWidget* each : QApplication::topLevelWidgets())
            if (each->objectName() == "HelpWindow" && each->isVisible()) return true;
        return false;
    }
    /// All that a key command can change.
    QVariantList Seen(const DialogScript& script) const {
        return {Canvas(),
                script.met,
                saveDialog.shown,
                dialog.Texts(),
                HelpShows(),
                QGuiApplication::clipboard()->image().isNull(),
                window.controls.picCapContainer->isVisible()};
    }
};

void PrintTo(const KeyRow& row, std::ostream* out) { *out << row.name; }

struct EveryKey : KeyWalk, testing::WithParamInterface<KeyRow> {};

const std::vector<Qt::KeyboardModifiers> kExactlyCtrl{kCtrl, kCtrl | Qt::KeypadModifier};
const std::vector<Qt::KeyboardModifiers> kNotCtrl{kNone,          kShift,       kAlt,         kMeta,
                                                  kCtrl | kShift, kCtrl | kAlt, kCtrl | kMeta};
const std::vector<Qt::KeyboardModifiers> kAnyState{kNone, kShift, kCtrl, kAlt, kCtrl | kShift | kAlt};

INSTANTIATE_TEST_SUITE_P(
    Keys, EveryKey,
    testing::Values(
        KeyRow{Qt::Key_Z, "Z", false, kExactlyCtrl, kNotCtrl}, KeyRow{Qt::Key_Y, "Y", false, kExactlyCtrl, kNotCtrl},
        KeyRow{Qt::Key_O, "O", true, kExactlyCtrl, kNotCtrl}, KeyRow{Qt::Key_S, "S", false, kExactlyCtrl, kNotCtrl},
        KeyRow{Qt::Key_C, "C", false, kExactlyCtrl, kNotCtrl}, KeyRow{Qt::Key_P, "P", true, kExactlyCtrl, kNotCtrl},
        KeyRow{Qt::Key_A, "A", false, {kCtrl, kCtrl | kShift}, {kNone, kShift, kAlt, kMeta, kCtrl | kAlt}},
        KeyRow{Qt::Key_F4, "F4", false, {kAlt}, {kNone, kShift, kCtrl, kAlt | kShift, kAlt | kCtrl}},
        KeyRow{Qt::Key_F1, "F1", false, kAnyState, {}}, KeyRow{Qt::Key_F8, "F8", false, kAnyState, {}}));

TEST_P(EveryKey, ActsOnReleaseUnderItsModifiersOnly) {
    const KeyRow& row = GetParam();
    OpenPhoto();
    Arm();
    Stroke({{50, 50}, {90, 90}});
    Stroke({{150, 50}, {190, 90}});
    Stroke({{250, 50}, {290, 90}});
    for (int i = 0; i < 2; ++i) window.Run(Command::Undo);  // something to undo and something to redo
    QGuiApplication::clipboard()->clear();
    DialogScript script;
    const auto press = [&](Qt::KeyboardModifiers modifiers, bool acts) {
        const QVariantList before = Seen(script);
        QTest::keyPress(&window, row.key, modifiers);
        EXPECT_EQ(Seen(script), before) << "pressed with " << modifiers;
        QTest::keyRelease(&window, row.key, modifiers);
        EXPECT_EQ(Seen(script) != before, acts) << "released with " << modifiers;
    };
    for (const Qt::KeyboardModifiers modifiers : row.wrong) press(modifiers, false);
    for (const Qt::KeyboardModifiers modifiers : row.right) {
        if (row.modal) script.Then([](QWidget& up) { up.close(); });
        // The panel and the window would still be up; a command that finds its work done changes nothing.
        if (row.key == Qt::Key_F8) QTest::mouseClick(window.controls.picCapContainer->cmdCaptureCancel, Qt::LeftButton);
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->objectName() == "HelpWindow") each->close();
        QGuiApplication::clipboard()->clear();
        if (row.key == Qt::Key_O && state.ImageDirty) dialog.answers = {MsgAnswer::No};
        if (row.key == Qt::Key_F4) dialog.answers = {MsgAnswer::Cancel};
        if (row.key == Qt::Key_Z && !window.surfaces.picCanvas.CanUndo()) window.Run(Command::Redo);
        press(modifiers, true);
    }
    EXPECT_TRUE(window.isVisible());
}

TEST_F(KeyWalk, APressActsOnceAtItsReleaseUnderItsOwnModifiers) {
    OpenPhoto();
    Arm();
    const struct {
        const char* what;
        Qt::KeyboardModifiers pressed, released;
        int repeats;  // of a key that stays down: the window system releases and presses it all the time
        bool acts;
    } rows[] = {{"held down", kCtrl, kCtrl, 2, true},
                {"Ctrl is let go first", kCtrl, kNone, 0, true},
                {"Ctrl comes after the letter", kNone, kCtrl, 0, false},
                {"Shift comes in between", kCtrl, kCtrl | kShift, 0, true},
                {"Shift is let go first", kCtrl | kShift, kCtrl, 0, false}};
    for (const auto& row : rows) {
        const QImage before = Canvas();
        Stroke({{150, 50}, {190, 90}});
        const QImage painted = Canvas();
        QTest::keyPress(&canvas, Qt::Key_Z, row.pressed);
        for (int i = 0; i < row.repeats; ++i) {
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_Z, kCtrl, QString(), /*autorep=*/true);
            QCoreApplication::sendEvent(&canvas, &release);
        }
        EXPECT_EQ(Canvas(), painted) << row.what;
        QTest::keyRelease(&canvas, Qt::Key_Z, row.released);
        EXPECT_EQ(Canvas(), row.acts ? before : painted) << row.what;
        QTest::keyRelease(&canvas, Qt::Key_Z, kCtrl);  // a release that belongs to another window's press
        EXPECT_EQ(Canvas(), row.acts ? before : painted) << row.what;
        if (!row.acts) window.Run(Command::Undo);
    }
}

TEST_F(KeyWalk, TheBrushIsSetByKeysThatRepeatAndTheOriginalShowsWhileItsKeyIsHeld) {
    OpenPhoto();
    Arm(kGrayscale, 50);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int size, softness;  // afterwards
    } rows[] = {{Qt::Key_BracketRight, kNone, 55, 0}, {Qt::Key_BracketLeft, kNone, 50, 0},
                {Qt::Key_BraceRight, kShift, 50, 10}, {Qt::Key_BracketRight, kShift, 50, 20},
                {Qt::Key_BraceLeft, kNone, 50, 10},   {Qt::Key_BracketLeft, kShift, 50, 0},
                {Qt::Key_BracketRight, kCtrl, 50, 0}};
    for (const auto& row : rows) {
        QTest::keyClick(&canvas, row.key, row.modifiers);
        EXPECT_EQ(panel.sldBrushSize->Value(), row.size);
        EXPECT_EQ(window.surfaces.picCanvas.Brush().size, row.size);
        EXPECT_EQ(window.surfaces.picCanvas.Brush().softness, row.softness);
    }
    for (const Qt::Key key : {Qt::Key_BracketLeft, Qt::Key_BracketRight})
        for (int i = 0; i < 60; ++i) {
            QKeyEvent repeat(QEvent::KeyPress, key, kNone, QString(), /*autorep=*/true);
            QCoreApplication::sendEvent(&canvas, &repeat);
        }
    EXPECT_EQ(panel.sldBrushSize->Value(), 100) << "by way of 1";

    QTest::keyPress(&canvas, Qt::Key_O);
    EXPECT_FALSE(state.ShowingOriginal) << "nothing is painted";
    QTest::keyRelease(&canvas, Qt::Key_O);
    Stroke({{50, 50}, {90, 90}});
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_Backslash}) {
        canvas.setFocus();
        QTest::keyPress(&canvas, key);
        EXPECT_TRUE(state.ShowingOriginal && window.controls.picOriginal->hasFocus());
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_BracketLeft);
        EXPECT_TRUE(state.ShowingOriginal);
        QTest::keyRelease(QApplication::focusWidget(), key);
        EXPECT_TRUE(!state.ShowingOriginal && canvas.hasFocus());
    }
}

TEST_F(KeyWalk, KeysAreHeardWhereverTheFocusIs) {
    OpenPhoto();
    const QImage opened = Canvas();
    int heard = 0;
    for (const int effect : {1, 8, 12, 20, 25, 28, 40}) {  // together they show every control of the panel
        Arm(effect);
        for (QWidget* each : window.findChildren<QWidget*>()) {
            if (!each->isVisible() || each->focusPolicy() == Qt::NoFocus) continue;
            Stroke({{150, 50}, {190, 90}});
            ASSERT_TRUE(window.surfaces.picCanvas.CanUndo());
            each->setFocus();
            QTest::keyClick(each, Qt::Key_Z, kCtrl);
            EXPECT_EQ(Canvas(), opened) << each->metaObject()->className() << " " << each->objectName().toStdString();
            EXPECT_FALSE(window.surfaces.picCanvas.CanUndo());
            while (window.surfaces.picCanvas.CanUndo()) window.Run(Command::Undo);
            ++heard;
        }
    }
    EXPECT_GT(heard, 100);
}

}  // namespace
}  // namespace kelu
