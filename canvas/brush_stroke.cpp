// Lays one segment of a stroke on a picture: whole spans are copied, edge pixels blended.
// SPDX-License-Identifier: MIT
#include "canvas/brush_stroke.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace kelu {
namespace {

constexpr int kTile = UndoLevels::kTile;
constexpr int kLargestDab = 400;  // beyond this a few strokes don't repay it; brushes grow with pictures in a batch

/// `divisor` is above 0.
qint64 CeilOfQuotient(qint64 number, qint64 divisor) { return number / divisor + (number % divisor > 0 ? 1 : 0); }

// What a soft tip covers round a point, of 255. Before and behind a segment its coverage is that of its ends, and that
// is most of it: looked up here it costs no root and no division.
class Dab {
 public:
    /// The one for such a brush, made when the last one was another's.
    static const Dab& Of(int size, int softness) {
        thread_local Dab last;
        if (last.size_ != size || last.softness_ != softness) last = Dab(size, softness);
        return last;
    }
    /// From the point (dx, dy) off the middle on, to the right; as far as a brush of this size reaches.
    const std::uint8_t* At(int dx, int dy) const { return &shares_[Place(std::abs(dy), dx)]; }

 private:
    Dab() = default;
    Dab(int size, int softness) : size_(size), softness_(softness), reach_(size / 2 + 4) {
        const Capsule tip(0, 0, 0, 0, size, softness);
        shares_.resize(Place(reach_, -reach_) + engine::kRoomForShares);
        for (int y = 0; y < reach_; ++y) tip.Shares(-reach_, y, 2 * reach_ + 1, 255, &shares_[Place(y, -reach_)]);
    }
    std::size_t Place(int y, int x) const { return static_cast<std::size_t>(y * (2 * reach_ + 1) + x + reach_); }

    int size_ = 0;
    int softness_ = 0;
    int reach_ = 0;
    std::vector<std::uint8_t> shares_;  ///< of the lower half, by rows
};

// One row of tiles: all that lies at 64 rows of pixels.
class TileRow {
 public:
    TileRow(QImage& canvas, const QImage& paint, const Segment& segment, const Capsule& shape, int strength)
        : canvas_(canvas),
          paint_(paint),
          segment_(segment),
          shape_(shape),
          strength_(strength),
          laysOver_(paint.hasAlphaChannel() && !canvas.hasAlphaChannel()),
          dab_(segment.softness > 0 && strength == 255 && segment.size <= kLargestDab
                   ? &Dab::Of(segment.size, segment.softness)
                   : nullptr) {}

    // Rows [top, bottom) and columns [left, right) lie inside one row of tiles and the common area.
    void Paint(int top, int bottom, int left, int right, UndoLevels& undo) {
        int first = right;
        int last = left;
        for (int y = top; y < bottom; ++y) {
            Capsule::Row row = shape_.RowSpan(y);
            row = {std::clamp(row.outerBegin, left, right), std::clamp(row.innerBegin, left, right),
                   std::clamp(row.innerEnd, left, right), std::clamp(row.outerEnd, left, right)};
            rows_[static_cast<std::size_t>(y - top)] = row;
            if (row.outerBegin >= row.outerEnd) continue;
            first = std::min(first, row.outerBegin);
            last = std::max(last, row.outerEnd - 1);
        }
        if (first > last) return;
        // Saving comes before the first change: should memory be short, the picture is as it was.
        firstTile_ = first / kTile;
        tiles_.clear();
        for (int tile = firstTile_; tile <= last / kTile; ++tile)
            tiles_.push_back(undo.Touch(canvas_, tile, top / kTile));
        for (int y = top; y < bottom; ++y) PaintRow(y, rows_[static_cast<std::size_t>(y - top)]);
    }

 private:
    void PaintRow(int y, const Capsule::Row& row) {
        // A short row can be edge alone, or have no edge left inside the common area.
        const int innerBegin = std::min(row.innerBegin, row.outerEnd);
        const int innerEnd = std::max(innerBegin, row.innerEnd);
        auto* to = reinterpret_cast<QRgb*>(canvas_.scanLine(y));
        const auto* from = reinterpret_cast<const QRgb*>(paint_.constScanLine(y));
        PaintEdge(y, row.outerBegin, innerBegin, to, from);
        if (strength_ == 255 && !laysOver_)
            CopyInside(y, innerBegin, innerEnd, to, from);
        else
            PaintEdge(y, innerBegin, innerEnd, to, from);
        PaintEdge(y, innerEnd, row.outerEnd, to, from);
    }

