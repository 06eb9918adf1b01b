// Answers the real dialogs that a test meets on its way: each step is done to the modal window that is up by then.
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

namespace kelu {

/// Steps run in order, one at a time, each as soon as a modal window is up. A window without a step left, or of another
/// kind than its step expects, is closed and fails the test; so does a step that is left over at the end.
class DialogScript : public QObject {
 public:
    DialogScript() { Wait(); }
    ~DialogScript() override { EXPECT_TRUE(steps_.empty()) << steps_.size() << " dialogs did not come"; }

    /// Titles and kinds of the windows met, in order; a window met by two steps stands here twice.
    QStringList met;

    DialogScript& Then(std::function<void(QWidget&)> step) {
        steps_.push_back(std::move(step));
        return *this;
    }
    /// A step for one kind of dialog.
    template <typename Dialog>
    DialogScript& Then(std::function<void(Dialog&)> step) {
        return Then([step = std::move(step)](QWidget& window) {
            if (auto* dialog = qobject_cast<Dialog*>(&window)) return step(*dialog);
            ADD_FAILURE() << window.metaObject()->className() << " is up instead of "
                          << Dialog::staticMetaObject.className();
            window.close();
        });
    }
    /// Clicks the button of this caption, mnemonics aside.
    DialogScript& Press(const QString& caption) {
        return Then([caption](QWidget& window) {
            for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
                if (QString(button->text()).remove(u'&') == caption && button->isVisible())
                    return QTest::mouseClick(button, Qt::LeftButton);
            ADD_FAILURE() << "no button " << caption.toStdString() << " in " << window.windowTitle().toStdString();
            window.close();
        });
    }

 private:
    void Wait() { QTimer::singleShot(1, this, &DialogScript::Look); }
    void Look() {
        Wait();  // first: a step may bring up the next window and stay here meanwhile
        QWidget* window = QApplication::activeModalWidget();
        if (!window || !window->isVisible() || QGuiApplication::overrideCursor()) return;  // busy: takes no input
        met << QStringLiteral("%1 %2").arg(QLatin1String(window->metaObject()->className()), window->windowTitle());
        if (steps_.empty()) {
            ADD_FAILURE() << "unexpected: " << met.last().toStdString();
            window->close();
            return;
        }
        const auto step = std::move(steps_.front());
        steps_.pop_front();
        step(*window);
    }

    std::deque<std::function<void(QWidget&)>> steps_;
};

}  // namespace kelu
