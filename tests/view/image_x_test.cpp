// The view of a surface: its pixels against a fresh scaling, its coordinates, and its events. Runs at device pixel
// ratios 1, 1.5 and 2.
// SPDX-License-Identifier: MIT
#include "view/image_x.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <cmath>
#include <random>

#include "pictures/area_scaler.h"
#include "pictures/picture.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

TEST(ScaledView, PartsRenewedAndScrolledEqualAFreshScaling) {
    std::mt19937 random(3);
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        for (const QSize& scaled :
             {QSize(97, 61), QSize(399, 250), QSize(400, 251), QSize(517, 333), QSize(1600, 1004)}) {
            SCOPED_TRACE(testing::Message() << scaled.width() << " format " << format);
            QImage picture = NoisePicture(400, 251, 1, format);
            ScaledView view;
            QPoint corner(0, 0);
            for (int step = 0; step < 40; ++step) {
                const QRect window(corner, QSize(120, 90));
                view.Show(picture, scaled, window);
                const QRect changed =
                    QRect(int(random() % 400), int(random() % 251), 1 + int(random() % 60), 1 + int(random() % 60)) &
                    picture.rect();
                for (int y = changed.top(); y <= changed.bottom(); ++y)
                    for (int x = changed.left(); x <= changed.right(); ++x)
                        reinterpret_cast<QRgb*>(picture.scanLine(y))[x] ^= static_cast<QRgb>(random()) & 0xffffffu;
                view.Refresh(picture, changed);
                ScaledView fresh;
                fresh.Show(picture, scaled, window);
                ASSERT_EQ(view.Pixels(), fresh.Pixels()) << step;
                corner = QPoint(int(random() % static_cast<unsigned>(std::max(1, scaled.width() - 120))),
                                int(random() % static_cast<unsigned>(std::max(1, scaled.height() - 90))));
            }
        }
    }
    // Of a large picture not all is made at once, and in the end the same.
    const QImage large = NoisePicture(4800, 2900, 5);
    const QRect all(0, 0, 480, 290);
    QImage whole(all.size(), QImage::Format_RGB32);
    ScaleArea(large, all.size(), all, whole, QPoint(0, 0));
    ScaledView view;
    view.Show(large, all.size(), all);
    QRect part = view.Refine(large);
    EXPECT_TRUE(view.IsCoarse() && view.Pixels().copy(part) == whole.copy(part));
    while (view.IsCoarse()) part |= view.Refine(large);
    EXPECT_EQ(part, all);
    EXPECT_EQ(view.Pixels(), whole);
}

class ImageXTest : public testing::Test {
 protected:
    ImageXTest() : view_(surface_) {
        view_.resize(400, 300);
        view_.show();
        QApplication::processEvents();
    }
    double Ratio() const { return view_.devicePixelRatioF(); }
    void Free(int percent) {
        view_.SetZoomPercent(percent);
        view_.SetFreeView();
    }

    Surface surface_;
    ImageX view_;
};

TEST_F(ImageXTest, FittedViewShowsTheWholePictureAndNeverEnlarges) {
    const struct {
        QSize picture;
        int percent;
        QRectF rect;
    } cases[] = {{{800, 600}, 50, {0, 0, 400, 300}},
                 {{1600, 600}, 25, {0, 75, 400, 150}},
                 {{100, 100}, 100, {150, 100, 100, 100}},
                 {{40000, 10}, 1, {}}};
    for (const auto& fitted : cases) {
        surface_.CreateBlank(fitted.picture.width(), fitted.picture.height(), 24, Qt::red);
        EXPECT_EQ(view_.ZoomPercent(), fitted.percent);
        if (!fitted.rect.isEmpty()) {
            // The picture begins on a whole device pixel.
            const auto snapped = [this](double length) { return std::floor(length * Ratio()) / Ratio(); };
            EXPECT_EQ(view_.ImageRect(),
                      QRectF(QPointF(snapped(fitted.rect.x()), snapped(fitted.rect.y())), fitted.rect.size()));
        }
    }
}

