// Writing of GIF files of one or many frames that share one colour table.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <cstdint>
#include <optional>
#include <vector>

#include "pictures/gif/gif_reader.h"

namespace kelu {

class AnimationEncoder {
 public:
    /// `screen` is at most 65535 x 65535 GIF pixels; `colours` are at most 256. `loops` is how often a player shows it
    /// all, 0 for ever; without a number it is shown once.
    AnimationEncoder(const QSize& screen, const ColourTable& colours, std::optional<int> loops);

    /// One frame, which stays when the next one comes. `indices` is Format_Indexed8, its own colour table is not used;
    /// `at` is its upper left corner on the screen; `transparentIndex` -1: none.
    void Add(const QImage& indices, const QPoint& at, int delayMs, int transparentIndex);
    /// The whole file. To be called once, after the last frame.
    QByteArray Finish();

 private:
    std::vector<std::uint8_t> output_;
};

}  // namespace kelu
