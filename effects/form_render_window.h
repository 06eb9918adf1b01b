// The real render window: a form and its progress bar.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "effects/render_window.h"

class QWidget;

namespace kelu {

class XP_ProgressBar;

/// A shut form swallows mouse, keys, wheel, touch, drops and close requests for itself and all that lies on it, and
/// looks as before: greying out every control for a tenth of a second would make the whole window flicker.
class FormRenderWindow : public QObject, public RenderWindow {
    Q_OBJECT

 public:
    FormRenderWindow(QWidget& form, XP_ProgressBar& bar) : form_(form), bar_(bar) {}

    void SetFormEnabled(bool enabled) override;
    void SetProgressVisible(bool visible) override;
    void SetProgress(int percent) override;
    /// An enabled form gets no input here: a click would start its work in the middle of an application. It is
    /// delivered afterwards.
    void RunEventLoopOnce() override;
    void RunRender(const std::function<void()>& render) override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget& form_;
    XP_ProgressBar& bar_;
    bool enabled_ = true;
};

}  // namespace kelu
