// Strokes against a plain definition, undo against whole copies of the picture, and the changes of a whole picture
// against values worked out by hand.
// SPDX-License-Identifier: MIT
#include "canvas/surface.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <random>

#include "pictures/picture.h"
#include "platform/error.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

double DistanceToSegment(double x, double y, const QPoint& a, const QPoint& b) {
    const double length = std::hypot(b.x() - a.x(), b.y() - a.y());
    if (length == 0) return std::hypot(x - a.x(), y - a.y());
    const double along = ((x - a.x()) * (b.x() - a.x()) + (y - a.y()) * (b.y() - a.y())) / length;
    if (along <= 0) return std::hypot(x - a.x(), y - a.y());
    if (along >= length) return std::hypot(x - b.x(), y - b.y());
    return std::abs((x - a.x()) * (b.y() - a.y()) - (y - a.y()) * (b.x() - a.x())) / length;
}

// What a stroke of opaque pictures has to look like: each pixel blended once, by its distance to the whole line.
QImage PlainStroke(const QImage& canvas, const QImage& paint, const QPolygon& points, int size, int strength,
                   int softness) {
    QImage result = canvas.copy();
    for (int y = 0; y < std::min(canvas.height(), paint.height()); ++y) {
        for (int x = 0; x < std::min(canvas.width(), paint.width()); ++x) {
            double distance = 1e9;
            for (int i = 0; i + 1 < points.size(); ++i)
                distance = std::min(distance, DistanceToSegment(x, y, points[i], points[i + 1]));
            const double core = softness ? (size / 2.0 - 0.5) * (100 - softness) / 100 - 0.5 : size / 2.0 - 0.5;
            double covered = std::clamp((size / 2.0 + 0.5 - distance) / (size / 2.0 + 0.5 - core), 0.0, 1.0);
            if (softness) covered = covered * covered * (3 - 2 * covered);
            const double share = covered * strength / 255.0;
            const auto mix = [&](int a, int b) { return qRound(a + (b - a) * share); };
            const QRgb from = canvas.pixel(x, y);
            const QRgb to = paint.pixel(x, y);
            result.setPixel(
                x, y, qRgb(mix(qRed(from), qRed(to)), mix(qGreen(from), qGreen(to)), mix(qBlue(from), qBlue(to))));
        }
    }
    return result;
}

/// How much brighter the green of the second is, levels a pixel.
double Gain(const QImage& first, const QImage& second) {
    double sum = 0;
    for (int y = 0; y < first.height(); ++y)
        for (int x = 0; x < first.width(); ++x) sum += qGreen(second.pixel(x, y)) - qGreen(first.pixel(x, y));
    return sum / (first.width() * first.height());
}

void Draw(Surface& surface, const QPolygon& points, int strength = 255) {
    for (int i = 0; i + 1 < points.size(); ++i)
        surface.DrawBrushLine(points[i].x(), points[i].y(), points[i + 1].x(), points[i + 1].y(), strength);
}

TEST(Stroke, EverywhereIsOneLevelAmongOthers) {
    Surface canvas, pen;
    const QImage before = NoisePicture(300, 220, 1);
    canvas.SetPicture(before);
    pen.SetPicture(NoisePicture(300, 220, 2));
    canvas.SelectBrush(pen.MakeBrush(20));
    canvas.PushUndo();
    Draw(canvas, {QPoint(20, 20), QPoint(100, 100)});
    const QImage stroked = canvas.Picture().copy();
    canvas.PaintAll();
    EXPECT_EQ(canvas.Picture(), pen.Picture());
    EXPECT_GE(canvas.UndoBytes(), 300 * 220 * 4) << "the level counts as little as an empty one";
    canvas.SelectBrush(BrushHandle{before, 30});
    canvas.PushUndo();
    Draw(canvas, {QPoint(50, 50), QPoint(60, 150)});
    const QImage last = canvas.Picture().copy();
    EXPECT_EQ(pen.Picture(), NoisePicture(300, 220, 2)) << "the paint is not painted on";
    for (const QImage& state : {pen.Picture(), stroked, before}) {
        canvas.Undo();
        EXPECT_EQ(canvas.Picture(), state);
    }
    for (int i = 0; i < 3; ++i) canvas.Redo();
    EXPECT_EQ(canvas.Picture(), last);
}

