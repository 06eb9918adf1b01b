// Feeds any bytes to the reader of recipes and journals and replays what it makes of them on a small picture. What is
// read must be a prefix, give the same when written and read again, and end soon. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <cstdlib>

#include "document/replay.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"

namespace {

// Keep one round short; more differ in nothing but number.
constexpr std::size_t kMostSteps = 2000;
constexpr std::size_t kMostRenders = 3;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelu;
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const Recipe recipe = ReadRecipeText(text);
    if (recipe.certainBytes > text.size()) std::abort();
    if (recipe.size.isEmpty() || recipe.steps.size() > kMostSteps || recipe.renders.size() > kMostRenders) return 0;

    const Recipe again = ReadRecipeText(HeaderLine(false) + LinesOf(recipe));
    if (!recipe.file.isEmpty() && (!again.fault.isEmpty() || again.steps.size() != recipe.steps.size())) std::abort();

    QImage picture(61, 47, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    Surfaces surfaces;
    Replay replay(recipe, surfaces, &RenderEffectOn);
    try {
        replay.Open(picture, /*fit=*/true);
        replay.DoAll();
    } catch (const Error& error) {
        if (error.Description().isEmpty()) std::abort();
    }
    return 0;
}
