// Feeds any bytes to the reader of recipes and journals and replays what it makes of them on a tiny picture. What is
// read must be a prefix, give the same when written and read again, and end soon. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <cstdlib>

#include "document/replay.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"

namespace {

// Reading is what hostile bytes meet first; one round of it costs microseconds, one render some hundred. More steps and
// renders differ in nothing but number.
constexpr std::size_t kMostSteps = 200;
constexpr std::size_t kMostRenders = 2;
constexpr int kWidth = 13, kHeight = 9;

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

    // A journal of the same lines: no chance bytes have their checks.
    std::uint32_t check = 0;
    const qsizetype first = text.indexOf('\n') + 1;
    const QByteArray lines = HeaderLine(true) + text.mid(first, text.lastIndexOf('\n') + 1 - first);
    const Recipe journal = ReadRecipeText(WithChecks(lines, check));
    if (journal.fault.isEmpty() && journal.check != check) std::abort();

    if (recipe.size.isEmpty() || recipe.steps.size() > kMostSteps || recipe.renders.size() > kMostRenders) return 0;
    const Recipe again = ReadRecipeText(HeaderLine(false) + LinesOf(recipe));
    if (!recipe.file.isEmpty() && (!again.fault.isEmpty() || again.steps.size() != recipe.steps.size())) std::abort();

    static const Photograph kPicture = [] {
        QImage picture(kWidth, kHeight, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        return Photograph{picture};
    }();
    Surfaces surfaces;
    Replay replay(recipe, surfaces, &RenderEffectOn);
    try {
        replay.Open(kPicture, /*fit=*/true);
        replay.DoAll();
    } catch (const Error& error) {
        if (error.Description().isEmpty()) std::abort();
    }
    return 0;
}
