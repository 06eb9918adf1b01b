// The theme's promises: contrast of every pair that meets on the screen, drawings at every ratio.
// SPDX-License-Identifier: MIT
#include "controls/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QTest>
#include <cmath>

#include "controls/theme/icons.h"

namespace kelu::theme {
namespace {

/// Relative luminance and contrast ratio after WCAG 2.1.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// The pairs that meet on the screen.
void ExpectPairs(double textLeast, double markLeast, double quietLeast) {
    struct Pair {
        const char* name;
        QColor ink, ground;
        double least;
    };
    const Pair pairs[] = {
        {"text on ground", kText, kGround, textLeast},
        {"text in a field", kText, kSunken, textLeast},
        {"text on a button", kText, kRaised, textLeast},
        {"bright text on a button under the pointer", kBrightText, kRaisedHover, textLeast},
        {"text on a pressed button", kText, kPressed, textLeast},
        {"text in a menu", kText, kPopup, textLeast},
        {"muted text on ground", kMutedText, kGround, textLeast},
        {"muted text in a menu", kMutedText, kPopup, textLeast},
        {"placeholder in a field", kMutedText, kSunken, textLeast},
        {"text in a title row", kText, kTitleGround, textLeast},
        {"chosen row", kBrightText, kSelection, textLeast},
        {"row under the pointer", kText, kRowHover, textLeast},
        {"main button", kOnAccent, kAccent, textLeast},
        {"main button under the pointer", kOnAccent, kAccentHover, textLeast},
        {"main button pressed", kOnAccent, kAccentPressed, textLeast},
        {"link", kAccent, kGround, textLeast},
        {"caption of a chosen tool", kAccent, kHover, textLeast},
        {"focus ring on ground", kFocus, kGround, markLeast},
        {"focus ring on a button", kFocus, kRaised, markLeast},
        {"outline of an input", kOutline, kGround, markLeast},
        {"scroll bar on ground", kScrollHandle, kGround, markLeast},
        {"scroll bar in a list", kScrollHandle, kSunken, markLeast},
        {"information", kInformation, kGround, markLeast},
        {"warning", kWarning, kGround, markLeast},
        {"error", kError, kGround, markLeast},
        {"quiet text", kQuietText, kGround, quietLeast},
    };
    for (const Pair& pair : pairs) EXPECT_GE(Contrast(pair.ink, pair.ground), pair.least) << pair.name;
}

TEST(ThemeContrast, TextsAndMarksStandOutFromTheirGrounds) {
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21.0, 1e-9);
    // The two colours of the status bar and the panel are given; they still reach what marks need.
    ExpectPairs(4.5, 3, 3);
    UseHighContrast();
    ExpectPairs(7, 7, 7);
    EXPECT_GE(Contrast(kDisabledText, kGround), 7);
}

/// Opaque pixels of a picture: count and bounds.
struct Ink {
    int count = 0;
    QRect box;
};

Ink InkOf(const QPixmap& pixmap) {
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    Ink ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 40) ++ink.count, ink.box |= QRect(x, y, 1, 1);
    return ink;
}

TEST(ThemeIcons, EveryDrawingFillsItsGridAtEveryRatio) {
    const QStringList names = IconNames();
    for (const QString& name : names) {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QPixmap pixmap = IconPixmap(name, 18, ratio, kText);
            const int pixels = qRound(18 * ratio);
            ASSERT_EQ(pixmap.size(), QSize(pixels, pixels)) << name.toStdString();
            EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
            const Ink ink = InkOf(pixmap);
            EXPECT_GE(qMax(ink.box.width(), ink.box.height()), pixels / 2) << name.toStdString() << " at " << ratio;
        }
    }
    EXPECT_TRUE(Icon(QStringLiteral("no such drawing")).isNull());
    EXPECT_EQ(InkOf(IconPixmap(QStringLiteral("no such drawing"), 18, 1, kText)).count, 0);
}

TEST(ThemeFocus, TheRingOfATreesRowLeavesNothingBehind) {
    Apply(*qApp);
    QWidget window;
    QTest::keyClick(&window, Qt::Key_Down);
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QImage before = image;
    QStyleOptionFocusRect row;
    row.rect = {5, 5, 10, 10};
    QPainter painter(&image);
    qApp->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &row, &painter);  // a tree names no widget
    EXPECT_NE(image, before);
    painter.fillRect(row.rect, Qt::white);
    EXPECT_EQ(image, before);
}

TEST(ThemeCursors, TheHotSpotLiesAtTheTouchingEndOfThePicture) {
    for (const qreal ratio : {1.0, 2.0}) {
        for (const CursorPicture& cursor : {BrushCursor(ratio), SmudgeCursor(ratio)}) {
            EXPECT_EQ(cursor.pixmap.size(), QSize(32, 32) * ratio);
            const QPoint spot = cursor.hotSpot * ratio;
            EXPECT_GT(qAlpha(cursor.pixmap.toImage().pixel(spot)), 0) << "nothing drawn at the hot spot";
            const QRect ink = InkOf(cursor.pixmap).box;
            EXPECT_LT(spot.x(), ink.center().x());
            EXPECT_GT(spot.y(), ink.center().y());
        }
        const CursorPicture cross = CrossCursor(ratio);
        const QRect ink = InkOf(cross.pixmap).box;
        const QPointF middle = QRectF(ink).center() / ratio;
        EXPECT_NEAR(middle.x(), cross.hotSpot.x() + 0.5, 0.51);
        EXPECT_NEAR(middle.y(), cross.hotSpot.y() + 0.5, 0.51);
    }
}

}  // namespace
}  // namespace kelu::theme
