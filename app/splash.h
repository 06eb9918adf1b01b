// The splash: a picture that covers the window at the start, another one each time, with a small animation on it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "document/settings.h"
#include "document/shared_state.h"
#include "platform/msg_dialog.h"

class QLabel;

namespace kelu {

namespace settings {
inline constexpr NumberSetting kSplashNumber{{"Splash", "Number"}, 1, -0x8000, 0x7FFF};  ///< next picture, 1 to 8
}

class ucAniGIF;

class Splash {
 public:
    static constexpr int kPictures = 8;

    /// `picCover` takes the size of the splash and gets the animation AniGIF1. `dataFolder` holds scr_loader1.rs to
    /// scr_loader8.rs.
    Splash(QLabel& picCover, SharedState& state, Settings& settings, MsgDialog& dialog, const QString& dataFolder);

    /// Shows the picture whose turn it is and moves the turn on. A picture that cannot be loaded gives the standard
    /// error message, and its turn stays.
    void LoadSplash();
    /// Stops the animation and uncovers the window.
    void End();

 private:
    void LoadPicture(int number);

    QLabel& picCover_;
    ucAniGIF* AniGIF1_;  // owned by the cover
    SharedState& state_;
    Settings& settings_;
    MsgDialog& dialog_;
    QString dataFolder_;
};

}  // namespace kelu
