// SPDX-License-Identifier: MIT
#include "capture/capture_panel.h"

#include <QStyle>

#include "controls/tool_button/tool_button.h"
#include "platform/units.h"

namespace kelu {

namespace {

// Twips. As high and as wide as the zoom buttons' panel, which it covers.
constexpr int kWidth = 1350;
constexpr int kHeight = 370;
constexpr int kButtonWidth = 405;
constexpr int kButtonHeight = 360;
constexpr int kButtonStep = 465;

ToolButton* MakeButton(const char* name, const char* icon, int place, QWidget* panel) {
    auto* const button = new ToolButton(QLatin1String(icon), panel);
    button->setObjectName(QLatin1String(name));
    button->setGeometry(TwipsToPixels(QRectF(place * kButtonStep, 0, kButtonWidth, kButtonHeight)));
    return button;
}

}  // namespace

CapturePanel::CapturePanel(QWidget* parent)
    : QWidget(parent),
      cmdCapture(MakeButton("cmdCapture", "capture", 0, this)),
      cmdCaptureOK(MakeButton("cmdCaptureOK", "capture_ok", 1, this)),
      cmdCaptureCancel(MakeButton("cmdCaptureCancel", "capture_cancel", 2, this)) {
    setAutoFillBackground(true);
    resize(TwipsToPixels(kWidth), TwipsToPixels(kHeight));
    for (QWidget* button : {cmdCapture, cmdCaptureOK, cmdCaptureCancel})
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), button->geometry()));
    LoadTips();
}

void CapturePanel::LoadTips() {
    cmdCapture->SetTip(tr("Capture Image (F8)"));
    cmdCaptureOK->SetTip(tr("Use Captured Image"));
    cmdCaptureCancel->SetTip(tr("Exit Capture Mode"));
}

}  // namespace kelu
