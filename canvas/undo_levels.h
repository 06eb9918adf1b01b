// Undo levels of one picture, by tiles: a level keeps the tiles that changed since it was opened, as they were before.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>
#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "canvas/tile_store.h"

namespace kelu {

class UndoLevels {
 public:
    static constexpr int kTile = TileStore::kTile;

    /// A tile of the open level.
    struct OpenTile {
        std::uint8_t* saved;     ///< its pixels before the level, 4 bytes each, kTile to a row
        std::uint8_t* coverage;  ///< 0 to 255: how much the level's stroke covers each pixel, kTile to a row
    };

    /// Drops all levels; later ones are for a picture of this size.
    void Reset(const QSize& pictureSize);

    void Open();
    /// A closed level of its own for the whole picture, which is shared, not copied; it must have the levels' size.
    void KeepWhole(const QImage& picture);
    bool IsOpen() const { return open_; }
    /// The next change needs a new level.
    void Close() { open_ = false; }

    /// The tile of the open level that holds the pixels from (tileX * kTile, tileY * kTile) on; saves them from
    /// `picture` when the level has not seen them before. Throws std::bad_alloc.
    OpenTile Touch(const QImage& picture, int tileX, int tileY);
    /// The same for all tiles of a rectangle inside the picture.
    void Touch(const QImage& picture, const QRect& pixels);

    bool CanUndo() const { return !undo_.empty(); }
    bool CanRedo() const { return !redo_.empty(); }
    /// Exchange the pixels of a level with those of `picture`; return what changed. A level must be there.
    QRect Undo(QImage& picture);
    QRect Redo(QImage& picture);

    void SetBudget(std::int64_t bytes);
    /// Held by all levels.
    std::int64_t Bytes() const { return bytes_; }

 private:
    struct SavedTile {
        int index;
        std::uint8_t* pixels;
    };
    struct Level {
        std::vector<SavedTile> tiles;
        QImage whole;  ///< in place of tiles; null: tiles
    };

    void Drop(Level& level);
    void KeepBudget();
    QRect Exchange(Level& level, QImage& picture);
    QRect TileRect(int index) const;

    QSize size_;
    int tilesAcross_ = 0;
    std::deque<Level> undo_;
    std::vector<Level> redo_;
    bool open_ = false;
    std::vector<int> slots_;   ///< by tile: its place in the open level, -1 when not saved
    std::vector<int> marked_;  ///< tiles with a place in slots_
    std::vector<std::unique_ptr<std::array<std::uint8_t, kTile * kTile>>> coverage_;  ///< by place; kept for reuse
    TileStore store_;
    std::int64_t budget_ = std::int64_t{256} << 20;
    std::int64_t bytes_ = 0;
};

}  // namespace kelu
