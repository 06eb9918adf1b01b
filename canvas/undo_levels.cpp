// Undo levels by tiles.
// SPDX-License-Identifier: MIT
#include "canvas/undo_levels.h"

#include <algorithm>
#include <cstring>

#include "engine/bands.h"
#include "pictures/picture.h"

namespace kelu {
namespace {

// What an empty level counts, so that their number has an end too.
constexpr std::int64_t kLevelBytes = 64;
constexpr std::int64_t kTileBytes = static_cast<std::int64_t>(TileStore::kTileBytes);

}  // namespace

void UndoLevels::Reset(const QSize& pictureSize) {
    undo_.clear();
    redo_.clear();
    open_ = false;
    size_ = pictureSize;
    tilesAcross_ = (size_.width() + kTile - 1) / kTile;
    const int tilesDown = (size_.height() + kTile - 1) / kTile;
    slots_.assign(static_cast<std::size_t>(tilesAcross_) * static_cast<std::size_t>(tilesDown), -1);
    slots_.shrink_to_fit();
    marked_.clear();
    coverage_.clear();
    store_.Clear();
    bytes_ = 0;
}

void UndoLevels::Open() {
    for (Level& level : redo_) Drop(level);
    redo_.clear();
    for (const int tile : marked_) slots_[static_cast<std::size_t>(tile)] = -1;
    marked_.clear();
    undo_.emplace_back();
    bytes_ += kLevelBytes;
    open_ = true;
    KeepBudget();
    store_.Prepare();
}

void UndoLevels::KeepWhole(const QImage& picture) {
    Open();
    open_ = false;
    undo_.back().whole = picture;
    bytes_ += picture.sizeInBytes();
    KeepBudget();
}

UndoLevels::OpenTile UndoLevels::Touch(const QImage& picture, int tileX, int tileY) {
    const int index = tileY * tilesAcross_ + tileX;
    int& slot = slots_[static_cast<std::size_t>(index)];
    std::vector<SavedTile>& level = undo_.back().tiles;
    if (slot < 0) {
        const std::size_t place = level.size();
        if (coverage_.size() <= place) coverage_.push_back(std::make_unique<std::array<std::uint8_t, kTile * kTile>>());
        coverage_[place]->fill(0);
        level.push_back({index, nullptr});
        try {
            marked_.push_back(index);
            level.back().pixels = store_.Take();
        } catch (...) {
            level.pop_back();
            throw;
        }
        const QRect rect = TileRect(index);
        for (int y = 0; y < rect.height(); ++y) {
            std::memcpy(level.back().pixels + std::ptrdiff_t{y} * kTile * 4,
                        picture.constScanLine(rect.top() + y) + std::ptrdiff_t{rect.left()} * 4,
                        static_cast<std::size_t>(rect.width()) * 4);
        }
        slot = static_cast<int>(place);
        bytes_ += kTileBytes;
        KeepBudget();
    }
    const auto place = static_cast<std::size_t>(slot);
    return {undo_.back().tiles[place].pixels, coverage_[place]->data()};
}

void UndoLevels::Touch(const QImage& picture, const QRect& pixels) {
    for (int y = pixels.top() / kTile; y <= pixels.bottom() / kTile; ++y)
        for (int x = pixels.left() / kTile; x <= pixels.right() / kTile; ++x) Touch(picture, x, y);
}

QRect UndoLevels::Undo(QImage& picture) {
    open_ = false;
    const QRect changed = Exchange(undo_.back(), picture);
    redo_.push_back(std::move(undo_.back()));
    undo_.pop_back();
    return changed;
}

QRect UndoLevels::Redo(QImage& picture) {
    open_ = false;
    const QRect changed = Exchange(redo_.back(), picture);
    undo_.push_back(std::move(redo_.back()));
    redo_.pop_back();
    return changed;
}

void UndoLevels::SetBudget(std::int64_t bytes) {
    budget_ = bytes;
    KeepBudget();
}

void UndoLevels::Drop(Level& level) {
    for (const SavedTile& tile : level.tiles) store_.Give(tile.pixels);
    bytes_ -= kLevelBytes + kTileBytes * static_cast<std::int64_t>(level.tiles.size()) + level.whole.sizeInBytes();
}

void UndoLevels::KeepBudget() {
    while (bytes_ > budget_ && undo_.size() > 1) {
        Drop(undo_.front());
        undo_.pop_front();
    }
}

QRect UndoLevels::Exchange(Level& level, QImage& picture) {
    if (!level.whole.isNull()) {
        std::swap(level.whole, picture);
        return picture.rect();
    }
    if (level.tiles.empty()) return {};
    MakeUnique(picture);
    uchar* const bits = picture.bits();
    const qsizetype stride = picture.bytesPerLine();
    const auto exchange = [&](const SavedTile& tile) {
        const QRect rect = TileRect(tile.index);
        const std::ptrdiff_t bytes = std::ptrdiff_t{rect.width()} * 4;
        for (int y = 0; y < rect.height(); ++y) {
            uchar* row = bits + (rect.top() + y) * stride + std::ptrdiff_t{rect.left()} * 4;
            std::swap_ranges(row, row + bytes, tile.pixels + std::ptrdiff_t{y} * kTile * 4);
        }
    };
    engine::SplitRows({}, static_cast<int>(level.tiles.size()), kTile * kTile, [&](int begin, int end) {
        std::for_each(level.tiles.begin() + begin, level.tiles.begin() + end, exchange);
    });
    QRect changed;
    for (const SavedTile& tile : level.tiles) changed |= TileRect(tile.index);
    return changed;
}

QRect UndoLevels::TileRect(int index) const {
    const QRect tile((index % tilesAcross_) * kTile, (index / tilesAcross_) * kTile, kTile, kTile);
    return tile & QRect(QPoint(0, 0), size_);
}

}  // namespace kelu
