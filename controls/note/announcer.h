// Tells assistive technology what happened where nothing is shown for it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>

namespace kelu {

/// A notification without a face, one pixel in a corner of its parent: its coming is what a screen reader speaks.
class Announcer : public QWidget {
    Q_OBJECT

 public:
    explicit Announcer(QWidget* parent);

    void Tell(const QString& text);

 private:
    QTimer goes_;
};

}  // namespace kelu
