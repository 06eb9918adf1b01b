// SPDX-License-Identifier: MIT
#include "app/start_up.h"

#include <QDir>
#include <QFile>

#include "app/interface_language.h"
#include "app/main_controls.h"
#include "app/placeholder.h"
#include "app/splash.h"
#include "capture/camera_capture.h"
#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/theme/theme.h"
#include "controls/toolbox/toolbox.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"
#include "effects/effect_settings.h"
#include "platform/error.h"
#include "platform/temporary_folder.h"

namespace kelu {

StartUp::StartUp(MainControls& controls, Surface& canvas, CameraCapture& capture, Splash& splash, SharedState& state,
                 const Settings& settings, MsgDialog& dialog, const QString& dataFolder)
    : controls_(controls),
      canvas_(canvas),
      capture_(capture),
      splash_(splash),
      state_(state),
      settings_(settings),
      dialog_(dialog),
      dataFolder_(dataFolder) {}

void StartUp::SetMeUp() {
    RunShowingErrors(dialog_, [this] {
        capture_.Connect2Camera();
        state_.GraySelect = 1;
        state_.MaximumSelect = 1;
        state_.CompassDirection = 3;
        controls_.pnlSettings->PagerCompass->SetChild(controls_.pnlSettings->TBCompass);
        controls_.selectors->SetUpSFXList();
        PrepareImageResize();
        TidyTemp();
        splash_.LoadSplash();
        state_.ShowingOriginal = false;
        const QBrush canvasBackBrush(theme::kHatch, Qt::DiagCrossPattern);
        controls_.picCanvas->SetBackgroundHatch(canvasBackBrush);
        controls_.picOriginal->SetBackgroundHatch(canvasBackBrush);
        ShowPlaceholder();
        controls_.picCanvas->SetViewAnchor(Anchor::Fitted);
        LoadLanguage(controls_, state_);
    });
}

void StartUp::ShowPlaceholder() {
    canvas_.LoadFile(QDir(dataFolder_).filePath(QStringLiteral("ploader.rs")));
    canvas_.SetPicture(WithInvitation(canvas_.Picture()));
}

void StartUp::LoadMySettings() {
    RunShowingErrors(dialog_, [this] {
        capture_.SetVideoSize(settings_.Read(settings::kCaptureSize));
        if (const std::optional<bool> toolbar = settings_.Read(settings::kSelector)) {
            controls_.selectors->lstSFX->setVisible(!*toolbar);
            controls_.selectors->pagerTB1->setVisible(*toolbar);
        }
        capture_.LoadDevices();
        try {
            capture_.SelectDevice(settings_.Read(settings::kDevice));
        } catch (const Error& error) {
            if (error.Number() != kInvalidProperty) throw;
            state_.CameraMissing = true;
        }
    });
}

void StartUp::PrepareImageResize() {
    state_.ResizeOnOpen = static_cast<std::int16_t>(settings_.Read(settings::kResize));
}

void StartUp::TidyTemp() { QFile::remove(QDir(TemporaryFolder()).filePath(QStringLiteral("_kelutmpimg.tif"))); }

}  // namespace kelu
