// SPDX-License-Identifier: MIT
#include "platform/run_beside.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QThread>
#include <exception>
#include <memory>

namespace kelu {

namespace {

/// Takes what the user does away from every window as long as it lives.
class InputSwallower : public QObject {
 public:
    InputSwallower() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Close:
                // A window may well be closed by the program meanwhile.
                if (!event->spontaneous()) return false;
                event->ignore();
                return true;
            case QEvent::DragEnter:
            case QEvent::DragMove:
            case QEvent::Drop:
                event->ignore();
                return true;
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseMove:
            case QEvent::Wheel:
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::ShortcutOverride:
            case QEvent::Shortcut:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
            case QEvent::TabletPress:
            case QEvent::TabletMove:
            case QEvent::TabletRelease:
                return true;
            default:
                return false;
        }
    }
};

}  // namespace

void RunBeside(const std::function<void()>& work, UserInput input) {
    const auto swallower = input == UserInput::Swallowed ? std::make_unique<InputSwallower>() : nullptr;
    std::exception_ptr failure;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();  // the loop ends early only with the application
    if (failure) std::rethrow_exception(failure);
}

}  // namespace kelu
