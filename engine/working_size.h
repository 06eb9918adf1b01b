// Pictures at a smaller size to work on: what is soft in the result need not be computed for each of its pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "engine/bands.h"
#include "engine/image_view.h"

namespace kelu::engine {

/// A picture of its own. Behind each row there are kRowRoom pixels that may be read and written.
class WorkPicture {
 public:
    WorkPicture(int width, int height);

    const MutableImageView& View() const { return view_; }
    operator ImageView() const { return view_; }
    std::uint32_t* Row(int y) const { return view_.Row(y); }

    static constexpr int kRowRoom = 16;

 private:
    std::shared_ptr<std::uint8_t> memory_;
    MutableImageView view_;
};

/// The picture's size divided by `factor`, rounded up.
WorkPicture Smaller(const ImageView& source, int factor);

/// Fills `small`, of the size that Smaller gives, with the means of squares of side `factor` (2, 4, 8 or 16), all four
/// channels; beyond the edge lies the edge pixel. One pass.
void Shrink(const ImageView& source, int factor, const WorkPicture& small, Passes& passes);

/// The rows of a picture enlarged `factor` times (1, 2, 4, 8 or 16) by the quadratic B-spline, all four channels.
class EnlargedRows {
 public:
    /// `wraps`: beyond an edge comes the opposite one, else the edge pixel. The picture is not copied.
    EnlargedRows(const WorkPicture& small, int factor, bool wraps = false);

    /// Row `y` of the enlarged picture, `factor` times as wide as `small`, and room to read kRowRoom pixels more. Good
    /// until the next call.
    const std::uint32_t* Row(int y);

 private:
    const ImageView small_;
    const int factor_;
    const bool wraps_;
    std::vector<std::uint32_t> mixed_, wide_;
};

}  // namespace kelu::engine
