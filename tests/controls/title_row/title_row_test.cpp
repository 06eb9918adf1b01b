// The title row's title, close button and dragging.
// SPDX-License-Identifier: MIT
#include "controls/title_row/title_row.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

#include "controls/tool_button/tool_button.h"

namespace kelu {
namespace {

class TitleRowTest : public testing::Test {
 protected:
    TitleRowTest() {
        TitleRow::MakeFrameless(dialog);
        auto* column = new QVBoxLayout(&dialog);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(row = new TitleRow);
        column->addStretch();
        dialog.setWindowTitle(QStringLiteral("Options"));
        dialog.resize(300, 200);
        dialog.show();
    }

    QDialog dialog;
    TitleRow* row;
};

TEST_F(TitleRowTest, FollowsTheTitleAndCloses) {
    auto* title = row->findChild<QLabel*>();
    EXPECT_EQ(title->text(), QStringLiteral("Options"));
    dialog.setWindowTitle(QStringLiteral("Print"));
    EXPECT_EQ(title->text(), QStringLiteral("Print"));
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
    int rejected = 0;
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [&] { ++rejected; });
    QTest::mouseClick(row->findChild<ToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(rejected, 1);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(TitleRowTest, DragsTheWindowItselfWhereNoWindowManagerDoes) {
    const QPoint before = dialog.pos();
    const QPoint press = row->mapToGlobal(QPoint(40, 10));
    QTest::mousePress(row, Qt::LeftButton, {}, QPoint(40, 10));
    const QPoint away(35, 20);
    QMouseEvent move(QEvent::MouseMove, row->mapFromGlobal(press + away), press + away, Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(row, &move);
    EXPECT_EQ(dialog.pos(), before + away);
    QTest::mouseRelease(row, Qt::LeftButton, {}, QPoint(40, 10));
    QMouseEvent later(QEvent::MouseMove, QPoint(0, 0), press, Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(row, &later);
    EXPECT_EQ(dialog.pos(), before + away);
}

}  // namespace
}  // namespace kelu