TEST_F(ImageXTest, ThePercentTellsWhatIsShownAfterEveryCommand) {
    // As the zoom commands set it: in and out assign a percent, in and reset choose a view, all redraw at the end.
    const auto in = [this] {
        view_.SetZoomPercent(view_.ZoomPercent() + 10);
        view_.ZoomPercent() >= 51 ? view_.SetFreeView() : view_.SetFittedView();
        view_.Redraw();
    };
    const auto out = [this] {
        view_.SetZoomPercent(std::max(3, view_.ZoomPercent() - 10));
        view_.Redraw();
    };
    const auto reset = [this] {
        view_.SetFittedView();
        view_.Redraw();
    };
    const auto undo = [this] { view_.ShowWhole(); };
    const auto open = [this](int width, int height) { surface_.CreateBlank(width, height, 24, Qt::red); };
    const struct {
        const char* what;
        std::function<void()> step;
        int percent, shownWidth;
    } steps[] = {
        {"a picture five times as wide", [&] { open(2000, 1500); }, 20, 400},
        {"in: counts, though the fitted view shows no more", in, 30, 400},
        {"in again", in, 40, 400},
        {"reset at the first press", reset, 20, 400},
        {"out, in the fitted view", out, 10, 200},
        {"reset after out", reset, 20, 400},
        {"to the free view", [&] { Free(60); }, 60, 1200},
        {"out of 60 stays free", out, 50, 1000},
        {"and again", out, 40, 800},
        {"in from 40: the fitted view, not larger", in, 50, 400},
        {"undo shows the whole picture", undo, 20, 400},
        {"a wider window", [&] { view_.resize(800, 600); }, 40, 800},
        {"a small picture", [&] { open(500, 300); }, 100, 500},
        {"seen smaller", [&] { Free(40); }, 40, 200},
        {"in from 40 is 50 there, too", in, 50, 250},
        {"51 and more are free", in, 60, 300},
    };
    for (const auto& step : steps) {
        const int before = view_.ZoomPercent();
        QSignalSpy changed(&view_, &ImageX::ZoomChanged);
        step.step();
        QApplication::processEvents();
        EXPECT_EQ(view_.ZoomPercent(), step.percent) << step.what;
        EXPECT_NEAR(view_.ImageRect().width(), step.shownWidth, 1) << step.what;
        EXPECT_EQ(changed.isEmpty(), before == step.percent) << step.what;
    }
}

TEST_F(ImageXTest, CoordinatesNameThePixelUnderThePointer) {
    // Each pixel tells its own place, so what is on the screen can be compared with what the view says.
    QImage picture(1000, 800, QImage::Format_RGB32);
    for (int y = 0; y < 800; ++y)
        for (int x = 0; x < 1000; ++x) picture.setPixel(x, y, qRgb(x / 4, y / 4, (x % 4) * 16 + y % 4));
    surface_.SetPicture(picture);
    for (const int percent : {100, 200, 370, 800}) {
        // The middle of a pixel of the widget lies between two device pixels, which may show different image pixels.
        if (Ratio() != 1 && std::fmod(percent * Ratio() / 100, 1) != 0) continue;
        Free(percent);
        for (QScrollBar* bar : view_.findChildren<QScrollBar*>()) bar->setValue(bar->maximum() / 3);
        const QImage shown = view_.grab().toImage();
        for (const QPoint& at : {QPoint(0, 0), QPoint(17, 33), QPoint(200, 150), QPoint(370, 270)}) {
            const QPoint device(int((at.x() + 0.5) * Ratio()), int((at.y() + 0.5) * Ratio()));
            EXPECT_EQ(shown.pixel(device) | 0xff000000u,
                      picture.pixel(view_.ScreenToImageX(at.x()), view_.ScreenToImageY(at.y())))
                << percent << " at " << at.x();
        }
    }
    view_.SetFittedView();  // 37.5 percent, left and right free: 12.5 pixels
    EXPECT_NEAR(view_.ScreenToImageX(200), 501, 1);
    EXPECT_EQ(view_.ScreenToImageY(0), 1);
    EXPECT_LT(view_.ScreenToImageX(5), 0);
    EXPECT_GE(view_.ScreenToImageX(395), 1000);
}

TEST_F(ImageXTest, TheHatchShowsWhereThePictureDoesNot) {
    QImage picture(200, 300, QImage::Format_ARGB32);
    picture.fill(qRgba(0, 0, 255, 255));
    for (int i = 0; i < 9; ++i) picture.setPixel(99 + i % 3, 149 + i / 3, 0);  // its middle is clear of smoothing
    surface_.SetPicture(picture);
    view_.SetBackgroundHatch(QBrush(QColor(200, 200, 200), Qt::SolidPattern));
    const auto at = [&](double x, double y) {
        return view_.grab().toImage().pixel(int(x * Ratio()), int(y * Ratio())) & 0xffffffu;
    };
    EXPECT_EQ(at(50, 150), 0xc8c8c8u);
    EXPECT_EQ(at(99, 150), 0xc8c8c8u);
    EXPECT_EQ(at(101, 150), 0x0000ffu);
    EXPECT_EQ(at(200.5, 150.5), 0xc8c8c8u);
    EXPECT_EQ(at(350, 150), 0xc8c8c8u);
}

