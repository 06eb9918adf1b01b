// A monkey at the window: mixed real events in a random order that is the same at every run. Whatever it does, nothing
// breaks, the parts agree, and undoing everything gives the opened picture back.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMenu>
#include <QPushButton>
#include <QThreadPool>
#include <numeric>
#include <random>

#include "app/idle_memory.h"
#include "controls/progress_bar/xp_progress_bar.h"
#include "document/replay.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "effects/effect_overview.h"
#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "tests/app/main_window_fixture.h"
#include "tests/support/dialog_script.h"
#include "view/point_picker.h"

namespace kelu {
namespace {

constexpr int kSteps = 500;

struct KeepsJournal {
    QTemporaryDir stateFolder;
    Journal journal{stateFolder.path()};
};

/// A first base: what is left once the window has gone is what the program holds when its user pauses.
struct PausesAtTheEnd {
    ~PausesAtTheEnd() {
        IdleMemory::Release();
        QThreadPool::globalInstance()->waitForDone();
    }
};

struct Monkey : PausesAtTheEnd, KeepsJournal, MainWindowFixture, testing::WithParamInterface<unsigned> {
    Monkey() : MainWindowFixture(Dialogs::Scripted, &journal) {}

    std::mt19937 random{GetParam()};
    QStringList photos;
    QImage opened;
    QStringList done;

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    bool Sometimes() { return Below(3) == 0; }
    QPoint Somewhere(const QWidget& widget) { return {Below(widget.width()), Below(widget.height())}; }

