// The operations of OpenCV that do what an effect does, for the benchmark. Without OpenCV there are none.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "engine/image_view.h"

namespace kelu::bench {

class Peers {
 public:
    /// Keeps `source`; `threads` 0 takes all cores.
    Peers(const engine::ImageView& source, int threads);
    ~Peers();

    /// The operation for an effect of the benchmark's table, working into memory that is kept between calls; empty
    /// where there is none.
    std::function<void()> Find(const std::string& effect) const;

 private:
    struct Data;
    std::unique_ptr<Data> data_;
};

}  // namespace kelu::bench
