// Memory for saved tiles.
// SPDX-License-Identifier: MIT
#include "canvas/tile_store.h"

#include <chrono>
#include <utility>

#include "engine/pixel_memory.h"
#include "platform/error.h"
#include "platform/pool_job.h"

namespace kelu {
namespace {

constexpr std::size_t kBlocksOfPiece = 256;  // 4 MiB
constexpr std::size_t kFew = kBlocksOfPiece / 2;
constexpr std::size_t kPage = 4096;

}  // namespace

std::uint8_t* TileStore::Take() {
    if (free_.empty()) {
        pieces_.push_back(NextPiece());
        free_.reserve(pieces_.size() * kBlocksOfPiece);
        for (std::size_t i = kBlocksOfPiece; i-- > 0;) free_.push_back(pieces_.back().get() + i * kTileBytes);
    }
    Prepare();
    std::uint8_t* block = free_.back();
    free_.pop_back();
    return block;
}

void TileStore::Prepare() {
    if (free_.size() >= kFew || next_.valid()) return;
    const auto make = std::make_shared<std::packaged_task<Piece()>>([] {
        Piece piece = FreshPiece();
        // The system gives a page at its first touch, and a large one can take as long as many moves of a stroke.
        for (std::size_t at = 0; at < kBlocksOfPiece * kTileBytes; at += kPage) piece.get()[at] = 0;
        return piece;
    });
    next_ = make->get_future();
    StartJob([make] { (*make)(); });
}

void TileStore::Clear() {
    free_.clear();
    pieces_.clear();
    next_ = {};
}

TileStore::Piece TileStore::FreshPiece() { return engine::TakePixelMemory(kBlocksOfPiece * kTileBytes); }

TileStore::Piece TileStore::NextPiece() {
    Piece piece;
    if (next_.valid() && next_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        Attempt([&] { piece = std::exchange(next_, {}).get(); });
    return piece ? piece : FreshPiece();
}

}  // namespace kelu