    void OpenOne() {
        // An open keeps the compare view, which a clean picture can't leave: nothing more could be painted.
        if (state.ShowingOriginal) Click(Command::Original);
        if (state.ShowingOriginal) return;
        const MsgAnswer answer = state.ImageDirty && Sometimes() ? MsgAnswer::Cancel : MsgAnswer::No;
        if (state.ImageDirty) dialog.answers = {answer};
        const QString path = photos.at(Below(static_cast<int>(photos.size())));
        done << QFileInfo(path).fileName();
        if (Sometimes()) {
            QGuiApplication::clipboard()->setImage(ReadPicture(path));
            Key(Qt::Key_V, Qt::ControlModifier);
        } else {
            Drop(path);
        }
        if (answer == MsgAnswer::Cancel) return;
        opened = ReadPicture(path);
        // What is opaque all over is pasted without transparency.
        if (!Canvas().hasAlphaChannel()) DropIdleAlpha(opened);
    }
    void ApplyOne() {
        QTest::mouseClick(window.controls.selectors->TBSFX->Button(1 + Below(static_cast<int>(Catalogue().size()))),
                          Qt::LeftButton);
        for (LsSlider* slider : panel.sldValue)
            if (slider->isVisible()) slider->SetValue(slider->Min() + Below(slider->Max() - slider->Min() + 1));
        Apply();
    }
    void Paint() {
        if (!canvas.isVisible()) return;
        const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                           Qt::MiddleButton};
        std::vector<QPoint> points(static_cast<std::size_t>(1 + Below(6)));
        for (QPoint& point : points) point = Somewhere(canvas);
        const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
                                                   Qt::ShiftModifier};
        StrokeWidget(points, buttons[Below(5)], modifiers[Below(4)]);
    }
    void Wheel() {
        QWheelEvent event(Somewhere(canvas), {}, {}, {0, 120 * (Below(7) - 3)}, Qt::NoButton,
                          Sometimes() ? Qt::NoModifier : Qt::ControlModifier, Qt::NoScrollPhase, false);
        if (canvas.isVisible()) QCoreApplication::sendEvent(&canvas, &event);
    }
    void Save() {
        const char* const formats[] = {"png", "tif", "bmp", "webp", "gif", "jpg"};
        const int format = Below(6);
        const QString path = folder.filePath(QStringLiteral("saved.") + formats[format]);
        saveDialog.names = {Sometimes() ? QString() : path, path};
        const bool dirty = state.ImageDirty;
        Key(Qt::Key_S, Qt::ControlModifier);
        if (dirty && !state.ImageDirty) {
            const QImage saved = ReadPicture(path);
            EXPECT_EQ(saved.size(), opened.size());
            // The others don't hold every color, or not what is seen through.
            if (format < 2 || (format == 2 && !Canvas().hasAlphaChannel())) {
                EXPECT_EQ(saved.convertToFormat(QImage::Format_ARGB32), Canvas().convertToFormat(QImage::Format_ARGB32))
                    << path.toStdString();
            }
        }
        saveDialog.names.clear();
    }
    void Copy() {
        QGuiApplication::clipboard()->clear();
        Key(Qt::Key_C, Qt::ControlModifier);
        const QImage copied = QGuiApplication::clipboard()->image();
        EXPECT_EQ(!copied.isNull(), state.ImageActive);
        if (state.ImageActive) {
            EXPECT_EQ(copied.convertToFormat(Canvas().format()), Canvas());
        }
    }
    void AnyKey() {
        const Qt::Key keys[] = {Qt::Key_Z, Qt::Key_Y,     Qt::Key_S,     Qt::Key_Space, Qt::Key_PageDown,
                                Qt::Key_A, Qt::Key_Right, Qt::Key_Enter, Qt::Key_Tab,   Qt::Key_Escape};
        QTest::keyClick(&canvas, keys[Below(10)], Sometimes() ? Qt::ShiftModifier : Qt::NoModifier);
    }
    void BrushKey() {
        const Qt::Key keys[] = {Qt::Key_BracketLeft, Qt::Key_BracketRight, Qt::Key_BraceLeft, Qt::Key_BraceRight};
        // A platform without windows leaves the focus nowhere when a popup closes.
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &canvas, keys[Below(4)]);
    }
    void PaintByKeys() {
        const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Control};
        canvas.setFocus();
        if (Sometimes()) QTest::mouseMove(&canvas, Somewhere(canvas));
        QTest::keyPress(&canvas, Qt::Key_Space, Sometimes() ? Qt::ControlModifier : Qt::NoModifier);
        for (int i = Below(10); i > 0; --i)
            QTest::keyClick(&canvas, keys[Below(5)], Sometimes() ? Qt::NoModifier : Qt::ShiftModifier);
        if (Sometimes()) Key(Qt::Key_Z, Qt::ControlModifier);
        QTest::keyRelease(&canvas, Qt::Key_Space);
    }
    void Pen() {
        if (!canvas.isVisible()) return;
        QPoint at = Somewhere(canvas);
        const auto pen = [&](QEvent::Type type) {
            QTabletEvent event(type, QPointingDevice::primaryPointingDevice(), at, at, Below(101) / 100.0,
                               static_cast<float>(Below(61)), 0, 0, 0, 0, Qt::NoModifier, Qt::LeftButton,
                               type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
            QCoreApplication::sendEvent(&canvas, &event);
        };
        pen(QEvent::TabletPress);
        QTest::mousePress(&canvas, Qt::LeftButton, {}, at);
        for (int i = Below(5); i > 0; --i) {
            at = Somewhere(canvas);
            pen(QEvent::TabletMove);
            QTest::mouseMove(&canvas, at);
        }
        pen(QEvent::TabletRelease);
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, at);
    }
    void PickPoint() {
        if (!panel.cmdPick->isVisible()) return;
        QTest::mouseClick(panel.cmdPick, Qt::LeftButton);
        auto* picker = canvas.findChild<PointPicker*>();
        Sometimes() ? QTest::keyClick(picker, Qt::Key_Escape)
                    : QTest::mouseClick(picker, Qt::LeftButton, {}, Somewhere(*picker));
        EXPECT_FALSE(panel.cmdPick->isChecked());
    }
    void TurnSlider() {
        LsSlider& slider = *panel.sldValue[static_cast<std::size_t>(Below(3))];
        QWheelEvent event({5, 5}, {}, {}, {0, 120 * (Below(7) - 3)}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        if (slider.isVisible()) QCoreApplication::sendEvent(&slider, &event);
    }
    static void AskForMenu(QWidget& widget) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&widget, &event);
    }
    void AskSlider() {
        LsSlider& slider = *panel.sldValue[static_cast<std::size_t>(Below(3))];
        if (!slider.isVisible()) return;
        AskForMenu(slider);
        auto* menu = slider.findChild<QMenu*>();
        menu->actions().at(Below(2))->trigger();
        delete menu;
    }
    void LookAtAll() {
        Key(Qt::Key_E, Qt::ControlModifier);
        QWidget& overview = *window.controls.selectors->overview;
        if (!overview.isVisible()) return;
        QTest::keyClicks(overview.focusWidget(), QString(QChar('a' + Below(26))));
        if (Sometimes()) QTest::mouseClick(overview.findChild<Toolbox*>()->Button(1 + Below(48)), Qt::LeftButton);
        // A click that is refused, as while the original shows, leaves it open.
        if (overview.isVisible()) QTest::keyClick(overview.focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(overview.isVisible());
    }
    /// The entry of the menu of Save; false when it can't be chosen.
    bool ChooseOfSave(int entry) {
        bool chosen = false;
        QTimer::singleShot(0, &window, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu) return;
            chosen = menu->actions().at(entry)->isEnabled();
            if (chosen) menu->setActiveAction(menu->actions().at(entry));
            QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
        });
        AskForMenu(window.controls.Button(Command::Save));
        return chosen;
    }
    static std::function<void(QFileDialog&)> Give(const QString& name) {
        return [name](QFileDialog& form) {
            form.selectFile(name);
            QTest::mouseClick(form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save), Qt::LeftButton);
        };
    }
    /// Saved and dropped on its picture, a recipe changes nothing.
    void SaveAndDropRecipe() {
        const QString path = folder.filePath(QStringLiteral("%1.kelu").arg(done.size()));
        DialogScript hand;
        if (journal.Painted()) hand.Then<QFileDialog>(Give(path));
        if (!ChooseOfSave(0)) return;
        const QImage before = Canvas();
        if (state.ImageDirty) dialog.answers = {Sometimes() ? MsgAnswer::Cancel : MsgAnswer::No};
        Drop(path);
        EXPECT_EQ(Canvas(), before);
    }
    void SaveFilm() {
        const QString path = folder.filePath(QStringLiteral("%1.gif").arg(done.size()));
        DialogScript hand;
        const bool keeps = Sometimes();
        if (journal.Painted()) hand.Press(keeps ? "Save..." : "Cancel");
        if (journal.Painted() && keeps) hand.Then<QFileDialog>(Give(path));
        EXPECT_EQ(ChooseOfSave(1), journal.Painted());
        EXPECT_EQ(QFile::exists(path), journal.Painted() && keeps);
    }
    void PaintAll() { Key(Qt::Key_A, Sometimes() ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier); }
    void Hold() {
        const Qt::Key key = Sometimes() ? Qt::Key_O : Qt::Key_Backslash;
        QTest::keyPress(&window, key);
        if (Sometimes()) Paint();
        if (Sometimes()) Click(Command::Original);
        QTest::keyRelease(&window, key);
    }
    void AskToLeave() {
        if (!state.ImageDirty) return;
        dialog.answers = {MsgAnswer::Cancel};
        Sometimes() ? Click(Command::Close) : static_cast<void>(window.close());
    }
    void ChangeWindow() {
        Click(Command::Restore);
        QCoreApplication::processEvents();
    }
    void ButtonOf(std::initializer_list<Command> commands) {
        Click(commands.begin()[Below(static_cast<int>(commands.size()))]);
    }

    void ExpectAgreement() {
        ASSERT_TRUE(window.isVisible() && window.isEnabled());
        ASSERT_EQ(Canvas().size(), opened.size());
        ASSERT_EQ(window.surfaces.picOriginal.Picture(), opened);
        ASSERT_EQ(canvas.isVisible(), !state.ShowingOriginal);
        ASSERT_EQ(window.controls.picOriginal->isVisible(), state.ShowingOriginal);
        ASSERT_FALSE(window.controls.pBar1->isVisible());
        ASSERT_TRUE(Status().startsWith(state.CurrentFileName + " - ")) << qPrintable(Status());
        ASSERT_GE(canvas.ZoomPercent(), 1);
        ASSERT_TRUE(dialog.answers.empty());
        for (const auto& message : dialog.shown) ASSERT_NE(message.heading, "Error") << qPrintable(message.text);
        ASSERT_TRUE(state.ImageDirty || Canvas() == opened || !state.ImageActive)
            << "changed and neither dirty nor saved";
    }
    /// Nothing was left unpainted: the screen shows what a fresh painting would.
    void ExpectFreshScreen() {
        const auto isFresh = [this] {
            const QImage shown =
                window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
            // The window reaches beyond the small screen of the offscreen platform.
            return shown == window.grab().toImage().convertToFormat(QImage::Format_RGB32).copy(shown.rect());
        };
        // Repaints wait for their turn on a busy machine; what was never asked for doesn't come at all.
        EXPECT_TRUE(QTest::qWaitFor(isFresh, 5000));
    }
    void ExpectUndoGivesThePictureBack() {
        int levels = 0;
        for (; window.surfaces.picCanvas.CanUndo(); ++levels) Key(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_EQ(Canvas(), opened);
        for (; levels > 0; --levels) Key(Qt::Key_Y, Qt::ControlModifier);
    }
    void ExpectTheRecipeGivesThePicture() {
        const Recipe recipe = journal.Told();
        ASSERT_EQ(recipe.fault, "");
        Surfaces again;
        Replay replay(recipe, again, &RenderEffectOn);
        replay.Open(journal.Picture().opened);
        replay.DoAll();
        EXPECT_EQ(again.picCanvas.Picture(), Canvas());
        KeepRecipe(recipe);
    }
    /// For tools/replayed_recipes.sh, which has another process do the same.
    void KeepRecipe(const Recipe& recipe) {
        const QString out = qEnvironmentVariable("KELU_RECIPES");
        if (out.isEmpty()) return;
        const QString stem = QDir(out).filePath(QString::number(GetParam()));
        WriteRecipe(recipe, stem + ".kelu");
        ASSERT_TRUE(opened.save(stem + ".photo.png") && Canvas().save(stem + ".painted.png"));
    }
};

