// Key commands as they are pressed, held and let go, wherever the focus is.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "controls/pager/pager.h"
#include "tests/app/main_window_fixture.h"

namespace kelu {
namespace {

constexpr Qt::KeyboardModifiers kNone = Qt::NoModifier, kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier;

using KeyWalk = MainWindowFixture;

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

TEST_F(KeyWalk, WhatIsTypedByAHandOnTheMouseGoesToWhatThePointerIsOver) {
    OpenPhoto();
    Arm(8);  // with a slider
    EffectSelectors& selectors = *window.controls.selectors;
    const auto takeMouse = [&] { QTest::mouseClick(window.controls.picTitleBar, Qt::LeftButton); };
    const auto over = [&](QWidget& widget, Qt::Key key) {
        canvas.setFocus();
        widget.setAttribute(Qt::WA_UnderMouse);
        QTest::keyClick(&canvas, key);
        widget.setAttribute(Qt::WA_UnderMouse, false);
    };
    takeMouse();
    over(*selectors.pagerTB1, Qt::Key_F);
    EXPECT_EQ(QApplication::focusWidget(), selectors.TBSFX->Button(18)) << "False Color";
    over(*selectors.pagerTB1, Qt::Key_O);
    EXPECT_EQ(QApplication::focusWidget(), &canvas) << "who works by keyboard stands where he is";
    takeMouse();
    panel.sldValue[0]->SetValue(panel.sldValue[0]->Value() + 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !panel.cmdApply->Mark().isEmpty(); }));
    over(panel, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel.cmdApply->Mark().isEmpty(); })) << "Enter over the panel applies";
    EXPECT_FALSE(window.surfaces.picCanvas.CanUndo()) << "and paints nothing";
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
