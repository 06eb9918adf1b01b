// The system's wish that the program end, as a signal on the interface thread.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

namespace kelu {

/// Catches SIGTERM, SIGINT and SIGHUP as long as it lives; a second one ends the process as if nobody caught it. One
/// object at a time. Where there are no such signals it does nothing.
class Termination : public QObject {
    Q_OBJECT

 public:
    explicit Termination(QObject* parent = nullptr);
    ~Termination() override;

 Q_SIGNALS:
    void Requested();

 private:
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace kelu
