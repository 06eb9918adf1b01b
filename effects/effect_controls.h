// Where Apply finds the inputs. Each is read at its own step of an application; the effect panel is the real source.
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace kelu {

class EffectControls {
 public:
    virtual ~EffectControls() = default;

    /// Image pixels. May throw when the text is no number.
    virtual int XCoordinate() const = 0;
    virtual int YCoordinate() const = 0;
    /// The colour of picker 1 or 2, red in the lowest byte.
    virtual qint32 PickerValue(int picker) const = 0;
    /// The value of slider 1, 2 or 3.
    virtual int SliderValue(int slider) const = 0;
};

}  // namespace kelu
