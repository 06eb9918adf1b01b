// Focus and states of the tool button.
// SPDX-License-Identifier: MIT
#include "controls/tool_button/tool_button.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "controls/theme/theme.h"

namespace kelu {
namespace {

TEST(ToolButton, TabReachesItAClickTakesNoFocus) {
    QWidget window;
    auto* button = new ToolButton(QStringLiteral("open"), &window);
    button->setGeometry(0, 0, 19, 19);
    window.setFocusPolicy(Qt::StrongFocus);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    window.setFocus();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(button->hasFocus());
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus());
}

TEST(ToolButton, EachStateLooksDifferent) {
    theme::Apply(*qApp);
    for (const auto look : {ToolButton::Look::Flat, ToolButton::Look::Raised, ToolButton::Look::Primary}) {
        QWidget window;
        window.resize(100, 40);
        auto* button = new ToolButton(QStringLiteral("apply"), &window);
        button->SetCaption(QStringLiteral("  Apply"));
        button->SetLook(look);
        button->setGeometry(0, 0, 83, 26);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        std::vector<QImage> states;
        const auto keep = [&] { states.push_back(button->grab().toImage()); };
        QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(95, 35));
        button->setAttribute(Qt::WA_UnderMouse, false);
        keep();
        button->setAttribute(Qt::WA_UnderMouse, true);
        keep();
        button->setDown(true);
        keep();
        button->setDown(false);
        button->setAttribute(Qt::WA_UnderMouse, false);
        EXPECT_TRUE(button->hasFocus()) << "the window's activation gave it, without a ring";
        QTest::keyClick(button, Qt::Key_Tab);
        keep();
        QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(95, 35));
        EXPECT_EQ(button->grab().toImage(), states.front()) << "the mouse takes the ring away";
        button->setEnabled(false);
        keep();
        for (std::size_t i = 0; i < states.size(); ++i)
            for (std::size_t j = i + 1; j < states.size(); ++j)
                EXPECT_NE(states[i], states[j]) << "look " << static_cast<int>(look) << ": " << i << " and " << j;
    }
}

}  // namespace
}  // namespace kelu
