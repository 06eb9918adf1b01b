// What stored texts mean, and that texts without a meaning survive.
// SPDX-License-Identifier: MIT
#include "document/settings.h"

#include <gtest/gtest.h>

#include "tests/support/memory_settings.h"

namespace kelu {
namespace {

TEST(Settings, WholeNumbersStayInTheirRange) {
    const NumberSetting small{{"Test", "Small"}, 1, -0x8000, 0x7FFF};
    const NumberSetting any{{"Test", "Any"}, 0};
    const struct {
        const char* text;
        int small, any;
    } rows[] = {
        {"7", 7, 7},
        {" -12x", -12, -12},
        {"+3.9", 3, 3},
        {"", 0, 0},
        {"x", 0, 0},
        {"65537", 0x7FFF, 65537},
        {"-65537", -0x8000, -65537},
        {"2147483648", 0x7FFF, 2147483647},
        {"-2147483648", -0x8000, -2147483647 - 1},
        {"99999999999999999999", 0x7FFF, 2147483647},
        {"-99999999999999999999", -0x8000, -2147483647 - 1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(small.Parse(row.text), row.small) << row.text;
        EXPECT_EQ(any.Parse(row.text), row.any) << row.text;
    }
}

TEST(Settings, TextsWithoutAMeaningAreNoValueAndNothingIsWrittenByReading) {
    MemorySettings settings;
    EXPECT_EQ(settings.Read(settings::kCursorStyle), CursorStyle::Brush);
    EXPECT_EQ(settings.Read(settings::kReminder), true);
    EXPECT_EQ(settings.ReadText(settings::kReminder.key, "none"), "none") << "reading wrote the default";
    for (const char* text : {"0", "4", "01", "one", ""}) {
        settings.WriteText(settings::kCursorStyle.key, text);
        EXPECT_EQ(settings.Read(settings::kCursorStyle), std::nullopt) << text;
    }
    settings.WriteText(settings::kReminder.key, "2");
    EXPECT_EQ(settings.Read(settings::kReminder), std::nullopt);
    settings.Write(settings::kReminder, false);
    EXPECT_EQ(settings.Read(settings::kReminder), false);
    settings.Write(settings::kCursorStyle, CursorStyle::Cross);
    EXPECT_EQ(settings.ReadText(settings::kCursorStyle), "3");
}

}  // namespace
}  // namespace kelu
