// Memory for saved tiles.
// SPDX-License-Identifier: MIT
#include "canvas/tile_store.h"

#include "engine/pixel_memory.h"

namespace kelu {
namespace {

constexpr std::size_t kBlocksOfPiece = 256;  // 4 MiB

}  // namespace

std::uint8_t* TileStore::Take() {
    if (free_.empty()) {
        pieces_.push_back(engine::TakePixelMemory(kBlocksOfPiece * kTileBytes));
        free_.reserve(pieces_.size() * kBlocksOfPiece);
        for (std::size_t i = kBlocksOfPiece; i-- > 0;) free_.push_back(pieces_.back().get() + i * kTileBytes);
    }
    std::uint8_t* block = free_.back();
    free_.pop_back();
    return block;
}

void TileStore::Clear() {
    free_.clear();
    pieces_.clear();
}

}  // namespace kelu
