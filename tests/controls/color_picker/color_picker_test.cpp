// Value, popup and signals of the colour picker.
// SPDX-License-Identifier: MIT
#include "controls/color_picker/color_picker.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
#include <QTest>

#include "controls/color_picker/color_popup.h"
#include "controls/toolbox/toolbox.h"

namespace kelu {
namespace {

constexpr std::int32_t kRed = 0x0000ff, kGreen = 0x00ff00, kBlue = 0xff0000;

class ColorPickerTest : public testing::Test {
 protected:
    ColorPickerTest() {
        picker.resize(49, 33);
        picker.show();
        picker.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&picker));
        QObject::connect(&picker, &ColorPicker::ColorChanged, &picker, [this](std::int32_t color) {
            EXPECT_EQ(color, picker.Color());
            colors.push_back(color);
        });
    }
    ColorPopup* Open() {
        QTest::mouseClick(&picker, Qt::LeftButton);
        return qobject_cast<ColorPopup*>(QApplication::activePopupWidget());
    }

    ColorPicker picker;
    std::vector<std::int32_t> colors;
};

TEST_F(ColorPickerTest, ASwatchAndTheEntriesGiveTheirColour) {
    picker.SetColor(kBlue);
    ColorPopup* popup = Open();
    ASSERT_NE(popup, nullptr);
    auto* swatches = popup->findChild<Toolbox*>();
    auto* hex = popup->findChild<QLineEdit*>();
    const auto channels = popup->findChildren<QSpinBox*>();
    ASSERT_EQ(channels.size(), 3);
    EXPECT_EQ(hex->text(), QStringLiteral("#0000ff"));
    int red = 0;
    for (int i = 1; i <= swatches->Count(); ++i)
        if (swatches->Key(i) == QLatin1String("#ff0000")) red = i;
    QTest::mouseClick(swatches->Button(red), Qt::LeftButton);
    EXPECT_EQ(hex->text(), QStringLiteral("#ff0000"));
    EXPECT_EQ(swatches->Current(), red);
    channels[1]->setValue(255);
    channels[0]->setValue(0);
    EXPECT_EQ(picker.Color(), kGreen);
    hex->selectAll();
    QTest::keyClicks(hex, QStringLiteral("#1e140a"));
    EXPECT_EQ(channels[0]->value(), 0x1e);
    EXPECT_EQ(colors, (std::vector<std::int32_t>{kRed, 0x00ffff, kGreen, 0x0a141e}));
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(picker.Color(), 0x0a141e);
}

TEST_F(ColorPickerTest, EscapeGivesTheFormerColourBack) {
    picker.SetColor(kBlue);
    ColorPopup* popup = Open();
    ASSERT_NE(popup, nullptr);
    popup->findChildren<QSpinBox*>()[1]->setValue(200);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_EQ(colors, (std::vector<std::int32_t>{0xffc800, kBlue}));
    EXPECT_EQ(picker.Color(), kBlue);
    popup = Open();
    ASSERT_NE(popup, nullptr);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_EQ(colors.size(), 2u) << "nothing was changed, nothing is told";
}

TEST_F(ColorPickerTest, EveryColourComesOutAsItWentIn) {
    // The popup works in hue, saturation and value; opening it or typing a colour must not shift one by rounding.
    for (int i = 0; i < 4096; i += 7) {
        const QColor color((i & 15) * 17, (i >> 4 & 15) * 17, (i >> 8 & 15) * 17);
        ColorPopup popup(color);
        EXPECT_EQ(popup.Color().rgb(), color.rgb()) << color.name().toStdString();
    }
}

TEST_F(ColorPickerTest, ThePopupStaysOnTheScreenAndOpensByKey) {
    const QRect room = picker.screen()->availableGeometry();
    for (const QPoint& corner : {room.topLeft(), room.bottomRight() - QPoint(40, 30)}) {
        picker.move(corner);
        QTest::keyClick(&picker, Qt::Key_Down);
        auto* popup = qobject_cast<ColorPopup*>(QApplication::activePopupWidget());
        ASSERT_NE(popup, nullptr);
        // The offscreen platform moves even popups by a frame of two pixels.
        EXPECT_TRUE(room.adjusted(-2, -2, 2, 2).contains(popup->geometry()));
        EXPECT_FALSE(popup->geometry().intersects(picker.geometry()));
        popup->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace
}  // namespace kelu
