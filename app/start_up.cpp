// SPDX-License-Identifier: MIT
#include "app/start_up.h"

#include <QDir>
#include <QFile>

#include "platform/error.h"
#include "platform/temporary_folder.h"

namespace kelu {

StartUp::StartUp(StartUpSteps& steps, SharedState& state, const Settings& settings, MsgDialog& dialog,
                 OpenSave& openSave)
    : steps_(steps), state_(state), settings_(settings), dialog_(dialog), openSave_(openSave) {}

void StartUp::SetMeUp() {
    if (steps_.AnotherInstanceRuns()) {
        steps_.Unload();
        return;
    }
    RunShowingErrors(dialog_, [this] {
        steps_.Connect2Camera();
        state_.GraySelect = 1;
        state_.MaximumSelect = 1;
        state_.CompassDirection = 3;
        steps_.PlaceCompassInPager();
        steps_.SetUpSFXList();
        PrepareImageResize();
        TidyTemp();
        steps_.LoadSplash();
        state_.ShowingOriginal = false;
        steps_.AddDropShadow();
        steps_.PrepareCanvasBackground();
        steps_.LoadPlaceholder();
        steps_.LoadLanguage();
        steps_.SendToBack();
    });
}

void StartUp::LoadMySettings() {
    RunShowingErrors(dialog_, [this] {
        steps_.SetVideoSize(settings_.Read(settings::kCaptureSize));
        steps_.SetSelector(settings_.Read(settings::kSelector));
        steps_.LoadDevices();
        try {
            steps_.SelectDevice(settings_.ReadInteger(settings::kDevice));
        } catch (const Error& error) {
            if (error.Number() != kInvalidProperty) throw;
            state_.CameraMissing = true;
        }
    });
}

void StartUp::PrepareImageResize() {
    state_.ResizeOnOpen = static_cast<std::int16_t>(settings_.ReadInteger(settings::kResize));
}

void StartUp::TidyTemp() { QFile::remove(QDir(TemporaryFolder()).filePath(QStringLiteral("_kelutmpimg.tif"))); }

void StartUp::ExitApp() {
    if (state_.ImageDirty) {
        switch (openSave_.AskToSave(/*beep=*/true)) {
            case MsgAnswer::Yes:
                openSave_.SaveImageNow();
                break;
            case MsgAnswer::No:
                break;
            default:
                return;
        }
    }
    steps_.Unload();
}

}  // namespace kelu
