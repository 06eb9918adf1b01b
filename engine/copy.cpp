// The plain copy, on all threads: one core alone does not fill the memory's bandwidth.
// SPDX-License-Identifier: MIT
#include "engine/copy.h"

#include <cstring>

#include "engine/bands.h"

namespace kelu::engine {

void Copy(const ImageView& source, const MutableImageView& target, const Run& run) {
    SplitRows(run, source.height, source.width, [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            std::memcpy(target.Row(y), source.Row(y), static_cast<std::size_t>(source.width) * 4);
    });
}

}  // namespace kelu::engine