TEST(Stroke, CoversEachPixelOnceByItsDistanceToTheLine) {
    const struct {
        int size, strength;
        QPolygon points;
        QSize paint;
        int softness = 0;
    } cases[] = {
        {1, 255, {QPoint(5, 5), QPoint(5, 5)}, {300, 220}},
        {1, 255, {QPoint(10, 100), QPoint(200, 130)}, {300, 220}},
        {2, 255, {QPoint(64, 64), QPoint(64, 64)}, {300, 220}},
        {7, 255, {QPoint(20, 20), QPoint(90, 30), QPoint(90, 120), QPoint(25, 22)}, {300, 220}},
        {50, 255, {QPoint(150, 100), QPoint(151, 100), QPoint(152, 101), QPoint(154, 103)}, {300, 220}},
        {100, 255, {QPoint(-30, -20), QPoint(330, 240)}, {300, 220}},                 // both ends outside
        {100, 255, {QPoint(290, 0), QPoint(290, 219)}, {200, 150}},                   // paint smaller than the canvas
        {31, 128, {QPoint(60, 150), QPoint(140, 150), QPoint(60, 150)}, {400, 300}},  // half strength, back and forth
        {100, 255, {QPoint(1000, 1000), QPoint(1200, 1000)}, {300, 220}},             // nowhere near
        {1, 255, {QPoint(5, 5), QPoint(9, 5)}, {300, 220}, 50},
        {60, 255, {QPoint(100, 100), QPoint(180, 100), QPoint(100, 101)}, {300, 220}, 40},
        {80, 200, {QPoint(100, 100), QPoint(140, 130)}, {300, 220}, 100},
    };
    const QImage before = NoisePicture(300, 220, 1);
    for (const auto& stroke : cases) {
        SCOPED_TRACE(testing::Message() << "size " << stroke.size << " strength " << stroke.strength);
        Surface canvas, pen;
        canvas.SetPicture(before);
        pen.SetPicture(NoisePicture(stroke.paint.width(), stroke.paint.height(), 2));
        canvas.SelectBrush(pen.MakeBrush(stroke.size));
        canvas.SetBrushSoftness(stroke.softness);
        canvas.PushUndo();
        QRect reported;
        QObject::connect(&canvas, &Surface::PictureChanged, [&](const QRect& rect) { reported |= rect; });
        Draw(canvas, stroke.points, stroke.strength);
        const QImage expected =
            PlainStroke(before, pen.Picture(), stroke.points, stroke.size, stroke.strength, stroke.softness);
        // One step of the coverage and one rounding.
        EXPECT_LE(LargestDifference(canvas.Picture(), expected), 2);
        EXPECT_NEAR(Gain(expected, canvas.Picture()), 0, 0.01) << "a stroke that is cut off darkens";
        for (int y = 0; y < before.height(); ++y)
            for (int x = 0; x < before.width(); ++x)
                ASSERT_TRUE(canvas.Picture().pixel(x, y) == before.pixel(x, y) || reported.contains(x, y));
    }
}

TEST(Stroke, ManyShortSegmentsLeaveWhatOneLongDoes) {
    Surface longStroke, shortStroke, pen;
    pen.SetPicture(NoisePicture(400, 200, 2));
    for (Surface* surface : {&longStroke, &shortStroke}) {
        surface->SetPicture(NoisePicture(400, 200, 1));
        surface->SelectBrush(pen.MakeBrush(41));
        surface->PushUndo();
    }
    longStroke.DrawBrushLine(30, 60, 330, 160, 255);
    for (int i = 0; i < 100; ++i) shortStroke.DrawBrushLine(30 + 3 * i, 60 + i, 33 + 3 * i, 61 + i, 255);
    EXPECT_EQ(LargestDifference(longStroke.Picture(), shortStroke.Picture()), 0);
}

