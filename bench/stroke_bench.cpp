// What painting costs: press, move, undo and redo, on the surface alone and up to the repainted widget, beside the bare
// copy of the same spans.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <cstring>
#include <random>

#include "canvas/surface.h"
#include "pictures/picture.h"
#include "view/image_x.h"

namespace {

using namespace kelu;

constexpr int kSize = 100;
constexpr int kMove = 10;

struct Place {
    int x1, y1, x2, y2;
};

// Segments at random places and angles, as a median of real strokes.
std::vector<Place> RandomPlaces(const QSize& size, int length) {
    std::mt19937 random(7);
    std::vector<Place> places;
    for (int i = 0; i < 512; ++i) {
        const double angle = static_cast<double>(random()) * 6.283 / 4294967296.0;
        const int x = static_cast<int>(random() % static_cast<unsigned>(size.width()));
        const int y = static_cast<int>(random() % static_cast<unsigned>(size.height()));
        places.push_back({x, y, x + qRound(length * std::cos(angle)), y + qRound(length * std::sin(angle))});
    }
    return places;
}

struct Scene {
    explicit Scene(int megapixels) {
        const int width = qRound(std::sqrt(megapixels * 1e6 * 4 / 3));
        const int height = width * 3 / 4;
        pen.CreateBlank(width, height, 24, Qt::blue);
        canvas.CreateBlank(width, height, 24, Qt::gray);
        canvas.SelectBrush(pen.MakeBrush(kSize));
        size = QSize(width, height);
    }
    Surface pen, canvas;
    QSize size;
};

void CopySpans(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    const QImage paint = scene.pen.Picture();
    QImage canvas = CopyPicture(scene.canvas.Picture());
    const auto places = RandomPlaces(scene.size, kMove);
    std::size_t i = 0;
    for (auto _ : state) {
        const Place& p = places[++i % places.size()];
        const Capsule capsule(p.x1, p.y1, p.x2, p.y2, kSize);
        const QRect area = capsule.Bounds() & canvas.rect();
        for (int y = area.top(); y <= area.bottom(); ++y) {
            const auto row = capsule.RowSpan(y);
            const int begin = std::max(0, row.outerBegin);
            const int end = std::min(canvas.width(), row.outerEnd);
            if (begin < end)
                std::memcpy(canvas.scanLine(y) + std::ptrdiff_t{begin} * 4,
                            paint.constScanLine(y) + std::ptrdiff_t{begin} * 4, static_cast<size_t>(end - begin) * 4);
        }
    }
}

// Each move at a new place: every tile has to be saved first, which a real stroke does for one move in several.
void MoveElsewhere(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    const auto places = RandomPlaces(scene.size, kMove);
    std::size_t i = 0;
    for (auto _ : state) {
        if (++i % 64 == 0) scene.canvas.PushUndo();
        const Place& p = places[i % places.size()];
        scene.canvas.DrawBrushLine(p.x1, p.y1, p.x2, p.y2, 255);
    }
}

// Moves of one stroke after the other, each going on from the last.
template <typename AfterMove>
void Stroke(benchmark::State& state, Scene& scene, AfterMove&& afterMove) {
    int x = 0;
    int y = 200;
    for (auto _ : state) {
        if (x == 0) scene.canvas.PushUndo();
        scene.canvas.DrawBrushLine(x, y, x + kMove, y + 3, 255);
        afterMove();
        x += kMove;
        y += 3;
        if (x >= 1000) {
            x = 0;
            y = 200 + (y * 7) % (scene.size.height() - 500);
        }
    }
}

void Move(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    Stroke(state, scene, [] {});
}

void SoftMove(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    scene.canvas.SetBrushSoftness(50);
    Stroke(state, scene, [] {});
}

struct Screen : Scene {
    explicit Screen(int megapixels) : Scene(megapixels), view(canvas) {
        view.resize(1000, 750);
        view.show();
        QApplication::processEvents();
    }
    ImageX view;
};

void MoveToScreen(benchmark::State& state) {
    Screen screen(static_cast<int>(state.range(0)));
    Stroke(state, screen, [] { QApplication::processEvents(); });
}

void SoftMoveToScreen(benchmark::State& state) {
    Screen screen(static_cast<int>(state.range(0)));
    screen.canvas.SetBrushSoftness(50);
    Stroke(state, screen, [] { QApplication::processEvents(); });
}

/// The mouse moves over the picture with no button down; each move is on the screen.
void Hover(benchmark::State& state, const BrushTip& tip, Screen& screen) {
    screen.view.SetBrushTip(tip);
    int x = 0;
    for (auto _ : state) {
        const QPointF at(100 + x % 800, 100 + x * 7 % 500);
        QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&screen.view, &move);
        QApplication::processEvents();
        x += 3;
    }
}

/// The ring alone, and with the render under it.
void RingToScreen(benchmark::State& state) {
    Screen screen(static_cast<int>(state.range(0)));
    Hover(state, {.size = kSize, .softness = 0, .restores = false, .paint = {}}, screen);
}

void LensToScreen(benchmark::State& state) {
    Screen screen(static_cast<int>(state.range(0)));
    Hover(state, {.size = kSize, .softness = 0, .restores = false, .paint = screen.pen.Picture()}, screen);
}

void Press(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    int y = 100;
    for (auto _ : state) {
        scene.canvas.PushUndo();
        state.PauseTiming();
        scene.canvas.DrawBrushLine(100, y, 1100, y + 50, 255);
        y = 100 + (y + 97) % 2000;
        state.ResumeTiming();
    }
}

void UndoAndRedo(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    scene.canvas.PushUndo();
    for (int x = 100; x < 1100; x += kMove) scene.canvas.DrawBrushLine(x, x / 2, x + kMove, (x + kMove) / 2, 255);
    state.counters["level_bytes"] = static_cast<double>(scene.canvas.UndoBytes());
    for (auto _ : state) {
        scene.canvas.Undo();
        scene.canvas.Redo();
    }
}

#define KELU_STROKE(name) BENCHMARK(name)->Arg(12)->Arg(100)->Unit(benchmark::kMicrosecond)
KELU_STROKE(CopySpans);
KELU_STROKE(MoveElsewhere);
KELU_STROKE(Move);
KELU_STROKE(MoveToScreen);
KELU_STROKE(SoftMove);
KELU_STROKE(SoftMoveToScreen);
KELU_STROKE(RingToScreen);
KELU_STROKE(LensToScreen);
KELU_STROKE(Press)->Iterations(500);
KELU_STROKE(UndoAndRedo);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
