// What reaches the window while a render runs: nothing. Clicks, keys, the wheel, drops and close requests come to no
// effect, and the render ends as if nobody had touched anything.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "controls/progress_bar/xp_progress_bar.h"
#include "tests/app/main_window_fixture.h"
#include "tests/support/dialog_script.h"

namespace kelu {
namespace {

constexpr int kOilPainting = 33;

struct RenderWalk : MainWindowFixture {
    void OpenLarge() {
        OpenPhoto(1600, 1200);
        Choose(kOilPainting);
        panel.sldValue[0]->SetValue(60);
    }
    QString Sees() const {
        return QStringLiteral("%1 %2 %3 %4 %5 %6")
            .arg(state.CurrentSFX)
            .arg(state.ImageDirty)
            .arg(state.CurrentFileName, Status())
            .arg(canvas.ZoomPercent())
            .arg(window.surfaces.picCanvas.CanUndo());
    }
};

TEST_F(RenderWalk, NothingReachesTheWindowMeanwhile) {
    const QString other = MakePhoto("other.png", 50, 40);
    OpenLarge();
    Apply();
    const QImage canvasBefore = Canvas(), pen = window.surfaces.picPen.Picture().copy();
    Stroke({{400, 400}, {800, 500}});
    Key(Qt::Key_Z, Qt::ControlModifier);
    const QString before = Sees();

    DialogScript noDialog;
    bool rendering = true, disturbed = false;
    QTimer::singleShot(0, &window, [&] {
        disturbed = rendering;
        Apply();
        QTest::mouseClick(window.controls.selectors->TBSFX->Button(kEmboss), Qt::LeftButton);
        StrokeWidget({{200, 200}, {260, 220}});
        for (const CommandRow& row : kCommands) Click(row.command);
        for (const auto key : {Qt::Key_Y, Qt::Key_O, Qt::Key_S, Qt::Key_C, Qt::Key_P}) Key(key, Qt::ControlModifier);
        Key(Qt::Key_F8, {});
        Key(Qt::Key_F4, Qt::AltModifier);
        Drop(other);
        QWheelEvent wheel({200, 200}, canvas.mapToGlobal(QPointF(200, 200)), {}, {0, 120}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas, &wheel);
        // As the window system delivers them.
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, canvas.geometry().center());
        QTest::keyClick(window.windowHandle(), Qt::Key_Y, Qt::ControlModifier);
        EXPECT_FALSE(window.close());
        EXPECT_EQ(Sees(), before);
    });
    Apply();
    rendering = false;
    ASSERT_TRUE(disturbed) << "the render did not turn the event loop";
    EXPECT_EQ(Sees(), before);
    EXPECT_EQ(Canvas(), canvasBefore);
    EXPECT_EQ(window.surfaces.picPen.Picture(), pen);
    EXPECT_EQ(saveDialog.shown, 0);
    EXPECT_TRUE(dialog.shown.empty());
    EXPECT_FALSE(window.controls.pBar1->isVisible());
    EXPECT_TRUE(state.ImageActive);
    EXPECT_TRUE(window.isVisible());

    // Afterwards all is open again.
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_NE(Canvas(), canvasBefore);
    dialog.answers = {MsgAnswer::No};
    EXPECT_TRUE(window.close());
}

}  // namespace
}  // namespace kelu
