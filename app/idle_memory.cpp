// SPDX-License-Identifier: MIT
#include "app/idle_memory.h"

#include <malloc.h>

#include <QCoreApplication>
#include <QEvent>

#include "engine/pixel_memory.h"
#include "platform/pool_job.h"

namespace kelu {

#ifdef __GLIBC__
// Before main, and so before any thread: one heap for all of them. Of several, one for each thread that once decoded a
// picture, malloc_trim gives back little; they came to hundreds of megabytes that nobody used.
[[maybe_unused]] const int oneHeap = mallopt(M_ARENA_MAX, 1);
#endif

constexpr std::size_t kRoom = 128u << 20;  // bytes: some threads' stacks, a dialog, a library's own buffers

IdleMemory::IdleMemory() {
    engine::LeaveRoom(kRoom);
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, &IdleMemory::Release);
    QCoreApplication::instance()->installEventFilter(this);
    pause_.start();
}

// On a worker: to unmap a large picture takes milliseconds.
void IdleMemory::Release() {
    StartJob([] {
        engine::ReleaseIdlePixelMemory();
#ifdef __GLIBC__
        malloc_trim(0);  // what was freed between smaller things stays with the program otherwise
#endif
    });
}

bool IdleMemory::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::KeyPress:
        case QEvent::Wheel:
            pause_.start();
            break;
        default:
            break;
    }
    return false;
}

}  // namespace kelu