TEST(Stroke, TransparentPaintReplacesOnACanvasWithAlphaAndIsLaidOverAnOpaqueOne) {
    // Before, paint, after in the middle of the stroke; bits of the canvas.
    const struct {
        int bits;
        QRgb before, paint, after;
    } rows[] = {
        {32, qRgba(200, 100, 50, 255), qRgba(0, 0, 0, 0), 0},
        {32, qRgba(9, 9, 9, 9), qRgba(200, 100, 50, 255), qRgba(200, 100, 50, 255)},
        {24, qRgba(200, 100, 50, 255), qRgba(1, 2, 3, 0), qRgba(200, 100, 50, 255)},
        {24, qRgba(200, 100, 50, 255), qRgba(0, 255, 50, 51), qRgba(160, 131, 50, 255)},
        {24, qRgba(200, 100, 50, 255), qRgba(7, 8, 9, 255), qRgba(7, 8, 9, 255)},
    };
    for (const auto& row : rows) {
        Surface canvas, pen;
        pen.CreateBlank(40, 40, 32, QColor::fromRgba(row.paint));
        canvas.CreateBlank(10, 10, 24, Qt::red);
        // The brush stays that of the picture before: what it paints on came later.
        canvas.SelectBrush(pen.MakeBrush(10));
        canvas.CreateBlank(40, 40, row.bits, QColor::fromRgba(row.before));
        canvas.DrawBrushLine(20, 20, 20, 20, 255);
        EXPECT_EQ(canvas.ColorDepth(), row.bits);
        EXPECT_EQ(canvas.Picture().pixel(20, 20), row.after) << std::hex << row.before << " " << row.paint;
        const QRgb edge = canvas.Picture().pixel(20, 25);
        if (row.bits == 24) {
            EXPECT_EQ(qAlpha(edge), 255);
        }
        // At the edge the colour stays and only the opacity falls: black hides in no transparent pixel.
        if (row.after == 0) {
            EXPECT_EQ(edge & 0xffffffu, row.before & 0xffffffu);
            EXPECT_NEAR(qAlpha(edge), 128, 1);
        }
    }
}

TEST(Stroke, LeavesAllOtherOwnersOfThePicturesAlone) {
    const QImage opened = NoisePicture(200, 200, 1);
    Surface canvas, pen, original;
    canvas.SetPicture(opened);
    original.SetPicture(canvas.Picture());
    pen.SetPicture(canvas.Picture());
    // A brush of the very picture that it paints on changes nothing, and costs no copy.
    canvas.SelectBrush(pen.MakeBrush(30));
    canvas.PushUndo();
    canvas.DrawBrushLine(0, 0, 199, 199, 255);
    EXPECT_EQ(canvas.Picture().constBits(), original.Picture().constBits());

    const QImage rendered = NoisePicture(200, 200, 2);
    pen.SetPicture(rendered);
    canvas.SelectBrush(pen.MakeBrush(30));
    pen.CreateBlank(10, 10, 24, Qt::red);  // the brush keeps what it was made of
    canvas.DrawBrushLine(100, 100, 100, 100, 255);
    EXPECT_EQ(canvas.Picture().pixel(100, 100), rendered.pixel(100, 100));
    EXPECT_EQ(original.Picture(), opened);
}

