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

Capsule::Capsule(int x1, int y1, int x2, int y2, int size, int softness) {
    const QPoint from(Bounded(x1), Bounded(y1)), to(Bounded(x2), Bounded(y2));
    const double radius = std::clamp(size, 1, kFarthest) / 2.0;
    const double hardCore = radius - 0.5;
    const int soft = std::clamp(softness, 0, 100);
    edge_.x = from.x();
    edge_.y = from.y();
    edge_.dx = to.x() - edge_.x;
    edge_.dy = to.y() - edge_.y;
    edge_.outer = radius + 0.5;
    edge_.core = hardCore * (100 - soft) / 100 - (soft > 0 ? 0.5 : 0.0);
    lengthSquared_ = edge_.dx * edge_.dx + edge_.dy * edge_.dy;
    const auto reach = static_cast<int>(std::ceil(edge_.outer));
    const QPoint low(std::min(from.x(), to.x()), std::min(from.y(), to.y()));
    const QPoint high(std::max(from.x(), to.x()), std::max(from.y(), to.y()));
    bounds_ = QRect(low - QPoint(reach, reach), high + QPoint(reach, reach));
}

void Capsule::Shares(int x, int y, int count, int strength, std::uint8_t* shares) const {
    engine::SegmentShares(edge_, strength, x, y, count, shares);
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
    addDisc(edge_.x, edge_.y);
    addDisc(edge_.x + edge_.dx, edge_.y + edge_.dy);
    if (lengthSquared_ <= 0) return cut;

    const double dx = edge_.dx, dy = edge_.dy, py = y - edge_.y;
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
    narrow(dy, py * dx - width, py * dx + width);    // near enough to the line
    narrow(dx, -py * dy, lengthSquared_ - py * dy);  // between its ends
    if (begin <= end) add(edge_.x + begin, edge_.x + end);
    return cut;
}

Capsule::Row Capsule::RowSpan(int y) const {
    const Interval outer = Cut(y, edge_.outer);
    if (outer.begin > outer.end) return {0, 0, 0, 0};
    Row row;
    row.outerBegin = static_cast<int>(std::floor(outer.begin));
    row.outerEnd = static_cast<int>(std::ceil(outer.end)) + 1;
    const Interval inner = edge_.core < 0 ? Interval{0, -1} : Cut(y, edge_.core);
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
