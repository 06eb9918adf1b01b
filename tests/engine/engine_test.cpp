// Walks the table of effects: every row against its plain definition, on every size, thread count and instruction set.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/instruction_sets.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

class EveryEffect : public testing::TestWithParam<EffectRow> {
 protected:
    void TearDown() override { engine::ForceInstructionSet(""); }

    // Rendered over a target full of other pixels, so that a pixel left out shows.
    Picture Rendered(const Picture& source, int threads = 2) const {
        Picture target = Noise(source.Width(), source.Height(), 60);
        GetParam().render(source.View(), target.Target(), {threads, {}});
        EXPECT_TRUE(target.GuardIntact()) << "wrote outside the pixels";
        return target;
    }

    void ExpectAsDefined(const Picture& source) const {
        if (!GetParam().definition) return;
        Picture expected(source.Width(), source.Height());
        GetParam().definition(source, expected);
        EXPECT_EQ(Difference(Rendered(source), expected, GetParam().tolerance), "");
    }
};

INSTANTIATE_TEST_SUITE_P(Engine, EveryEffect, testing::ValuesIn(AllRows()),
                         [](const auto& info) { return info.param.name; });

TEST_P(EveryEffect, AgreesWithItsDefinition) {
    ExpectAsDefined(Natural(173, 131));
    ExpectAsDefined(Noise(96, 61));
}

TEST_P(EveryEffect, WorksAtEverySmallSize) {
    for (int width = 1; width <= 40; ++width)
        for (const int height : {1, 2, 3, 7}) {
            SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
            ExpectAsDefined(Noise(width, height));
            Rendered(Noise(width, height));
        }
    ExpectAsDefined(Natural(1, 200));
    ExpectAsDefined(Natural(300, 1));
}

TEST_P(EveryEffect, GivesTheSameBytesOnAnyThreadsAndInstructionSet) {
    // Many bands high, so that seven threads all have work.
    for (const Picture& source : {Natural(641, 479), Noise(611, 401)}) {
        const Picture expected = Rendered(source, 1);
        for (const std::string& set : engine::InstructionSets()) {
            engine::ForceInstructionSet(set);
            for (const int threads : {1, 2, 7})
                EXPECT_EQ(Difference(Rendered(source, threads), expected, 0), "") << set << ", threads " << threads;
        }
        engine::ForceInstructionSet("");
        if (!GetParam().keepsAlpha) continue;
        for (int y = 0; y < source.Height(); ++y)
            for (int x = 0; x < source.Width(); ++x) ASSERT_EQ(expected.At(x, y).alpha, source.At(x, y).alpha);
    }
}

}  // namespace
}  // namespace kelu::engine_test
