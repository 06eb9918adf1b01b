// Lays one segment of a stroke on a picture: whole spans are copied, edge pixels blended.
// SPDX-License-Identifier: MIT
#include "canvas/brush_stroke.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace kelu {
namespace {

constexpr int kTile = UndoLevels::kTile;

// `share` of 255 of `paint` over `before`. Colours count by their alpha, so that a transparent pixel's hidden colour
// does not show.
QRgb Blend(QRgb before, QRgb paint, unsigned share) {
    const unsigned rest = 255 - share;
    const auto mix = [](unsigned a, unsigned wa, unsigned b, unsigned wb, unsigned sum) {
        return sum == 0 ? 0u : (a * wa + b * wb + sum / 2) / sum;
    };
    unsigned wBefore = rest;
    unsigned wPaint = share;
    unsigned alpha = 255;
    if ((before & paint) < 0xff000000u) {
        wBefore = rest * static_cast<unsigned>(qAlpha(before));
        wPaint = share * static_cast<unsigned>(qAlpha(paint));
        alpha = (wBefore + wPaint + 127) / 255;
    }
    const unsigned sum = wBefore + wPaint;
    const auto channel = [&](int shift) {
        return mix((before >> shift) & 255u, wBefore, (paint >> shift) & 255u, wPaint, sum) << shift;
    };
    return (alpha << 24) | channel(16) | channel(8) | channel(0);
}

// `paint` over an opaque pixel, which stays opaque: what is transparent changes nothing.
QRgb LayOver(QRgb before, QRgb paint) {
    const unsigned alpha = static_cast<unsigned>(qAlpha(paint));
    const auto channel = [&](int shift) {
        return (((paint >> shift) & 255u) * alpha + ((before >> shift) & 255u) * (255 - alpha) + 127) / 255 << shift;
    };
    return 0xff000000u | channel(16) | channel(8) | channel(0);
}

// One row of tiles: all that lies at 64 rows of pixels.
class TileRow {
 public:
    TileRow(QImage& canvas, const QImage& paint, const Capsule& segment, int strength)
        : canvas_(canvas),
          paint_(paint),
          segment_(segment),
          strength_(strength),
          laysOver_(paint.hasAlphaChannel() && !canvas.hasAlphaChannel()) {}

    // Rows [top, bottom) and columns [left, right) lie inside one row of tiles and the common area.
    void Paint(int top, int bottom, int left, int right, UndoLevels& undo) {
        int first = right;
        int last = left;
        for (int y = top; y < bottom; ++y) {
            Capsule::Row row = segment_.RowSpan(y);
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
        for (int x = begin; x < end; ++x) {
            const UndoLevels::OpenTile& tile = tiles_[static_cast<std::size_t>(x / kTile - firstTile_)];
            const int place = (y % kTile) * kTile + x % kTile;
            std::uint8_t& covered = tile.coverage[place];
            if (covered >= strength_) continue;
            const auto share = static_cast<unsigned>(segment_.Coverage(x, y) * static_cast<float>(strength_) + 0.5f);
            if (share <= covered) continue;
            covered = static_cast<std::uint8_t>(share);
            QRgb before;
            std::memcpy(&before, tile.saved + std::ptrdiff_t{place} * 4, 4);
            to[x] = Blend(before, laysOver_ ? LayOver(before, from[x]) : from[x], share);
        }
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
    const Capsule& segment_;
    int strength_;
    bool laysOver_;  ///< paint with transparency, made of another picture, on an opaque canvas
    int firstTile_ = 0;
    std::array<Capsule::Row, kTile> rows_;
    std::vector<UndoLevels::OpenTile> tiles_;
};

}  // namespace

QRect PaintSegment(QImage& canvas, const QImage& paint, const Capsule& segment, int strength, UndoLevels& undo) {
    const QRect area = canvas.rect() & paint.rect() & segment.Bounds();
    if (area.isEmpty() || strength <= 0) return {};
    TileRow tileRow(canvas, paint, segment, std::min(strength, 255));
    for (int top = area.top(); top <= area.bottom();) {
        const int bottom = std::min(area.bottom() + 1, (top / kTile + 1) * kTile);
        tileRow.Paint(top, bottom, area.left(), area.right() + 1, undo);
        top = bottom;
    }
    return area;
}

}  // namespace kelu
