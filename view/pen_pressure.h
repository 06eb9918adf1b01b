// The pressure of a pen over a view.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace kelu {

class PenPressure : public QObject {
    Q_OBJECT

 public:
    explicit PenPressure(QObject& view);

 Q_SIGNALS:
    /// 0 to 1, before the event of the mouse that the toolkit makes of the pen's; 1 when the pen is lifted or held
    /// flat.
    void Changed(double pressure);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kelu
