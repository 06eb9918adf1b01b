// Reading of strokes files: what is taken, what is refused.
// SPDX-License-Identifier: MIT
#include "cli/strokes.h"

#include <gtest/gtest.h>

#include "platform/error.h"

namespace kelu::cli {
namespace {

TEST(Strokes, ReadsSizesAndPoints) {
    const auto strokes = ReadStrokes(R"({"strokes": [{"size": 50, "points": [[1, 2], [-3, 4.5]]},
                                                     {"size": 1, "points": [[0, 0]]}], "note": "other keys are free"})");
    ASSERT_EQ(strokes.size(), 2u);
    EXPECT_EQ(strokes[0].size, 50);
    EXPECT_EQ(strokes[0].points, (std::vector<QPoint>{{1, 2}, {-3, 4}}));
    EXPECT_EQ(strokes[1].points.size(), 1u);
    EXPECT_TRUE(ReadStrokes(R"({"strokes": []})").empty());
}

TEST(Strokes, RefusesWhatIsNone) {
    for (const char* text : {
             "",
             "{",
             "[]",
             "{}",
             R"({"strokes": 1})",
             R"({"strokes": [1]})",
             R"({"strokes": [{"size": 0, "points": [[1, 1]]}]})",
             R"({"strokes": [{"size": 101, "points": [[1, 1]]}]})",
             R"({"strokes": [{"size": "5", "points": [[1, 1]]}]})",
             R"({"strokes": [{"size": 5}]})",
             R"({"strokes": [{"size": 5, "points": []}]})",
             R"({"strokes": [{"size": 5, "points": [[1]]}]})",
             R"({"strokes": [{"size": 5, "points": [[1, "2"]]}]})",
             R"({"strokes": [{"size": 5, "points": [[1, 1e300]]}]})",
         })
        EXPECT_THROW(ReadStrokes(text), Error) << text;
}

}  // namespace
}  // namespace kelu::cli
