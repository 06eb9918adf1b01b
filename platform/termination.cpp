// SPDX-License-Identifier: MIT
#include "platform/termination.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif

namespace kelu {

#ifdef Q_OS_UNIX
namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

int g_ends[2] = {-1, -1};  // read here, written by the handler, which may do little else

void Handle(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(g_ends[1], &byte, 1);
}

}  // namespace

Termination::Termination(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
    if (::pipe2(g_ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = new QSocketNotifier(g_ends[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        notifier_->setEnabled(false);
        Q_EMIT Requested();
    });
    struct sigaction action {};
    action.sa_handler = &Handle;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    for (const int number : kSignals) ::sigaction(number, &action, nullptr);
}

Termination::~Termination() {
    if (!notifier_) return;
    for (const int number : kSignals) ::signal(number, SIG_DFL);
    delete notifier_;
    for (int& end : g_ends) ::close(std::exchange(end, -1));
}

#else

Termination::Termination(QObject* parent) : QObject(parent) { QCoreApplication::instance()->installEventFilter(this); }
Termination::~Termination() = default;

#endif

bool Termination::eventFilter(QObject*, QEvent* event) {
    // The program's own end is not spontaneous.
    if (event->type() != QEvent::Quit || !event->spontaneous()) return false;
    Q_EMIT Requested();
    return true;
}

}  // namespace kelu
