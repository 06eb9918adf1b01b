// SPDX-License-Identifier: MIT
#include "platform/run_beside.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <exception>
#include <memory>
#include <new>

#include "engine/hand_over_notes.h"
#include "platform/user_input.h"

namespace kelu {

namespace {

/// Takes what the user does away from every window as long as it lives.
class InputSwallower : public QObject {
 public:
    explicit InputSwallower(Work* work) : work_(work) { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (work_ && work_->cancels && work_->cancels(*event)) work_->cancelled = true;
        // A window may well be closed by the program meanwhile.
        const bool closes = event->type() == QEvent::Close && event->spontaneous();
        if (!closes && !IsUserInput(event->type())) return false;
        event->ignore();
        return true;
    }

 private:
    Work* work_;
};

thread_local Work* workOfThread = nullptr;

}  // namespace

WorkReport::WorkReport() : work_(workOfThread) {}

void WorkReport::Tell(qint64 done, qint64 whole) const noexcept {
    if (work_) work_->percent = static_cast<int>(100 * done / std::max<qint64>(1, whole));
}

void RunBeside(const std::function<void()>& run, UserInput input, Work* work) {
    if (QThread::currentThread() != QCoreApplication::instance()->thread()) return run();
    auto swallower = input == UserInput::Swallowed ? std::make_unique<InputSwallower>(work) : nullptr;
    std::exception_ptr failure;
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        engine::TakenOver(&loop);
        workOfThread = work;
        try {
            run();
        } catch (...) {
            failure = std::current_exception();
        }
        engine::HandingOver(&loop);
    }));
    // At once, also when a message that came up meanwhile keeps this loop from returning: it must be answered.
    QObject::connect(thread.get(), &QThread::finished, &loop, [&] {
        swallower.reset();
        loop.quit();
    });
    engine::HandingOver(&loop);
    thread->start();
    // No room for another thread: nothing would end the loop.
    if (!thread->isRunning() && !thread->isFinished()) throw std::bad_alloc();
    loop.exec();
    // The loop ends early only with the application, which nobody is to wait for.
    if (work && !thread->isFinished()) work->cancelled = true;
    thread->wait();
    engine::TakenOver(&loop);
    if (failure && work && work->cancelled) throw WorkCancelled();
    if (failure) std::rethrow_exception(failure);
}

}  // namespace kelu
