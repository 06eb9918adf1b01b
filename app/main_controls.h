// The controls of the main window under their names: made here, placed by ApplyLayout, wired by frmMain.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <map>

#include "document/commands.h"
#include "document/document.h"
#include "document/shared_state.h"
#include "view/image_x.h"

class QLabel;

namespace kelu {

class CapturePanel;
class EffectPanel;
class EffectSelectors;
class NoteBar;
class StatusBar;
class ToolButton;
class XP_ProgressBar;

/// In pixels: the size in which the window comes, and the least, both within what its screen has for windows.
QSize FirstSize(const QWidget& window);
QSize LeastSize(const QWidget& window);

class MainControls {
 public:
    MainControls(QWidget& window, Surfaces& surfaces, Surface& capturePreview, SharedState& state);

    /// Places everything for the window's present size, or gives the window one that is allowed; not while minimised.
    void ApplyLayout();
    ToolButton& Button(Command command) const { return *buttons_.at(command); }
    /// What is hidden as long as the splash covers the window.
    void ShowTools(bool shown);

    QWidget* const picTitleBar;
    QWidget* const picSystem;
    QWidget* const picTB;
    QLabel* const picLogo;
    QWidget* const picPipe1;
    ImageX* const picCanvas;
    ImageX* const picOriginal;
    EffectSelectors* const selectors;  ///< lstSFX, pagerTB1, TBSFX
    EffectPanel* const pnlSettings;
    QWidget* const picZoomContainer;
    CapturePanel* const picCapContainer;
    ImageX* const picCapPreview;
    StatusBar* const sBar1;
    XP_ProgressBar* const pBar1;
    NoteBar* const note;  ///< over the lower edge of the canvas
    QLabel* const picCover;

 private:
    void MakeButtons(QWidget& window);

    QWidget& window_;
    std::map<Command, ToolButton*> buttons_;
};

}  // namespace kelu
