// The system's wish that the program end, as a signal on the interface thread.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

namespace kelu {

/// Catches, as long as it lives, SIGTERM, SIGINT and SIGHUP, of which a second one ends the process as if nobody caught
/// it, and the session manager's word, which would else be put to each window. One object at a time.
class Termination : public QObject {
    Q_OBJECT

 public:
    explicit Termination(QObject* parent = nullptr);
    ~Termination() override;

 Q_SIGNALS:
    void Requested();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace kelu
