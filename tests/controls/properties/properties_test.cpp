// What the four controls that a host stores keep, and what they refuse to read: one table.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFont>
#include <QPixmap>
#include <functional>

#include "controls/animated_gif/uc_ani_gif.h"
#include "controls/progress_bar/xp_progress_bar.h"
#include "controls/property_bag/property_bag.h"
#include "controls/scroller/scroller.h"
#include "controls/slider/ls_slider.h"
#include "platform/error.h"

namespace kelu {
namespace {

using Values = std::vector<std::pair<const char*, QVariant>>;

template <typename Control>
std::function<PropertyBag(const PropertyBag&)> Through() {
    return [](const PropertyBag& bag) {
        Control control;
        control.ReadProperties(bag);
        PropertyBag written;
        control.WriteProperties(written);
        return written;
    };
}

PropertyBag Bag(const Values& values) {
    PropertyBag bag;
    for (const auto& [name, value] : values) bag.WriteProperty(QString::fromLatin1(name), value);
    return bag;
}

QVariant Picture() {
    QPixmap picture(12, 12);
    picture.fill(Qt::blue);
    return PictureProperty(picture);
}

QVariant SmallFont() {
    QFont font;
    font.setPixelSize(9);
    return font;
}

TEST(Properties, AreKeptInTheirOrderAndLeftOutAtTheirDefaults) {
    struct Row {
        const char* control;
        std::function<PropertyBag(const PropertyBag&)> through;
        Values values;  ///< one other than its default for each, in the order of writing
    };
    const Row rows[] = {
        {"slider",
         Through<LsSlider>(),
         {{"BackColor", 0x333333u},
          {"Enabled", false},
          {"SliderIcon", Picture()},
          {"Orientation", 0},
          {"RailPicture", Picture()},
          {"RailStyle", 2},
          {"ShowValueTip", false},
          {"Min", 1},
          {"Max", 100},
          {"Value", 50}}},
        {"progress bar",
         Through<XP_ProgressBar>(),
         {{"Font", SmallFont()},
          {"BrushStyle", 5},
          {"Color", 0xC02000u},
          {"Image", Picture()},
          {"Max", 200},
          {"Min", 1},
          {"Orientation", 1},
          {"Scrolling", 7},
          {"ShowText", true},
          {"Value", 50}}},
        {"scroller", Through<Scroller>(), {{"BackColor", 0x332211u}}},
        {"animated GIF",
         Through<ucAniGIF>(),
         {{"Delay", 70},
          {"Stretch", 3},
          {"DelayLoad", 2},
          {"Mirror", 2},
          {"MouseIcon", Picture()},
          {"MousePointer", 2},
          {"Enabled", false}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.control);
        EXPECT_TRUE(row.through({}).Names().isEmpty() || row.through({}).Names() == QStringList{"Color"});
        const PropertyBag given = Bag(row.values);
        const PropertyBag kept = row.through(given);
        EXPECT_EQ(kept.Names(), given.Names());
        for (const auto& [name, value] : row.values) {
            // Pictures don't compare; a bar keeps its value as a percent to which the minimum was added.
            if (value.typeId() == QMetaType::QPixmap || (kept.Contains("BrushStyle") && !qstrcmp(name, "Value")))
                continue;
            EXPECT_EQ(kept.ReadProperty(QString::fromLatin1(name)), value) << name;
        }
    }
}

TEST(Properties, OutOfTheirRangesAreRefusedOrReadAsTheirDefaults) {
    EXPECT_THROW(Through<LsSlider>()(Bag({{"Value", 200}})), Error);
    EXPECT_THROW(Through<LsSlider>()(Bag({{"Min", 10}, {"Max", 10}})), Error);
    EXPECT_EQ(Through<ucAniGIF>()(Bag({{"Stretch", 5}, {"DelayLoad", -1}, {"Mirror", 4}})).Names(), QStringList());
}

}  // namespace
}  // namespace kelu
