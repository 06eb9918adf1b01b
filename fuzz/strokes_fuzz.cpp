// Feeds any bytes to the reader of strokes files and paints what it makes of them on a small picture. Each must end
// soon, change nothing outside the strokes' reach, and take back all by undo. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <cstdlib>

#include "canvas/surface.h"
#include "cli/strokes.h"
#include "platform/error.h"

namespace {

// Keeps one round short; more points differ in nothing but number.
constexpr std::size_t kMostPoints = 2000;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<kelu::cli::Stroke> strokes;
    try {
        strokes = kelu::cli::ReadStrokes(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    } catch (const kelu::Error& error) {
        if (error.Description().isEmpty()) std::abort();
        return 0;
    }
    std::size_t points = 0;
    for (const kelu::cli::Stroke& stroke : strokes) {
        if (stroke.size < 1 || stroke.size > 100 || stroke.points.empty()) std::abort();
        points += stroke.points.size();
    }
    if (points > kMostPoints) return 0;
    kelu::Surface pen;
    kelu::Surface canvas;
    pen.CreateBlank(150, 90, 24, Qt::red);
    canvas.CreateBlank(150, 90, 24, Qt::blue);
    const QImage before = canvas.Picture();
    kelu::cli::PaintStrokes(strokes, pen, canvas);
    for (std::size_t level = 0; level < strokes.size(); ++level) canvas.Undo();
    if (canvas.Picture() != before) std::abort();
    return 0;
}
