// The main window as its user meets it, after the splash, and the user's hand: mouse and keys on the real controls.
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QtTest>

#include "app/frm_main.h"
#include "controls/message_dialog/msg_dialog_window.h"
#include "controls/slider/ls_slider.h"
#include "controls/status_bar/status_bar.h"
#include "controls/tool_button/tool_button.h"
#include "controls/toolbox/toolbox.h"
#include "dialogs/save_file_dialog.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"
#include "tests/support/memory_settings.h"
#include "tests/support/paper_only_printing.h"
#include "tests/support/scripted_camera.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/scripted_save_dialog.h"

namespace kelu {

/// Messages and the save dialog are scripted, or the real ones, which a DialogScript then answers.
class MainWindowFixture : public testing::Test {
 protected:
    enum class Dialogs { Scripted, Real };

    static constexpr int kGrayscale = 1;
    static constexpr int kEmboss = 20;

    QTemporaryDir folder;
    MemorySettings settings;
    SharedState state;
    ScriptedDialog dialog;
    ScriptedSaveDialog saveDialog;
    MsgDialogWindow realDialog;
    SaveFileDialog realSaveDialog{realDialog};
    PaperOnlyPrinting printing;
    ScriptedCamera camera;
    bool anotherRuns = false;
    frmMain window;
    ImageX& canvas = *window.controls.picCanvas;
    EffectPanel& panel = *window.controls.pnlSettings;

    explicit MainWindowFixture(Dialogs dialogs = Dialogs::Scripted, Journal* journal = nullptr)
        : window(state, {settings,
                         dialogs == Dialogs::Real ? static_cast<MsgDialog&>(realDialog) : dialog,
                         dialogs == Dialogs::Real ? static_cast<SaveDialog&>(realSaveDialog) : saveDialog,
                         printing,
                         camera,
                         camera,
                         {},
                         [this] { return anotherRuns; },
                         {},
                         {},
                         journal}) {
        camera.devices = {QStringLiteral("Camera")};
        camera.frame = QImage(64, 48, QImage::Format_RGB32);
        camera.frame.fill(Qt::green);
        // What opens must be what the file holds, and the reminder is a test of its own.
        settings.Write(settings::kResize, 0);
        settings.Write(settings::kReminder, false);
    }

    void SetUp() override {
        QWidget nobody;
        QTest::mouseClick(&nobody, Qt::LeftButton);  // no ring of another test's keys on the screen
        window.Start();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.EndSplash();
        QTest::qWait(20);
        QCoreApplication::processEvents();  // the settings timer, due by now on the busiest machine
    }

    /// A picture of which no two neighbours are alike.
    QString MakePhoto(const QString& name = QStringLiteral("photo.png"), int width = 400, int height = 300) {
        QImage image(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(x % 256, y % 256, (x * y + width) % 256));
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name);
    }
    /// Drops the file on the middle of the window, as a file manager does.
    void Drop(const QString& path) {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(path)});
        Drop(files);
    }
    /// False when it is not taken. The source would rather move: it deletes what it hears was moved.
    bool Drop(const QMimeData& offered) {
        const QPointF middle = window.rect().center();
        const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
        QDragEnterEvent enter(middle.toPoint(), actions, &offered, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QCoreApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop(middle, actions, &offered, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        QCoreApplication::processEvents();
        return true;
    }
    void OpenPhoto(int width = 400, int height = 300) {
        Drop(MakePhoto(QStringLiteral("photo.png"), width, height));
        ASSERT_TRUE(state.ImageActive);
        ASSERT_EQ(window.surfaces.picCanvas.ImageWidth(), width);
    }

    void Click(Command command) { QTest::mouseClick(&window.controls.Button(command), Qt::LeftButton); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&window, key, modifiers); }
    void Choose(int effect) {
        QTest::mouseClick(window.controls.selectors->TBSFX->Button(effect), Qt::LeftButton);
        ASSERT_EQ(state.CurrentSFX, effect);
    }
    void Apply() { QTest::mouseClick(panel.cmdApply, Qt::LeftButton); }
    /// Arms a brush of this diameter.
    void Arm(int effect = kGrayscale, int brush = 20) {
        Choose(effect);
        panel.sldBrushSize->SetValue(brush);
        Apply();
        ASSERT_TRUE(state.EffectReady);
    }

    /// The widget's point over the middle of an image pixel.
    QPoint Over(int x, int y) const {
        const QRectF shown = canvas.ImageRect();
        const double scale = shown.width() / window.surfaces.picCanvas.ImageWidth();
        return QPointF(shown.left() + (x + 0.5) * scale, shown.top() + (y + 0.5) * scale).toPoint();
    }
    void StrokeWidget(const std::vector<QPoint>& points, Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(&canvas, button, modifiers, points.front());
        for (const QPoint& point : points) QTest::mouseMove(&canvas, point);
        QTest::mouseRelease(&canvas, button, {}, points.back());
    }
    /// Through image pixels.
    void Stroke(std::vector<QPoint> points, Qt::MouseButton button = Qt::LeftButton) {
        for (QPoint& point : points) point = Over(point.x(), point.y());
        StrokeWidget(points, button);
    }

    QImage Canvas() const { return window.surfaces.picCanvas.Picture().copy(); }
    QString Status() const { return window.controls.sBar1->PanelText(2); }

    /// The pixels in which two pictures of one size differ.
    static QRegion Changed(const QImage& before, const QImage& after) {
        QRegion changed;
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x) {
                int end = x;
                while (end < after.width() && after.pixel(end, y) != before.pixel(end, y)) ++end;
                if (end > x) changed += QRect(x, y, end - x, 1);
                x = end;
            }
        return changed;
    }
};

}  // namespace kelu