TEST(Undo, FollowsWholeCopiesThroughRandomSequences) {
    std::mt19937 random(5);
    for (int run = 0; run < 20; ++run) {
        SCOPED_TRACE(run);
        Surface canvas, pen;
        canvas.SetPicture(NoisePicture(230, 170, 1));
        std::vector<QImage> undo, redo;
        const auto point = [&] { return QPoint(int(random() % 260) - 10, int(random() % 200) - 10); };
        for (int step = 0; step < 60; ++step) {
            switch (random() % 6) {
                case 0:
                    pen.SetPicture(NoisePicture(230, 170, static_cast<unsigned>(random())));
                    canvas.SelectBrush(pen.MakeBrush(1 + int(random() % 60)));
                    break;
                case 1:
                case 2: {
                    undo.push_back(canvas.Picture().copy());
                    redo.clear();
                    canvas.PushUndo();
                    const int segments = int(random() % 4);  // a press without a stroke is a level too
                    for (int i = 0; i < segments; ++i) Draw(canvas, {point(), point()});
                    break;
                }
                case 3:
                case 4:
                    if (undo.empty()) {
                        EXPECT_THROW(canvas.Undo(), Error);
                    } else {
                        redo.push_back(canvas.Picture().copy());
                        canvas.Undo();
                        ASSERT_EQ(canvas.Picture(), undo.back());
                        undo.pop_back();
                    }
                    break;
                default:
                    if (redo.empty()) {
                        EXPECT_THROW(canvas.Redo(), Error);
                    } else {
                        undo.push_back(canvas.Picture().copy());
                        canvas.Redo();
                        ASSERT_EQ(canvas.Picture(), redo.back());
                        redo.pop_back();
                    }
            }
            ASSERT_EQ(canvas.CanUndo(), !undo.empty());
            ASSERT_EQ(canvas.CanRedo(), !redo.empty());
        }
    }
}

TEST(Undo, AStrokeThatGoesOnAfterAnUndoCanBeUndoneToo) {
    Surface canvas, pen;
    const QImage opened = NoisePicture(100, 100, 1);
    canvas.SetPicture(opened);
    pen.SetPicture(NoisePicture(100, 100, 2));
    canvas.SelectBrush(pen.MakeBrush(20));
    canvas.PushUndo();
    canvas.DrawBrushLine(10, 10, 50, 50, 255);
    canvas.Undo();
    canvas.DrawBrushLine(50, 50, 90, 90, 255);  // the button is still held
    EXPECT_FALSE(canvas.CanRedo());
    canvas.Undo();
    EXPECT_EQ(canvas.Picture(), opened);
}

TEST(Undo, TakesMemoryForThePaintedAreaAndDropsTheOldestLevels) {
    constexpr int kTileBytes = 64 * 64 * 4;
    Surface canvas, pen;
    canvas.CreateBlank(2000, 1500, 24, Qt::gray);
    pen.CreateBlank(2000, 1500, 24, Qt::blue);
    canvas.SelectBrush(pen.MakeBrush(60));
    canvas.PushUndo();
    EXPECT_LT(canvas.UndoBytes(), 1000);
    canvas.DrawBrushLine(320, 320, 320, 320, 255);  // inside the four tiles that meet here
    EXPECT_LT(canvas.UndoBytes(), 4 * kTileBytes + 1000);
    // A long slanted stroke saves the tiles along it, not those of its bounding box (700).
    canvas.PushUndo();
    canvas.DrawBrushLine(100, 100, 1900, 1400, 255);
    EXPECT_LT(canvas.UndoBytes(), 120 * kTileBytes);

    canvas.SetPicture(canvas.Picture());
    EXPECT_FALSE(canvas.CanUndo());
    EXPECT_EQ(canvas.UndoBytes(), 0);
    canvas.SelectBrush(pen.MakeBrush(20));
    canvas.SetUndoBudget(10 * kTileBytes);
    for (int i = 0; i < 25; ++i) {
        canvas.PushUndo();
        canvas.DrawBrushLine(32 + 64 * i, 32, 32 + 64 * i, 32, 255);  // one tile each
        EXPECT_LE(canvas.UndoBytes(), 10 * kTileBytes);
    }
    int levels = 0;
    for (; canvas.CanUndo(); ++levels) canvas.Undo();
    EXPECT_EQ(levels, 9);
    EXPECT_EQ(canvas.Picture().pixel(32 + 64 * 15, 32), QColor(Qt::blue).rgb());  // fell off, so it stays
    EXPECT_EQ(canvas.Picture().pixel(32 + 64 * 16, 32), QColor(Qt::gray).rgb());
    for (; levels > 0; --levels) canvas.Redo();
    EXPECT_EQ(canvas.Picture().pixel(32 + 64 * 24, 32), QColor(Qt::blue).rgb());

    // A stroke larger than the budget can be taken back whole all the same.
    canvas.CreateBlank(2000, 1500, 24, Qt::gray);
    const QImage before = canvas.Picture().copy();
    canvas.PushUndo();
    canvas.DrawBrushLine(100, 100, 1900, 1400, 255);
    canvas.Undo();
    EXPECT_EQ(canvas.Picture(), before);
}