TEST_F(ImageXTest, MouseEventsComeInTwipsAndDragsOfTheViewDoNot) {
    surface_.CreateBlank(2000, 1500, 24, Qt::red);
    QSignalSpy pressed(&view_, &ImageX::MousePressed);
    QSignalSpy moved(&view_, &ImageX::MouseMoved);
    QTest::mousePress(&view_, Qt::RightButton, Qt::ShiftModifier, QPoint(12, 34));
    QTest::mouseMove(&view_, QPoint(13, 35));
    QTest::mouseRelease(&view_, Qt::RightButton, {}, QPoint(13, 35));
    QTest::mousePress(&view_, Qt::MiddleButton, {}, QPoint(5, 5));  // nothing to scroll: a press like any other
    QTest::mouseRelease(&view_, Qt::MiddleButton, {}, QPoint(5, 5));
    ASSERT_EQ(pressed.count(), 2);
    EXPECT_EQ(pressed[0][0].value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_EQ(pressed[0][3].toInt(), 180);
    EXPECT_EQ(pressed[0][4].toInt(), 510);
    ASSERT_GE(moved.count(), 1);
    EXPECT_EQ(moved[0][2].toInt(), 195);

    Free(100);
    pressed.clear();
    moved.clear();
    const int before = view_.ScreenToImageX(0);
    QTest::mousePress(&view_, Qt::MiddleButton, {}, QPoint(200, 150));
    QTest::mouseMove(&view_, QPoint(150, 150));
    QTest::mouseRelease(&view_, Qt::MiddleButton, {}, QPoint(150, 150));
    EXPECT_EQ(view_.ScreenToImageX(0), before + 50);
    QTest::keyPress(&view_, Qt::Key_Space);
    QTest::mousePress(&view_, Qt::LeftButton, {}, QPoint(200, 150));
    QTest::mouseMove(&view_, QPoint(210, 150));
    QTest::mouseRelease(&view_, Qt::LeftButton, {}, QPoint(210, 150));
    QTest::keyRelease(&view_, Qt::Key_Space);
    EXPECT_EQ(view_.ScreenToImageX(0), before + 40);
    EXPECT_EQ(pressed.count() + moved.count(), 0);
    QTest::keyClick(&view_, Qt::Key_Right);
    EXPECT_EQ(view_.ScreenToImageX(0), before + 80);
}

TEST_F(ImageXTest, ZoomingByTheWheelKeepsThePointUnderTheMouse) {
    surface_.CreateBlank(3000, 2000, 24, Qt::red);
    Free(100);
    int steps = 0;
    QObject::connect(&view_, &ImageX::ZoomWheel, [&](int count) {
        steps += count;
        view_.SetZoomPercent(view_.ZoomPercent() + 10 * count);
    });
    const QPoint mouse(311, 77);
    const QPoint before(view_.ScreenToImageX(mouse.x()), view_.ScreenToImageY(mouse.y()));
    const auto turn = [&](int delta, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(mouse, view_.mapToGlobal(mouse), QPoint(), QPoint(0, delta), Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view_, &event);
    };
    for (int i = 0; i < 4; ++i) turn(120, Qt::ControlModifier);
    EXPECT_EQ(steps, 4);
    EXPECT_NEAR(view_.ScreenToImageX(mouse.x()), before.x(), 2);
    EXPECT_NEAR(view_.ScreenToImageY(mouse.y()), before.y(), 2);
    // Fine wheels: what is left of a notch counts for the next.
    for (const int turned : {-100, -100, -40}) turn(turned, Qt::ControlModifier);
    EXPECT_EQ(steps, 2);
    const int top = view_.ScreenToImageY(0);
    turn(-120, Qt::NoModifier);
    EXPECT_GT(view_.ScreenToImageY(0), top);
    EXPECT_EQ(steps, 2);
}

TEST_F(ImageXTest, TheBrushRingFollowsTheMouseAndLeavesNothingBehind) {
    surface_.CreateBlank(400, 300, 24, QColor(128, 128, 128));
    const QImage plain = view_.grab().toImage();
    view_.SetBrushTip({.size = 60});
    QTest::mouseMove(&view_, QPoint(100, 100));
    QTest::mouseMove(&view_, QPoint(200, 150));
    const QImage ringed = view_.grab().toImage();
    EXPECT_NE(ringed.pixel(int(230 * Ratio()), int(150 * Ratio())), plain.pixel(0, 0));
    EXPECT_EQ(ringed.pixel(int(130 * Ratio()), int(100 * Ratio())), plain.pixel(0, 0));
    EXPECT_EQ(ringed.pixel(int(200 * Ratio()), int(150 * Ratio())), plain.pixel(0, 0));
    view_.SetBrushTip({.size = 0});
    EXPECT_EQ(view_.grab().toImage(), plain);
}

TEST_F(ImageXTest, TheLensShowsWhatAStrokeWouldBringUntilAButtonIsPressed) {
    surface_.CreateBlank(400, 300, 24, QColor(128, 128, 128));
    QImage paint(400, 300, QImage::Format_RGB32);
    paint.fill(Qt::red);
    const auto at = [&](int x, int y) { return view_.grab().toImage().pixelColor(int(x * Ratio()), int(y * Ratio())); };
    view_.SetBrushTip({.size = 60, .paint = paint});
    QTest::mouseMove(&view_, QPoint(100, 100));
    QTest::mouseMove(&view_, QPoint(200, 150));
    EXPECT_EQ(at(200, 150), QColor(Qt::red));
    EXPECT_EQ(at(220, 150), QColor(Qt::red));
    EXPECT_EQ(at(240, 150), QColor(128, 128, 128));
    QTest::mousePress(&view_, Qt::LeftButton, {}, QPoint(200, 150));
    EXPECT_EQ(at(200, 150), QColor(128, 128, 128));
    QTest::mouseRelease(&view_, Qt::LeftButton, {}, QPoint(200, 150));
    EXPECT_EQ(at(200, 150), QColor(Qt::red));
    view_.SetBrushTip({.size = 60, .paint = paint.scaled(20, 20)});
    EXPECT_EQ(at(200, 150), QColor(128, 128, 128)) << "paint of another picture";
}

TEST_F(ImageXTest, WhatIsOnTheScreenIsWhatAFreshViewWouldShow) {
    Surface pen;
    surface_.SetPicture(NoisePicture(900, 700, 1));
    pen.SetPicture(NoisePicture(900, 700, 2));
    surface_.SelectBrush(pen.MakeBrush(40));
    QPoint mouse;
    int ring = 30;
    const auto move = [&](const QPoint& to) { QTest::mouseMove(&view_, mouse = to); };
    const auto stroke = [&](int x1, int y1, int x2, int y2) {
        surface_.PushUndo();
        surface_.DrawBrushLine(x1, y1, x2, y2, 255);
    };
    view_.SetBrushTip({.size = ring});
    move({10, 10});
    QApplication::processEvents();
    move({200, 150});
    // Strokes and undo over many tiles, at every kind of scale; and the ring, which grows with the view and follows
    // the mouse.
    const std::function<void()> steps[] = {[&] { stroke(300, 250, 517, 403); },
                                           [&] { stroke(20, 600, 850, 33); },
                                           [&] { surface_.Undo(); },
                                           [&] { surface_.Redo(); },
                                           [&] { surface_.Undo(); },
                                           [&] { Free(70); },
                                           [&] { stroke(333, 250, 500, 401); },
                                           [&] { surface_.Undo(); },
                                           [&] { Free(250); },
                                           [&] { stroke(410, 300, 477, 371); },
                                           [&] { surface_.Undo(); },
                                           [&] {
                                               move({40, 60});
                                           },
                                           [&] { view_.SetZoomPercent(60); },
                                           [&] {
                                               move({300, 200});
                                           },
                                           [&] { view_.SetBrushTip({.size = ring = 5}); },
                                           [&] { view_.SetFittedView(); },
                                           [&] {
                                               move({100, 100});
                                           }};
    for (std::size_t step = 0; step < std::size(steps); ++step) {
        QApplication::processEvents();
        steps[step]();
        QApplication::processEvents();
        const QImage shown = view_.screen()->grabWindow(view_.winId()).toImage().convertToFormat(QImage::Format_RGB32);
        ImageX fresh(surface_);
        fresh.resize(view_.size());
        if (view_.ViewMode() == ViewKind::Free) {
            fresh.SetZoomPercent(view_.ZoomPercent());
            fresh.SetFreeView();
        }
        fresh.SetBrushTip({.size = 30});  // a change is told beside the ring
        fresh.SetBrushTip({.size = ring});
        fresh.setAttribute(Qt::WA_DontShowOnScreen);  // there it would take the mouse away
        fresh.show();
        const auto bars = view_.findChildren<QScrollBar*>();
        const auto freshBars = fresh.findChildren<QScrollBar*>();
        for (int i = 0; i < bars.size(); ++i) freshBars[i]->setValue(bars[i]->value());
        QMouseEvent there(QEvent::MouseMove, mouse, mouse, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&fresh, &there);
        EXPECT_EQ(shown, fresh.grab().toImage().convertToFormat(QImage::Format_RGB32)) << "step " << step;
    }
}

}  // namespace
}  // namespace kelu
