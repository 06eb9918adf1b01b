// Geometry of a stroke's segment.
// SPDX-License-Identifier: MIT
#include "canvas/brush.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelu {
namespace {

// Beyond this no picture reaches; keeps all sums far from the ends of an int.
constexpr int kFarthest = 1 << 29;
// Wholly covered pixels are told with this much room, so that rounding never calls an edge pixel whole.
constexpr double kRoom = 1e-6;

int Bounded(int coordinate) { return std::clamp(coordinate, -kFarthest, kFarthest); }

}  // namespace

Capsule::Capsule(int x1, int y1, int x2, int y2, int size, int softness)
    : x1_(Bounded(x1)),
      y1_(Bounded(y1)),
      dx_(Bounded(x2) - x1_),
      dy_(Bounded(y2) - y1_),
      lengthSquared_(dx_ * dx_ + dy_ * dy_),
      radius_(std::clamp(size, 1, kFarthest) / 2.0),
      core_((radius_ - 0.5) * (100 - std::clamp(softness, 0, 100)) / 100 - (softness > 0 ? 0.5 : 0.0)) {
    const auto reach = static_cast<int>(std::ceil(radius_ + 0.5));
    const QPoint low(std::min(Bounded(x1), Bounded(x2)), std::min(Bounded(y1), Bounded(y2)));
    const QPoint high(std::max(Bounded(x1), Bounded(x2)), std::max(Bounded(y1), Bounded(y2)));
    bounds_ = QRect(low - QPoint(reach, reach), high + QPoint(reach, reach));
}

float Capsule::Coverage(int x, int y) const {
    const double px = x - x1_;
    const double py = y - y1_;
    const double t = lengthSquared_ > 0 ? std::clamp((px * dx_ + py * dy_) / lengthSquared_, 0.0, 1.0) : 0.0;
    const double ex = px - t * dx_;
    const double ey = py - t * dy_;
    const double edge = radius_ + 0.5;
    const double share = std::clamp((edge - std::sqrt(ex * ex + ey * ey)) / (edge - core_), 0.0, 1.0);
    if (edge - core_ <= 1) return static_cast<float>(share);  // the antialiased edge of a hard tip
    return static_cast<float>(share * share * (3 - 2 * share));
}

// The shape is convex, so a row cuts one interval out of it: the hull of what it cuts out of the two round ends and
// the straight part between them.
Capsule::Interval Capsule::Cut(double y, double radius) const {
    Interval cut{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    const auto add = [&](double begin, double end) {
        if (begin > end) return;
        cut.begin = std::min(cut.begin, begin);
        cut.end = std::max(cut.end, end);
    };
    const auto addDisc = [&](double cx, double cy) {
        const double inside = radius * radius - (y - cy) * (y - cy);
        if (inside >= 0) add(cx - std::sqrt(inside), cx + std::sqrt(inside));
    };
    addDisc(x1_, y1_);
    addDisc(x1_ + dx_, y1_ + dy_);
    if (lengthSquared_ <= 0) return cut;

    const double py = y - y1_;
    const double width = radius * std::sqrt(lengthSquared_);
    double begin = -std::numeric_limits<double>::infinity();
    double end = std::numeric_limits<double>::infinity();
    const auto narrow = [&](double factor, double low, double high) {  // low <= factor * (x - x1) <= high
        if (factor == 0) {
            if (low > 0 || high < 0) end = -std::numeric_limits<double>::infinity();
            return;
        }
        if (factor < 0) std::swap(low, high);
        begin = std::max(begin, low / factor);
        end = std::min(end, high / factor);
    };
    narrow(dy_, py * dx_ - width, py * dx_ + width);    // near enough to the line
    narrow(dx_, -py * dy_, lengthSquared_ - py * dy_);  // between its ends
    if (begin <= end) add(x1_ + begin, x1_ + end);
    return cut;
}

Capsule::Row Capsule::RowSpan(int y) const {
    const Interval outer = Cut(y, radius_ + 0.5);
    if (outer.begin > outer.end) return {0, 0, 0, 0};
    Row row;
    row.outerBegin = static_cast<int>(std::floor(outer.begin));
    row.outerEnd = static_cast<int>(std::ceil(outer.end)) + 1;
    const Interval inner = core_ < 0 ? Interval{0, -1} : Cut(y, core_);
    const double begin = std::ceil(inner.begin + kRoom);
    const double end = std::floor(inner.end - kRoom) + 1;
    if (!(begin < end)) {
        row.innerBegin = row.innerEnd = row.outerEnd;
        return row;
    }
    row.innerBegin = static_cast<int>(begin);
    row.innerEnd = static_cast<int>(end);
    return row;
}

}  // namespace kelu