TEST(Undo, ANewPaintInTheMiddleOfAStrokeCoversWhatTheOldOneDid) {
    Surface canvas, pen;
    canvas.CreateBlank(300, 200, 24, Qt::gray);
    const QImage before = canvas.Picture().copy();
    canvas.PushUndo();
    for (const QColor& color : {QColor(Qt::blue), QColor(Qt::green)}) {
        pen.CreateBlank(300, 200, 24, color);
        canvas.SelectBrush(pen.MakeBrush(40));
        canvas.DrawBrushLine(50, 50, 250, 150, 255);
        EXPECT_EQ(canvas.Picture().pixel(150, 100), color.rgb());
    }
    for (int i = 0; i < 300 * 200; ++i) {
        const QRgb pixel = canvas.Picture().pixel(i % 300, i / 300);
        ASSERT_LT(qBlue(pixel) - qGreen(pixel), 100) << "an edge keeps the old paint at " << i % 300 << "," << i / 300;
    }
    while (canvas.CanUndo()) canvas.Undo();
    EXPECT_EQ(canvas.Picture(), before);
}

TEST(Surface, KeepsProportionsAndRoundsWhenOneSideIsLeftOut) {
    const struct {
        QSize before;
        int width, height;
        QSize after;
    } cases[] = {
        {{3000, 2000}, 800, 0, {800, 533}}, {{1000, 2000}, 600, 0, {600, 1200}}, {{100, 50}, 0, 20, {40, 20}},
        {{5000, 2}, 10, 0, {10, 1}},        {{10, 10}, 25, 5, {25, 5}},          {{3200, 2002}, 800, 0, {800, 500}},
        {{3200, 2006}, 800, 0, {800, 502}},  // halves go to the even side
    };
    for (const auto& resize : cases) {
        Surface surface;
        surface.CreateBlank(resize.before.width(), resize.before.height(), 24, QColor(10, 20, 30));
        surface.PushUndo();
        surface.ResizeImage(resize.width, resize.height);
        EXPECT_EQ(surface.Picture().size(), resize.after);
        EXPECT_EQ(surface.Picture().pixel(0, 0), qRgb(10, 20, 30));
        EXPECT_FALSE(surface.CanUndo());
    }
    Surface surface;
    surface.CreateBlank(4, 4, 24, Qt::red);
    for (const QSize& bad : {QSize(0, 0), QSize(-5, 0), QSize(4, -1)}) {
        EXPECT_EQ(ErrorOf([&] { surface.ResizeImage(bad.width(), bad.height()); }).Number(), kInvalidProperty);
    }
}

TEST(Picture, ShrinksByTheAverageOfTheCoveredArea) {
    const auto grey = [](std::initializer_list<int> row) {
        QImage image(int(row.size()), 1, QImage::Format_RGB32);
        int x = 0;
        for (const int value : row) image.setPixel(x++, 0, qRgb(value, 255 - value, value));
        return image;
    };
    const auto red = [](const QImage& image, int x) { return qRed(image.pixel(x, 0)); };
    const QImage half = ScalePicture(grey({10, 30, 100, 250}), QSize(2, 1));
    EXPECT_EQ(red(half, 0), 20);
    EXPECT_EQ(red(half, 1), 175);
    // Three to two: two thirds of one and a third of the middle one.
    const QImage uneven = ScalePicture(grey({0, 90, 240}), QSize(2, 1));
    EXPECT_EQ(red(uneven, 0), 30);
    EXPECT_EQ(red(uneven, 1), 190);
    QImage clear(2, 1, QImage::Format_ARGB32);
    clear.setPixel(0, 0, qRgba(255, 0, 0, 255));
    clear.setPixel(1, 0, qRgba(0, 255, 0, 0));  // its green must not show
    EXPECT_EQ(ScalePicture(clear, QSize(1, 1)).pixel(0, 0), qRgba(255, 0, 0, 128));
    // Sums of more rows than 16 bits hold, at their largest.
    QImage white(3, 2000, QImage::Format_RGB32);
    white.fill(Qt::white);
    EXPECT_EQ(ScalePicture(white, QSize(1, 2)).pixel(0, 1), qRgb(255, 255, 255));
}

