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

// `share` of 255 of `paint` over `before`. Colours count by their alpha, so that a transparent pixel's hidden colour
// does not show.
QRgb Blend(QRgb before, QRgb paint, unsigned share) {
    const unsigned rest = 255 - share;
    // Opaque pixels, which are nearly all, by a divisor that the compiler knows.
    if ((before & paint) >= 0xff000000u) {
        const auto channel = [&](int shift) {
            return (((before >> shift) & 255u) * rest + ((paint >> shift) & 255u) * share + 127) / 255 << shift;
        };
        return 0xff000000u | channel(16) | channel(8) | channel(0);
    }
    const unsigned wBefore = rest * static_cast<unsigned>(qAlpha(before));
    const unsigned wPaint = share * static_cast<unsigned>(qAlpha(paint));
    const unsigned sum = wBefore + wPaint;
    const auto channel = [&](int shift) {
        const unsigned mixed = ((before >> shift) & 255u) * wBefore + ((paint >> shift) & 255u) * wPaint;
        return sum == 0 ? 0u : (mixed + sum / 2) / sum << shift;
    };
    return ((sum + 127) / 255 << 24) | channel(16) | channel(8) | channel(0);
}

// `paint` over an opaque pixel, which stays opaque: what is transparent changes nothing.
QRgb LayOver(QRgb before, QRgb paint) {
    const unsigned alpha = static_cast<unsigned>(qAlpha(paint));
    const auto channel = [&](int shift) {
        return (((paint >> shift) & 255u) * alpha + ((before >> shift) & 255u) * (255 - alpha) + 127) / 255 << shift;
    };
    return 0xff000000u | channel(16) | channel(8) | channel(0);
}

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
    /// `dx`, `dy` are at most as far as a brush of this size reaches.
    std::uint8_t At(int dx, int dy) const {
        return shares_[static_cast<std::size_t>(std::abs(dy) * side_ + std::abs(dx))];
    }

 private:
    Dab() = default;
    Dab(int size, int softness) : size_(size), softness_(softness), side_(size / 2 + 4) {
        const Capsule tip(0, 0, 0, 0, size, softness);
        shares_.resize(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_));
        for (int y = 0; y < side_; ++y)
            for (int x = 0; x <= y; ++x)
                shares_[static_cast<std::size_t>(x * side_ + y)] = shares_[static_cast<std::size_t>(y * side_ + x)] =
                    static_cast<std::uint8_t>(tip.Coverage(x, y) * 255.0f + 0.5f);
    }

    int size_ = 0;
    int softness_ = 0;
    int side_ = 0;
    std::vector<std::uint8_t> shares_;  ///< of one quarter, by rows
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
          dab_(segment.softness > 0 && strength == 255 ? &Dab::Of(segment.size, segment.softness) : nullptr) {}

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
        const QPoint way = segment_.to - segment_.from;
        const qint64 whole = qint64{way.x()} * way.x() + qint64{way.y()} * way.y();
        // How far along the segment a pixel lies: up to 0 its start is the nearest point of it, from `whole` on its
        // end.
        qint64 along = qint64{begin - segment_.from.x()} * way.x() + qint64{y - segment_.from.y()} * way.y();
        for (int x = begin; x < end; ++x, along += way.x()) {
            const UndoLevels::OpenTile& tile = tiles_[static_cast<std::size_t>(x / kTile - firstTile_)];
            const int place = (y % kTile) * kTile + x % kTile;
            std::uint8_t& covered = tile.coverage[place];
            if (covered >= strength_) continue;
            const unsigned share = dab_ && along <= 0       ? dab_->At(x - segment_.from.x(), y - segment_.from.y())
                                   : dab_ && along >= whole ? dab_->At(x - segment_.to.x(), y - segment_.to.y())
                                                            : WorkedOut(x, y);
            if (share <= covered) continue;
            covered = static_cast<std::uint8_t>(share);
            QRgb before;
            std::memcpy(&before, tile.saved + std::ptrdiff_t{place} * 4, 4);
            to[x] = Blend(before, laysOver_ ? LayOver(before, from[x]) : from[x], share);
        }
    }

    unsigned WorkedOut(int x, int y) const {
        return static_cast<unsigned>(shape_.Coverage(x, y) * static_cast<float>(strength_) + 0.5f);
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
