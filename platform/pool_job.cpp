// Work for another thread, and the way back.
// SPDX-License-Identifier: MIT
#include "platform/pool_job.h"

#include <QMetaObject>
#include <QObject>
#include <QRunnable>
#include <utility>

#include "engine/hand_over_notes.h"

namespace kelu {
namespace {

// All that is handed back, since what is captured may be read only after it has been taken over.
char back;

class Job : public QRunnable {
 public:
    explicit Job(std::function<void()> work) : work_(std::move(work)) { engine::HandingOver(this); }

    void run() override {
        engine::TakenOver(this);
        work_();
        engine::HandingOver(&back);
    }

 private:
    const std::function<void()> work_;
};

}  // namespace

void StartJob(QThreadPool& pool, std::function<void()> work) { pool.start(new Job(std::move(work))); }

void WaitForJobs(QThreadPool& pool) {
    pool.waitForDone();
    engine::TakenOver(&back);
}

void HandBack(QObject* receiver, std::function<void()> work) {
    const auto taken = [work = std::move(work)] {
        engine::TakenOver(&back);
        work();
    };
    engine::HandingOver(&back);
    QMetaObject::invokeMethod(receiver, taken, Qt::QueuedConnection);
}

}  // namespace kelu
