// What can't be used looks so: dims buttons, zoom and the effect chooser and says why, and marks Apply while it is due.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <map>

#include "document/commands.h"

namespace kelu {

class EffectApplication;
class MainControls;
class Surface;

/// Looks at the state in each turn of the event loop, so that nobody has to tell it of a change.
class CommandLook : public QObject {
    Q_OBJECT

 public:
    CommandLook(MainControls& controls, const Surface& canvas, const SharedState& state,
                const EffectApplication& application);

    /// Brings the looks up to date. While a render shuts the window they stay as they are.
    void Refresh();

 private:
    QString WhatIsInTheWay(Command command) const;

    MainControls& controls_;
    const Surface& canvas_;
    const SharedState& state_;
    const EffectApplication& application_;
};

}  // namespace kelu
