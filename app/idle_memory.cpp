// SPDX-License-Identifier: MIT
#include "app/idle_memory.h"

#include <QCoreApplication>
#include <QEvent>

#include "app/spare_memory.h"
#include "engine/pixel_memory.h"
#include "platform/pool_job.h"

namespace kelu {

IdleMemory::IdleMemory() {
    KeepSpareMemory();
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
        KeepSpareMemory();
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
