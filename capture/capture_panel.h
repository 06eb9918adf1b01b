// The panel of capture mode (picCapContainer): snapshot, use it, leave.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace kelu {

class ToolButton;

class CapturePanel : public QWidget {
    Q_OBJECT

 public:
    explicit CapturePanel(QWidget* parent = nullptr);

    /// Tips of the three buttons.
    void LoadTips();

    // Children of the panel; each carries its name as object name.
    ToolButton* const cmdCapture;
    ToolButton* const cmdCaptureOK;
    ToolButton* const cmdCaptureCancel;
};

}  // namespace kelu
