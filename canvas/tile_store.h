// Memory for saved tiles: blocks of one size, cut from large pieces and used again, since fresh memory costs more than
// the copy into it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <future>
#include <memory>
#include <vector>

namespace kelu {

class TileStore {
 public:
    static constexpr int kTile = 64;  ///< side in pixels
    static constexpr std::size_t kTileBytes = std::size_t{kTile} * kTile * 4;

    /// A block of kTileBytes, contents undefined. Throws std::bad_alloc.
    std::uint8_t* Take();
    void Give(std::uint8_t* block) { free_.push_back(block); }
    /// Has a worker make the next piece where few blocks are left, so that a stroke need not wait for it.
    void Prepare();
    /// Returns all memory; every block becomes invalid.
    void Clear();

 private:
    using Piece = std::shared_ptr<std::uint8_t>;

    static Piece FreshPiece();
    Piece NextPiece();

    std::vector<Piece> pieces_;
    std::vector<std::uint8_t*> free_;
    std::future<Piece> next_;  ///< under way or done; not valid: none
};

}  // namespace kelu