    void PaintEdge(int y, int begin, int end, QRgb* to, const QRgb* from) {
        for (int x = begin; x < end;) {
            const int stop = std::min(end, (x / kTile + 1) * kTile);
            const UndoLevels::OpenTile& tile = tiles_[static_cast<std::size_t>(x / kTile - firstTile_)];
            PaintPiece(tile, y, x, stop, to, from);
            x = stop;
        }
    }

    // The same within one tile.
    void PaintPiece(const UndoLevels::OpenTile& tile, int y, int begin, int end, QRgb* to, const QRgb* from) {
        const std::ptrdiff_t row = (y % kTile) * kTile;
        // Most of a hard edge is covered by the segments before.
        while (begin < end && tile.coverage[row + begin % kTile] >= strength_) ++begin;
        while (begin < end && tile.coverage[row + (end - 1) % kTile] >= strength_) --end;
        if (begin == end) return;
        const std::ptrdiff_t place = row + begin % kTile;
        engine::BlendStroke({Shares(y, begin, end), tile.coverage + place,
                             reinterpret_cast<const QRgb*>(tile.saved) + place, from + begin, to + begin, end - begin},
                            laysOver_);
    }

    // Before a soft segment its start is the nearest point of it, behind it its end, and there the shares are those of
    // a dab.
    const std::uint8_t* Shares(int y, int begin, int end) {
        shares_.resize(static_cast<std::size_t>(end - begin + engine::kRoomForShares));
        if (!dab_) {
            shape_.Shares(begin, y, end - begin, strength_, shares_.data());
            return shares_.data();
        }
        QPoint left = segment_.from, right = segment_.to;
        if (left.x() > right.x()) std::swap(left, right);
        const QPoint way = right - left;
        const qint64 alongY = qint64{y - left.y()} * way.y();
        // The first column from which on a pixel lies at least so far along the way; the way's length is its square.
        const auto firstAlong = [&](qint64 least) {
            if (way.x() == 0) return alongY >= least ? begin : end;
            return static_cast<int>(std::clamp<qint64>(left.x() + CeilOfQuotient(least - alongY, way.x()), begin, end));
        };
        const int middle = firstAlong(1);
        const int behind = std::max(middle, firstAlong(qint64{way.x()} * way.x() + qint64{way.y()} * way.y()));
        std::uint8_t* const shares = shares_.data();
        shape_.Shares(middle, y, behind - middle, strength_, shares + (middle - begin));
        if (begin < middle) std::copy_n(dab_->At(begin - left.x(), y - left.y()), middle - begin, shares);
        if (behind < end)
            std::copy_n(dab_->At(behind - right.x(), y - right.y()), end - behind, shares + (behind - begin));
        return shares;
    }

    void CopyInside(int y, int begin, int end, QRgb* to, const QRgb* from) {
        if (begin >= end) return;
        std::memcpy(to + begin, from + begin, static_cast<std::size_t>(end - begin) * 4);
        for (int x = begin; x < end;) {
            const int stop = std::min(end, (x / kTile + 1) * kTile);
            std::memset(
                tiles_[static_cast<std::size_t>(x / kTile - firstTile_)].coverage + (y % kTile) * kTile + x % kTile,
                255, static_cast<std::size_t>(stop - x));
            x = stop;
        }
    }

    QImage& canvas_;
    const QImage& paint_;
    const Segment& segment_;
    const Capsule& shape_;
    int strength_;
    bool laysOver_;   ///< paint with transparency, made of another picture, on an opaque canvas
    const Dab* dab_;  ///< null: each pixel's coverage is worked out
    int firstTile_ = 0;
    std::array<Capsule::Row, kTile> rows_;
    std::vector<std::uint8_t> shares_;  ///< of the part of a row that is at work
    std::vector<UndoLevels::OpenTile> tiles_;
};

}  // namespace

QRect PaintSegment(QImage& canvas, const QImage& paint, const Segment& segment, int strength, UndoLevels& undo) {
    const Capsule shape(segment.from.x(), segment.from.y(), segment.to.x(), segment.to.y(), segment.size,
                        segment.softness);
    const QRect area = canvas.rect() & paint.rect() & shape.Bounds();
    if (area.isEmpty() || strength <= 0) return {};
    TileRow tileRow(canvas, paint, segment, shape, std::min(strength, 255));
    for (int top = area.top(); top <= area.bottom();) {
        const int bottom = std::min(area.bottom() + 1, (top / kTile + 1) * kTile);
        tileRow.Paint(top, bottom, area.left(), area.right() + 1, undo);
        top = bottom;
    }
    return area;
}

}  // namespace kelu
