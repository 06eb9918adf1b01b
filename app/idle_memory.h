// Gives picture-sized memory that nobody uses back to the system once the user pauses.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

namespace kelu {

/// Buffers are kept while the user works, since fresh ones cost more than the work; after a few seconds without mouse
/// and keys the next one may cost that.
class IdleMemory : public QObject {
    Q_OBJECT

 public:
    static constexpr int kPause = 4000;  ///< ms

    IdleMemory();

    /// At once: another picture has come, and the buffers of the last one fit it only by chance.
    static void Release();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QTimer pause_;
};

}  // namespace kelu
