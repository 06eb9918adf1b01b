// The start of the program: the order of its steps, and the settings read at its end and after the options dialog.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "document/settings.h"
#include "document/shared_state.h"
#include "platform/msg_dialog.h"

namespace kelu {

class CameraCapture;
class MainControls;
class Splash;
class Surface;

class StartUp {
 public:
    /// `dataFolder` holds ploader.rs.
    StartUp(MainControls& controls, Surface& canvas, CameraCapture& capture, Splash& splash, SharedState& state,
            const Settings& settings, MsgDialog& dialog, const QString& dataFolder);

    /// All steps before the window shows. The first that fails ends the start with the standard error message.
    void SetMeUp();
    /// Settings that the window keeps. A stored camera that is gone sets CameraMissing without a message.
    void LoadMySettings();
    void PrepareImageResize();
    void ShowPlaceholder();
    /// Removes the temporary file of the last PDF export; a missing one is no failure.
    static void TidyTemp();

 private:
    MainControls& controls_;
    Surface& canvas_;
    CameraCapture& capture_;
    Splash& splash_;
    SharedState& state_;
    const Settings& settings_;
    MsgDialog& dialog_;
    QString dataFolder_;
};

}  // namespace kelu
