// The application object. An exception that nobody caught costs the user a message and not the unsaved picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include "platform/msg_dialog.h"

namespace kelu {

class Application : public QApplication {
    Q_OBJECT

 public:
    using QApplication::QApplication;

    /// From now on what escapes from an event is shown as the standard error message, and the program goes on. Without
    /// a dialog it ends the program. Null takes the dialog back; it must not be gone before.
    void ShowErrorsIn(MsgDialog* dialog) { dialog_ = dialog; }

    bool notify(QObject* receiver, QEvent* event) override;

 private:
    MsgDialog* dialog_ = nullptr;
    bool showing_ = false;
};

}  // namespace kelu
