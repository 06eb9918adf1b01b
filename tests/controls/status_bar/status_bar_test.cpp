// Panels, cut texts and clicks of the status bar.
// SPDX-License-Identifier: MIT
#include "controls/status_bar/status_bar.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>

namespace kelu {
namespace {

class StatusBarTest : public testing::Test {
 protected:
    StatusBarTest() {
        bar.SetPanelWidths({220, 400});
        bar.resize(887, 33);
        bar.show();
        panels = bar.findChildren<QAbstractButton*>();
        QObject::connect(&bar, &StatusBar::PanelClicked, &bar, [this](int number) { clicked.push_back(number); });
    }

    StatusBar bar;
    QList<QAbstractButton*> panels;
    std::vector<int> clicked;
};

TEST_F(StatusBarTest, ATextTooLongStandsWholeInTheTip) {
    const QString ending = QStringLiteral(" - [4000 x 3000 / 24 bits / 17%]");
    bar.SetPanelText(2, QStringLiteral("a.jpg") + ending);
    EXPECT_TRUE(panels[1]->toolTip().isEmpty());
    const QString whole = QString(200, QLatin1Char('m')) + QStringLiteral(".jpg") + ending;
    bar.SetPanelText(2, whole);
    EXPECT_EQ(panels[1]->toolTip(), whole);
    EXPECT_EQ(bar.PanelText(2), whole);
    EXPECT_EQ(panels[1]->accessibleName(), whole);
}

TEST_F(StatusBarTest, TellsWhichPanelWasClicked) {
    bar.SetPanelClickable(1, true);
    QTest::mouseClick(panels[1], Qt::LeftButton);
    QTest::mouseClick(panels[0], Qt::LeftButton);
    QTest::mouseClick(panels[0], Qt::RightButton);
    QTest::keyClick(panels[0], Qt::Key_Return);
    QTest::keyClick(panels[0], Qt::Key_Space);
    EXPECT_EQ(clicked, (std::vector<int>{2, 1, 1, 1}));
    EXPECT_EQ(panels[0]->focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(panels[1]->focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace kelu
