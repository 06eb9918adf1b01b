// The engine as the program sees it: shared sources, refusals, progress, and the window that it shuts meanwhile.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/pix_twix.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "controls/progress_bar/xp_progress_bar.h"
#include "effects/form_render_window.h"
#include "tests/effects/sample_picture.h"

namespace kelu {
namespace {

TEST(PixTwix, SharesItsSourceAndLeavesItAlone) {
    const QImage source = SamplePicture(40, 30);
    const QImage pixels = source.copy();
    PixTwix engine;
    engine.SetPicture(source);
    EXPECT_EQ(engine.Picture().constBits(), source.constBits());
    ASSERT_TRUE(engine.FxNegative(true, true, true, false));
    EXPECT_EQ(source, pixels);
    EXPECT_EQ(engine.Picture().pixel(3, 2), source.pixel(3, 2) ^ 0xffffff);

    // A second operation works on the first one's render.
    ASSERT_TRUE(engine.FxNegative(true, true, true, false));
    EXPECT_EQ(engine.Picture(), pixels);
}

TEST(PixTwix, KeepsFormatTransparencyAndResolution) {
    QImage source = SamplePicture(40, 30).convertToFormat(QImage::Format_ARGB32);
    source.setPixel(3, 2, qRgba(10, 20, 30, 40));
    source.setDotsPerMeterX(11811);
    source.setDotsPerMeterY(5906);
    PixTwix engine;
    engine.SetPicture(source);
    ASSERT_TRUE(engine.FxNegative(true, true, true, false));
    EXPECT_EQ(engine.Picture().format(), QImage::Format_ARGB32);
    EXPECT_EQ(engine.Picture().pixel(3, 2), qRgba(245, 235, 225, 40));
    EXPECT_EQ(engine.Picture().dotsPerMeterX(), 11811);
    EXPECT_EQ(engine.Picture().dotsPerMeterY(), 5906);

    engine.SetPicture(SamplePicture(6, 4).convertToFormat(QImage::Format_RGB888));
    EXPECT_TRUE(engine.FxNegative(true, true, true, false)) << "any other format is taken too";
}

TEST(PixTwix, AnswersFalseWithoutAPicture) {
    PixTwix engine;
    QSignalSpy progress(&engine, &PixTwix::FxProgress);
    EXPECT_FALSE(engine.FxReverse());
    EXPECT_TRUE(engine.Picture().isNull());
    EXPECT_TRUE(progress.isEmpty());
}

TEST(PixTwix, RefusesASecondRenderInsideAReportAndEndsWithAHundred) {
    PixTwix engine(1);
    engine.SetPicture(SamplePicture(2000, 1500));
    std::vector<int> reports;
    bool second = false;
    QObject::connect(&engine, &PixTwix::FxProgress, &engine, [&](int percent) {
        reports.push_back(percent);
        second = second || engine.FxReverse();
    });
    ASSERT_TRUE(engine.FxOilPainting(30, false));  // hundreds of milliseconds on one thread
    EXPECT_FALSE(second);
    ASSERT_FALSE(reports.empty());
    EXPECT_LT(reports.front(), 100);
    EXPECT_EQ(reports.back(), 100);
}

TEST(FormRenderWindow, AShutFormTakesNoInputAndOtherWindowsDo) {
    QWidget form, other;
    QPushButton inside(&form), outside(&other);
    XP_ProgressBar bar(&form);
    form.show();
    other.show();
    QSignalSpy clicksInside(&inside, &QPushButton::clicked), clicksOutside(&outside, &QPushButton::clicked);
    FormRenderWindow window(form, bar);

    window.SetFormEnabled(false);
    QTest::mouseClick(&inside, Qt::LeftButton);
    QTest::keyClick(&inside, Qt::Key_Space);
    QTest::mouseClick(&outside, Qt::LeftButton);
    EXPECT_FALSE(form.close()) << "closing waits for the end of the render";
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(clicksInside.count(), 0);
    EXPECT_EQ(clicksOutside.count(), 1);
    EXPECT_TRUE(inside.isEnabled()) << "nothing is greyed out";

    window.SetFormEnabled(true);
    QTest::mouseClick(&inside, Qt::LeftButton);
    EXPECT_EQ(clicksInside.count(), 1);
}

}  // namespace
}  // namespace kelu
