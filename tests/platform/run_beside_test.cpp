// Work beside the interface thread: what it throws, what Escape does to it, and what it must not hold up.
// SPDX-License-Identifier: MIT
#include "platform/run_beside.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>
#include <QThread>
#include <QTimer>

namespace kelu {
namespace {

TEST(RunBeside, EscapeAndNothingElseReachesTheWork) {
    QWidget window;
    window.show();
    Work work;
    work.cancels = [](const QEvent& event) {
        return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
    };
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        ++ticks;
        QTest::keyClick(&window, ticks < 10 ? Qt::Key_A : Qt::Key_Escape);
    });
    timer.start(1);
    const auto endless = [] {
        for (const WorkReport report;; QThread::msleep(1)) report(1, 4);
    };
    EXPECT_THROW(RunBeside(endless, UserInput::Swallowed, &work), WorkCancelled);
    EXPECT_GE(ticks, 10);
    EXPECT_EQ(work.percent, 25);
    // Whatever a reader makes of being cut off is no failure; without a cancel it is.
    const auto fails = [] { throw std::runtime_error("cut short"); };
    EXPECT_THROW(RunBeside(fails, UserInput::Swallowed, &work), WorkCancelled);
    EXPECT_THROW(RunBeside(fails), std::runtime_error);
    // The end of the application waits for no work.
    work.cancelled = false;
    QTimer::singleShot(0, [&] { EXPECT_THROW(RunBeside(endless, UserInput::Let, &work), WorkCancelled); });
    QTimer::singleShot(20, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}

TEST(RunBeside, AMessageThatComesUpMeanwhileCanBeAnsweredOnceTheWorkIsDone) {
    QDialog message;
    QTimer::singleShot(0, &message, [&] { message.exec(); });
    QTimer escape;
    QObject::connect(&escape, &QTimer::timeout, [&] { QTest::keyClick(&message, Qt::Key_Escape); });
    escape.start(5);
    RunBeside([] { QThread::msleep(30); });
    EXPECT_FALSE(message.isVisible());
}

}  // namespace
}  // namespace kelu
