// What the window says: notes over the canvas, dimmed commands with their reasons, the mark of Apply.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAccessible>

#include "app/command_look.h"
#include "controls/note/note_bar.h"
#include "controls/theme/theme.h"
#include "effects/coordinate_box.h"
#include "tests/app/dialog_hands.h"
#include "tests/app/main_window_fixture.h"

namespace kelu {
namespace {

struct NotesTest : MainWindowFixture {
    NoteBar& note = *window.controls.note;

    void ClickNote(const QString& caption) {
        for (ToolButton* button : window.findChildren<ToolButton*>())
            if (button->Caption() == caption && button->isVisible() && button->parent()->objectName() == "noteButtons")
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no " << caption.toStdString() << " beside " << note.Text().toStdString();
    }
    QString WhyNot(Command command) { return window.controls.Button(command).Obstacle(); }
    /// The looks follow as soon as nothing else is to do.
    void Settle() { QTest::qWait(1); }
};

TEST_F(NotesTest, TellWhatIsMissingForTheBrush) {
    {
        DialogScript script;
        script.Then<frmBrowse>(CancelBrowse());
        QTest::mouseClick(&canvas, Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !script.met.isEmpty() && !QApplication::activeModalWidget(); }));
    }
    QTest::mouseClick(&canvas, Qt::RightButton);
    EXPECT_EQ(note.Text(), "Open a picture first");
    OpenPhoto();
    QTest::mouseClick(&canvas, Qt::LeftButton);
    EXPECT_EQ(note.Text(), "Nothing painted yet: choose an effect, Apply, then brush");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&note)->text(QAccessible::Name), note.Text());
    EXPECT_TRUE(canvas.geometry().contains(note.geometry()));
    QTest::keyClick(&window, Qt::Key_Control);
    EXPECT_FALSE(note.Text().isEmpty()) << "half a shortcut is no action";
    QTest::keyClick(&canvas, Qt::Key_Right);
    EXPECT_EQ(note.Text(), "") << "gone at the next action";
    Arm();
    QTest::mouseClick(&canvas, Qt::LeftButton);
    EXPECT_EQ(note.Text(), "");
}

TEST_F(NotesTest, AreNeverInTheWayOfTheBrush) {
    OpenPhoto(900, 700);
    Arm();
    note.Show({"Here lies a note", {{"One", {}}}, /*stays=*/true});
    const QPoint plate = note.geometry().center() - QPoint(note.width() / 2 - 3, 0);
    QWidget* below = window.childAt(plate);
    ASSERT_EQ(below, &canvas) << "the mouse goes through the plate";
    const QImage before = Canvas();
    const QPoint at = canvas.mapFrom(&window, plate);
    StrokeWidget({at, at + QPoint(40, 0)});
    EXPECT_NE(Canvas(), before);
    EXPECT_FALSE(note.Text().isEmpty()) << "one that tells of a state stays";
    note.Clear();
    note.Show({"It happened by itself", {}, /*stays=*/false, /*unasked=*/true});
    StrokeWidget({at, at + QPoint(40, 0)});
    EXPECT_FALSE(note.Text().isEmpty()) << "nobody has read it yet";
}

TEST_F(NotesTest, CompareIsToldAndLeftByItsNote) {
    OpenPhoto();
    Arm();
    Stroke({{50, 50}, {90, 90}});
    Click(Command::Original);
    Settle();
    ToolButton& original = window.controls.Button(Command::Original);
    EXPECT_EQ(note.Text(), "Showing the original");
    EXPECT_TRUE(original.isChecked());
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&original)->state().checkable);
    saveDialog.names = {folder.filePath("out.png")};
    Click(Command::Save);
    Click(Command::Original);
    EXPECT_TRUE(state.ShowingOriginal) << "refused after a save";
    Settle();
    EXPECT_TRUE(original.isChecked()) << "and the button does not pretend";
    ClickNote("Back");
    EXPECT_FALSE(state.ShowingOriginal) << "the note leads back all the same";
}