TEST(Picture, TurnsByTheOrientationTag) {
    // 1 2 3
    // 4 5 6
    QImage image(3, 2, QImage::Format_RGB32);
    for (int i = 0; i < 6; ++i) image.setPixel(i % 3, i / 3, qRgb(i + 1, 0, 0));
    image.setDotsPerMeterX(1000);
    image.setDotsPerMeterY(2000);
    const char* const expected[] = {"",         "123/456",  "321/654",  "654/321", "456/123",
                                    "14/25/36", "41/52/63", "63/52/41", "36/25/14"};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QImage turned = Orient(image, orientation);
        QString text;
        for (int y = 0; y < turned.height(); ++y) {
            if (y > 0) text += '/';
            for (int x = 0; x < turned.width(); ++x) text += QString::number(qRed(turned.pixel(x, y)));
        }
        EXPECT_EQ(text.toStdString(), expected[orientation]) << orientation;
        EXPECT_EQ(turned.dotsPerMeterX(), orientation < 5 ? 1000 : 2000);
    }
    Surface surface;
    surface.SetPicture(image);
    surface.RotateRight();
    EXPECT_EQ(qRed(surface.Picture().pixel(0, 0)), 4);
    surface.RotateLeft();
    EXPECT_EQ(surface.Picture(), image);
}

TEST(Surface, DrawsABitmapWithOpacityAndUndoesIt) {
    Surface surface;
    surface.CreateBlank(100, 80, 24, Qt::white);
    EXPECT_EQ(surface.ColorDepth(), 24);
    surface.PushUndo();
    QImage black(50, 50, QImage::Format_RGB32);
    black.fill(Qt::black);
    QSignalSpy changed(&surface, &Surface::PictureChanged);
    surface.DrawBitmap(black, 80, 60, 128);  // reaches over the edge
    EXPECT_EQ(changed.value(0).value(0).toRect(), QRect(80, 60, 20, 20));
    EXPECT_NEAR(qRed(surface.Picture().pixel(90, 70)), 127, 1);
    EXPECT_EQ(surface.Picture().pixel(79, 70), qRgb(255, 255, 255));
    surface.Undo();
    EXPECT_EQ(surface.Picture().pixel(90, 70), qRgb(255, 255, 255));
    surface.CreateBlank(4, 4, 32, QColor(1, 2, 3, 4));
    EXPECT_EQ(surface.ColorDepth(), 32);
    EXPECT_EQ(surface.Picture().pixel(3, 3), qRgba(1, 2, 3, 4));
    EXPECT_THROW(surface.CreateBlank((1 << 14) + 1, 1 << 14, 24, Qt::white), Error) << "a row more than the most";
    EXPECT_EQ(surface.ImageWidth(), 4);
}

TEST(Surface, NeonReportsBelow99AndThenExactly99) {
    Surface surface;
    QSignalSpy progress(&surface, &Surface::Progress);
    // So large that it takes long enough to report anywhere.
    const QImage large = NoisePicture(600, 500, 3).scaled(6000, 5000);
    surface.SetPicture(large);
    surface.NeonFilter();
    ASSERT_GE(progress.size(), 2);
    EXPECT_EQ(progress.last().first().toInt(), 99);
    for (int i = 0; i + 1 < progress.size(); ++i) EXPECT_LT(progress[i].first().toInt(), 99);
    EXPECT_NE(surface.Picture(), large);
}

}  // namespace
}  // namespace kelu
