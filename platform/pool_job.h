// Work for another thread, and the way back: the one road by which a pool of threads is given something to do.
// SPDX-License-Identifier: MIT
#pragma once

#include <QThreadPool>
#include <functional>

class QObject;

namespace kelu {

/// Does `work`, which must not throw, on a thread of the pool when its turn comes; never if the pool is cleared before.
void StartJob(QThreadPool& pool, std::function<void()> work);

/// The same on the pool of the whole program.
inline void StartJob(std::function<void()> work) { StartJob(*QThreadPool::globalInstance(), std::move(work)); }

/// Waits until the pool has nothing left to do; what its jobs have written is there for this thread then.
void WaitForJobs(QThreadPool& pool);

/// Does `work` on the thread of `receiver` at its next turn of events; never if that is gone by then.
void HandBack(QObject* receiver, std::function<void()> work);

}  // namespace kelu
