// Joins the rows of all families.
// SPDX-License-Identifier: MIT
#include "tests/engine/effect_rows.h"

#include <utility>

namespace kelu::engine_test {

Definition EachPixel(ColorDefinition color) {
    return [color = std::move(color)](const Picture& source, Picture& expected) {
        for (int y = 0; y < source.Height(); ++y) {
            for (int x = 0; x < source.Width(); ++x) {
                const auto [red, green, blue] = color(source, x, y);
                expected.Set(x, y, {Rounded(red), Rounded(green), Rounded(blue), source.At(x, y).alpha});
            }
        }
    };
}

std::vector<EffectRow> AllRows() {
    std::vector<EffectRow> rows;
    for (const auto& family : {
             AroundPointRows,
             BorderRows,
             ChannelMapRows,
             LumaMapRows,
             NeighbourhoodRows,
             NeutralRows,
             RandomRows,
             ScatterRows,
             WarpRows,
             WindowRows,
         })
        for (EffectRow& row : family()) rows.push_back(std::move(row));
    return rows;
}

}  // namespace kelu::engine_test
