// Animations made by other programs: our composed frames equal those of an independent decoder, pixel for pixel.
// Needs ImageMagick's convert and gifsicle.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "pictures/gif/frame_composer.h"
#include "tests/support/kit.h"
#include "tests/support/tools.h"

namespace kelu {
namespace {

struct Recipe {
    const char* name;
    const char* script;  // makes a.gif
};

// Three moving shapes on a plasma ground; transparent ground for the kinds of disposal that need it.
#define SHAPES(ground, dispose)                                                                                    \
    "convert -size 90x70 -delay 7 -seed 4 " dispose " " ground                                                     \
    " -fill red -draw 'circle 20,20 30,30' "                                                                       \
    "\\( -clone 0 -fill blue -draw 'rectangle 30,5 60,40' \\) \\( -clone 0 -fill lime -draw 'ellipse 50,40 30,12 " \
    "0,360' \\) "                                                                                                  \
    "\\( -clone 1 -fill yellow -draw 'polygon 5,60 80,65 40,20' \\) -loop 4 "

class IndependentGif : public testing::TestWithParam<Recipe> {
 protected:
    void SetUp() override { KELU_NEEDS("convert", "gifsicle"); }

    bool Run(const QString& script) {
        QProcess process;
        process.setWorkingDirectory(folder_.path());
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start("sh", {"-c", script});
        return process.waitForFinished(60000) && process.exitCode() == 0;
    }

    QTemporaryDir folder_;
};

TEST_P(IndependentGif, ComposesLikeTheIndependentDecoder) {
    ASSERT_TRUE(Run(GetParam().script));
    // The independent decoder's screens, on the page of the file.
    ASSERT_TRUE(Run("convert a.gif -coalesce +adjoin -scene 0 PNG32:screen%d.png"));
    FrameStrip strip;
    ASSERT_GT(strip.Load(ReadBytes(folder_.filePath("a.gif"))), 0);
    strip.LoadRest();
    FrameComposer composer(strip);
    for (int frame = 1; frame <= strip.FrameCount(); ++frame) {
        QImage expected(folder_.filePath(QString("screen%1.png").arg(frame - 1)));
        ASSERT_FALSE(expected.isNull()) << frame;
        expected = expected.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const QImage screen = composer.Compose(frame);
        // Our screen ends where the frames end; behind that the page of the file must be empty.
        ASSERT_EQ(screen.size().boundedTo(expected.size()), screen.size());
        int different = 0;
        for (int y = 0; y < expected.height(); ++y) {
            for (int x = 0; x < expected.width(); ++x) {
                different += (screen.valid(x, y) ? screen.pixel(x, y) : 0) != expected.pixel(x, y);
            }
        }
        EXPECT_EQ(different, 0) << "frame " << frame << " of " << strip.FrameCount();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Programs, IndependentGif,
    testing::Values(
        Recipe{"Plain", SHAPES("plasma:tan", "") "a.gif"},
        Recipe{"OptimizedLayers", SHAPES("plasma:tan", "") "-layers optimize a.gif"},
        Recipe{"OptimizedTransparency", SHAPES("plasma:tan", "") "-layers OptimizeTransparency a.gif"},
        Recipe{"TransparentGround", SHAPES("xc:none", "-dispose none") "a.gif"},
        Recipe{"BackgroundDisposal", SHAPES("xc:none", "-dispose background") "a.gif"},
        Recipe{"PreviousDisposal", SHAPES("xc:none", "-dispose previous") "a.gif"},
        Recipe{"OptimizedBackground", SHAPES("xc:none", "-dispose background") "-layers optimize a.gif"},
        Recipe{"Interlaced", SHAPES("plasma:tan", "") "-interlace GIF a.gif"},
        Recipe{"GifsicleO3", SHAPES("plasma:tan", "") "b.gif && gifsicle -O3 b.gif -o a.gif"},
        Recipe{"GifsicleInterlacedFewColours", SHAPES("plasma:tan", "") "b.gif && gifsicle -O2 -i -k 6 b.gif -o a.gif"},
        Recipe{"GifsicleUnoptimized", SHAPES("xc:none", "-dispose background") "b.gif && gifsicle -U b.gif -o a.gif"},
        Recipe{"LargeNoiseFillsTheTable", "convert -size 400x300 -seed 2 xc:gray +noise random -colors 256 a.gif"},
        Recipe{"TwoColours", "convert -size 61x47 -seed 2 pattern:checkerboard -colors 2 a.gif"},
        Recipe{"DifferingSizes",
               "convert -delay 5 \\( -size 80x60 plasma:red-blue \\) \\( -size 20x30 xc:lime -repage 80x60+50+20 \\) "
               "\\( -size 33x9 plasma:white-black -repage 80x60+1+51 \\) a.gif"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace kelu
