// How long pictures take to and from files, beside the toolkit's own readers and writers. Memory files only, so that
// no disk is measured. KELU_BENCH_PICTURE names a photograph to use in place of the made one.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>
#include <random>

#include "output/pdf/pdf_export.h"
#include "pictures/area_scaler.h"
#include "pictures/picture.h"
#include "pictures/picture_file.h"

namespace {

using namespace kelu;

// Soft shapes with the noise of a camera.
QImage MakePhotograph(int width, int height) {
    const QString given = qEnvironmentVariable("KELU_BENCH_PICTURE");
    if (!given.isEmpty()) return ScalePicture(ReadPicture(given), QSize(width, height));
    QImage image = MakePicture(width, height, QImage::Format_RGB32);
    std::mt19937 random(1);
    std::vector<int> noise(1 << 16);
    std::normal_distribution<double> normal(0, 2.5);
    for (int& n : noise) n = qRound(normal(random));
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const auto wave = [&](double fx, double fy) { return 127 + 90 * std::sin(x * fx + std::cos(y * fy) * 3); };
            const int n = noise[static_cast<unsigned>(random()) & 0xffff];
            row[x] =
                qRgb(qBound(0, qRound(wave(0.011, 0.007)) + n, 255), qBound(0, qRound(wave(0.005, 0.013)) + n, 255),
                     qBound(0, qRound(wave(0.008, 0.004)) + n, 255));
        }
    }
    return image;
}

const QImage& Photograph() {
    static const QImage picture = MakePhotograph(4000, 3000);
    return picture;
}

QString Folder() {
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/kelu-XXXXXX"));
    return folder.path();
}

void Write(benchmark::State& state, const char* extension) {
    const QString path = Folder() + QLatin1String("/out.") + QLatin1String(extension);
    Photograph();
    for (auto _ : state) WritePicture(Photograph(), path);
    state.counters["MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
}

void WriteByQt(benchmark::State& state, const char* extension) {
    const QString path = Folder() + QLatin1String("/qt.") + QLatin1String(extension);
    Photograph();
    for (auto _ : state) {
        QImageWriter writer(path);
        if (qstrcmp(extension, "jpg") == 0) writer.setQuality(92);
        writer.write(Photograph());
    }
    state.counters["MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
}

QString Sample(const char* extension) {
    const QString path = Folder() + QLatin1String("/in.") + QLatin1String(extension);
    if (!QFile::exists(path)) WritePicture(Photograph(), path);
    return path;
}

void Read(benchmark::State& state, const char* extension) {
    const QString path = Sample(extension);
    for (auto _ : state) benchmark::DoNotOptimize(ReadPicture(path));
}

void ReadByQt(benchmark::State& state, const char* extension) {
    const QString path = Sample(extension);
    QImageReader::setAllocationLimit(0);
    for (auto _ : state) benchmark::DoNotOptimize(QImage(path));
}

void WriteAsPdf(benchmark::State& state) {
    const QString path = Folder() + QStringLiteral("/out.pdf");
    Photograph();
    for (auto _ : state) WritePdf(Photograph(), path, {});
    state.counters["MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
}

void Thumbnail(benchmark::State& state) {
    const QString path = Sample("jpg");
    for (auto _ : state) benchmark::DoNotOptimize(ReadThumbnail(path, QSize(160, 120)));
}

// The whole picture for a view of a thousand pixels.
void ScaleToView(benchmark::State& state) {
    const auto side = static_cast<int>(state.range(0));
    const QImage picture = MakePhotograph(side * 4 / 3, side);
    const QSize view(1000, 750);
    QImage target = MakePicture(view.width(), view.height(), QImage::Format_RGB32);
    for (auto _ : state) ScaleArea(picture, view, QRect(QPoint(), view), target, QPoint());
}

#define KELU_FORMAT(name)                                                                   \
    BENCHMARK_CAPTURE(Read, name, #name)->Unit(benchmark::kMillisecond)->UseRealTime();     \
    BENCHMARK_CAPTURE(ReadByQt, name, #name)->Unit(benchmark::kMillisecond)->UseRealTime(); \
    BENCHMARK_CAPTURE(Write, name, #name)->Unit(benchmark::kMillisecond)->UseRealTime();    \
    BENCHMARK_CAPTURE(WriteByQt, name, #name)->Unit(benchmark::kMillisecond)->UseRealTime()
KELU_FORMAT(bmp);
KELU_FORMAT(jpg);
KELU_FORMAT(png);
KELU_FORMAT(tif);
BENCHMARK_CAPTURE(Read, gif, "gif")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(ReadByQt, gif, "gif")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Write, gif, "gif")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WriteAsPdf)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Thumbnail)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ScaleToView)->Arg(3000)->Arg(8660)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
