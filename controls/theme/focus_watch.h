// Tells whether the user works by keyboard, so that the focus ring shows only then. The toolkit's own mark for it is
// set by the mere activation of a window as well, which would put a ring on the first tool at every start.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace kelu::theme {

class FocusWatch : public QObject {
    Q_OBJECT

 public:
    /// The one of the application object, made at the first call, which Apply is.
    static FocusWatch& Instance();

    /// True from a key that moves or uses the focus, or a focus that came as by Tab behind a key, until the next press
    /// of a mouse button.
    bool ByKeyboard() const { return byKeyboard_; }

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    using QObject::QObject;

    bool byKeyboard_ = false;
    bool keyWasLast_ = true;  ///< of keys and mouse buttons

    void Set(bool byKeyboard);
};

}  // namespace kelu::theme
