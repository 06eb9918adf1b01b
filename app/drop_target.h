// Takes what is dropped anywhere on the window. As long as something that it would take is dragged over, a frame says
// so.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

#include "document/offered_picture.h"

class QWidget;

namespace kelu {

class DropTarget : public QObject {
    Q_OBJECT

 public:
    /// `mayTake` answers whether a picture can come in now.
    DropTarget(QWidget& window, std::function<bool()> mayTake);

 Q_SIGNALS:
    /// Raised while the other program waits for the end of its drag.
    void Dropped(const OfferedPicture& offered);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    std::function<bool()> mayTake_;
    QWidget* frame_;
};

}  // namespace kelu