std::vector<unsigned> Seeds() {
    std::vector<unsigned> seeds(static_cast<std::size_t>(std::max(3, qEnvironmentVariableIntValue("KELU_MONKEYS"))));
    std::iota(seeds.begin(), seeds.end(), 1u);
    return seeds;
}

INSTANTIATE_TEST_SUITE_P(Seeds, Monkey, testing::ValuesIn(Seeds()));

TEST_P(Monkey, BreaksNothing) {
    photos = {MakePhoto("0.png", 160, 120), MakePhoto("1.png", 90, 140), MakePhoto("2.png", 700, 60)};
    // tools/soak.py has more of them.
    if (const QDir more(qEnvironmentVariable("KELU_PHOTOS", folder.filePath("none"))); more.exists())
        for (const QString& name : more.entryList(QDir::Files)) photos << more.filePath(name);
    OpenOne();
    const std::pair<const char*, std::function<void()>> tricks[] = {
        {"open", [this] { OpenOne(); }},
        {"apply", [this] { ApplyOne(); }},
        {"apply", [this] { ApplyOne(); }},
        {"paint", [this] { Paint(); }},
        {"paint", [this] { Paint(); }},
        {"paint", [this] { Paint(); }},
        {"paint", [this] { Paint(); }},
        {"undo", [this] { Key(Qt::Key_Z, Qt::ControlModifier); }},
        {"redo",
         [this] {
             ButtonOf({Command::Undo, Command::Redo});
         }},
        {"zoom",
         [this] {
             ButtonOf({Command::ZoomIn, Command::ZoomIn, Command::ZoomOut, Command::ZoomReset});
         }},
        {"wheel", [this] { Wheel(); }},
        {"compare", [this] { Click(Command::Original); }},
        {"copy", [this] { Copy(); }},
        {"save",
         [this] {
             if (Sometimes()) Save();
         }},
        {"brush", [this] { panel.sldBrushSize->SetValue(1 + Below(100)); }},
        {"key", [this] { AnyKey(); }},
        {"brush key", [this] { BrushKey(); }},
        {"all", [this] { PaintAll(); }},
        {"hold", [this] { Hold(); }},
        {"keys", [this] { PaintByKeys(); }},
        {"pick", [this] { PickPoint(); }},
        {"pen", [this] { Pen(); }},
        {"slider menu", [this] { AskSlider(); }},
        {"overview", [this] { LookAtAll(); }},
        {"recipe",
         [this] {
             if (Sometimes()) SaveAndDropRecipe();
         }},
        {"film",
         [this] {
             if (Sometimes()) SaveFilm();
         }},
        {"slider", [this] { TurnSlider(); }},
        {"leave", [this] { AskToLeave(); }},
        {"maximise",
         [this] {
             if (Sometimes()) ChangeWindow();
         }},
        {"undo all",
         [this] {
             if (Sometimes()) ExpectUndoGivesThePictureBack();
         }},
    };
    int strokes = 0;
    for (int step = 0; step < kSteps && !HasFatalFailure(); ++step) {
        const auto& [name, trick] = tricks[Below(static_cast<int>(std::size(tricks)))];
        done << name;
        const QImage before = Canvas();
        trick();
        strokes += (qstrcmp(name, "paint") == 0 || qstrcmp(name, "keys") == 0) && Canvas() != before;
        ExpectAgreement();
        if (step % 50 == 0) ExpectFreshScreen();
    }
    ExpectTheRecipeGivesThePicture();
    ExpectUndoGivesThePictureBack();
    if (HasFailure()) ADD_FAILURE() << "after " << qPrintable(done.join(", "));
    EXPECT_GT(strokes, 0) << "the monkey was idle";
}

}  // namespace
}  // namespace kelu
