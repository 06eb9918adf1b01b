// From process start to process end: the order of the start-up steps, the settings read then, and the way out.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "document/open_save.h"
#include "document/settings.h"
#include "document/shared_state.h"
#include "platform/msg_dialog.h"

namespace kelu {

/// What the main window does for the start and the end; each step is the window's or one of its objects' own work.
class StartUpSteps {
 public:
    virtual ~StartUpSteps() = default;

    virtual bool AnotherInstanceRuns() = 0;
    virtual void Connect2Camera() = 0;
    virtual void PlaceCompassInPager() = 0;
    virtual void SetUpSFXList() = 0;
    virtual void LoadSplash() = 0;
    virtual void AddDropShadow() = 0;
    virtual void PrepareCanvasBackground() = 0;
    virtual void LoadPlaceholder() = 0;
    virtual void LoadLanguage() = 0;
    virtual void SendToBack() = 0;

    virtual void SetVideoSize(const QString& code) = 0;
    /// "0" shows the effect list, "1" the picture toolbar; any other text changes neither.
    virtual void SetSelector(const QString& code) = 0;
    virtual void LoadDevices() = 0;
    /// Throws Error 380 when the list has no such row.
    virtual void SelectDevice(int index) = 0;

    /// Closes the window, and with it the program.
    virtual void Unload() = 0;
};

class StartUp {
 public:
    StartUp(StartUpSteps& steps, SharedState& state, const Settings& settings, MsgDialog& dialog, OpenSave& openSave);

    /// The whole start. With another instance running the window unloads and nothing else happens. The first failing
    /// step ends the start with the standard error message.
    void SetMeUp();
    /// Settings that the window keeps; read at the end of the start and after the options dialog.
    void LoadMySettings();
    void PrepareImageResize();
    /// Removes the temporary file of the last PDF export; a missing one is no failure.
    void TidyTemp();
    /// The close command: asks when there are unsaved changes.
    void ExitApp();

 private:
    StartUpSteps& steps_;
    SharedState& state_;
    const Settings& settings_;
    MsgDialog& dialog_;
    OpenSave& openSave_;
};

}  // namespace kelu