TEST_F(NotesTest, TabReachesTheOffersAndTheFocusComesBack) {
    OpenPhoto();
    QTest::keyClick(&canvas, Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(canvas.hasFocus());
    EXPECT_EQ(canvas.grab().toImage().pixelColor(1, canvas.height() / 2), theme::kFocus) << "seen";
    note.Show({"It is done", {{"One", {}}, {"Two", {}}}});
    for (const char* offer : {"One", "Two"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget()->accessibleName(), offer);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(note.Text(), "");
    EXPECT_TRUE(canvas.hasFocus());
    QTest::mousePress(&canvas, Qt::LeftButton);
    canvas.clearFocus();
    canvas.setFocus(Qt::TabFocusReason);  // as when a dialog opens or a control goes, here by mouse
    EXPECT_NE(canvas.grab().toImage().pixelColor(1, canvas.height() / 2), theme::kFocus);
    QTest::mouseRelease(&canvas, Qt::LeftButton);
}

TEST_F(NotesTest, WhatCannotBeUsedLooksSoAndSaysWhy) {
    Settle();
    for (const Command each : {Command::Save, Command::Print, Command::Copy, Command::ZoomIn, Command::Original})
        EXPECT_EQ(WhyNot(each), "Open a picture first");
    EXPECT_EQ(window.controls.Button(Command::Save).toolTip(), "Save (Ctrl+S)\nOpen a picture first");
    EXPECT_EQ(window.controls.Button(Command::Save).accessibleName(), "Save");
    EXPECT_EQ(window.controls.Button(Command::WebCam).toolTip(), "Capture Image (F8)");
    EXPECT_EQ(WhyNot(Command::Open), "");
    OpenPhoto();
    Settle();
    EXPECT_EQ(WhyNot(Command::Print), "");
    EXPECT_EQ(WhyNot(Command::Save), "Nothing is painted yet");
    EXPECT_EQ(WhyNot(Command::Undo), "Nothing to undo");
    Arm();
    Stroke({{50, 50}, {90, 90}});
    Settle();
    EXPECT_EQ(WhyNot(Command::Save) + WhyNot(Command::Undo), "");
    saveDialog.names = {folder.filePath("out.png")};
    Click(Command::Save);
    Settle();
    EXPECT_EQ(WhyNot(Command::ZoomIn), "This picture is saved: open it again to go on");
    EXPECT_EQ(panel.cmdApply->Obstacle(), WhyNot(Command::ZoomIn));
    EXPECT_TRUE(window.controls.selectors->TBSFX->Button(1)->toolTip().endsWith(WhyNot(Command::ZoomIn)));
    EXPECT_EQ(WhyNot(Command::Undo), "") << "undo works after a save";
    Stroke({{50, 90}, {90, 90}});
    EXPECT_EQ(note.Text(), WhyNot(Command::ZoomIn)) << "so does the brush, but not in silence";
    const QImage painted = Canvas();
    dialog.answers = {MsgAnswer::Yes};
    saveDialog.names = {folder.filePath("second.png")};
    ClickNote("Go on with it");
    EXPECT_TRUE(state.ImageActive && state.CurrentFileName == "second.png");
    EXPECT_EQ(Canvas(), painted) << "with all that was painted";
}

TEST_F(NotesTest, ApplyIsMarkedWhileItIsDue) {
    OpenPhoto();
    const auto due = [&] {
        Settle();
        return !panel.cmdApply->Mark().isEmpty();
    };
    EXPECT_FALSE(due()) << "no effect yet";
    Choose(8);  // with a slider
    EXPECT_TRUE(due());
    Apply();
    EXPECT_FALSE(due());
    const int value = panel.sldValue[0]->Value();
    panel.sldValue[0]->SetValue(value == panel.sldValue[0]->Max() ? value - 1 : value + 1);
    EXPECT_TRUE(due());
    Stroke({{50, 50}, {90, 90}});
    EXPECT_EQ(note.Text(), "The inputs have changed: Apply to paint with them");
    Stroke({{50, 90}, {90, 90}});
    EXPECT_EQ(note.Text(), "") << "told once";
    panel.sldBrushSize->setFocus();
    QTest::keyClick(panel.sldBrushSize, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !due(); })) << "Enter in the panel applies";
    Stroke({{50, 50}, {90, 120}});
    EXPECT_TRUE(due()) << "the canvas is another";
    EXPECT_EQ(panel.cmdApply->accessibleName(), "Apply, not applied yet");
}

TEST_F(NotesTest, UndoKeepsTheUserWhereHeLooks) {
    OpenPhoto(1600, 1200);
    Arm();
    for (int i = 0; i < 8; ++i) Click(Command::ZoomIn);
    ASSERT_EQ(canvas.ViewMode(), ViewKind::Free);
    QTest::keyClick(&canvas, Qt::Key_Right);
    const QRectF shown = canvas.ImageRect();
    StrokeWidget({canvas.rect().center(), canvas.rect().center() + QPoint(30, 0)});
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(canvas.ImageRect(), shown);
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(canvas.ImageRect(), shown);
}

}  // namespace
}  // namespace kelu
