// Recipes on the command line: the same picture as the first version made, other sizes, films, and hostile recipes.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "pictures/gif/frame_composer.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

/// Recipes of tests/cli/data and the SHA-1 of the pixels that they gave when they were written.
constexpr const char* kKept[][2] = {{"first.kelu", "5e64e8f5b01a9f0f34a7753593473c4753d0d412"},
                                    {"second.kelu", "c08c93ec8291b0658e66af4e24eecafcceaf0e2e"}};

struct ReplayCommand : testing::Test {
    QTemporaryDir folder;
    QByteArray output, error;

    QString Path(const QString& name) const { return folder.filePath(name); }
    void SetUp() override {
        MakePattern("pattern.png", 160, 120);
        MakePattern("my paint.png", 170, 100);
        for (const auto& [name, sum] : kKept)
            QFile::copy(QStringLiteral(KELU_SOURCE_DIR "/tests/cli/data/%1").arg(name), Path(name));
    }
    void MakePattern(const QString& name, int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x / 8 + y / 8) % 2 * 200 + x % 8 * 6));
        ASSERT_TRUE(image.save(Path(name)));
    }
    int Run(const QStringList& words, const QByteArray& input = {}) {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(QStringLiteral(KELU_CLI), QStringList{"replay"} + words);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60000));
        output = process.readAllStandardOutput();
        error = process.readAllStandardError();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
};

TEST_F(ReplayCommand, GivesThePicturesOfEarlierVersions) {
    for (const auto& [name, sum] : kKept) {
        ASSERT_EQ(Run({name, "out.png", "--force"}), 0) << error.constData();
        const QImage out = QImage(Path("out.png")).convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(out.size(), QSize(160, 120));
        const QByteArray pixels(reinterpret_cast<const char*>(out.constBits()), out.sizeInBytes());
        EXPECT_EQ(QCryptographicHash::hash(pixels, QCryptographicHash::Sha1).toHex().toStdString(), sum)
            << name << ": an effect computes something else: raise kEffectDefinitions";
    }
}

TEST_F(ReplayCommand, FitsOtherSizesWhenAsked) {
    MakePattern("wide.png", 320, 120);
    WriteBytes(Path("dot.kelu"),
               "kelu recipe 1 effects 3\nfile pattern.png\nopen 160x120\napply 32\nbrush 10\nstroke 40,60 41,60\n");
    EXPECT_EQ(Run({"dot.kelu", "wide.png", "out.png"}), 1);
    EXPECT_TRUE(error.contains("320 x 120")) << error.constData();
    ASSERT_EQ(Run({"dot.kelu", "wide.png", "out.png", "--fit"}), 0) << error.constData();
    const QImage before(Path("wide.png"));
    const QImage after(Path("out.png"));
    EXPECT_NE(after.pixel(82, 60), before.pixel(82, 60));
    EXPECT_EQ(after.pixel(40, 60), before.pixel(40, 60));
}

TEST_F(ReplayCommand, ReadsARecipeFromAPipeOnceForAllItsPictures) {
    MakePattern("second.png", 160, 120);
    const QByteArray start = "kelu recipe 1 effects 3\nfile pattern.png\nopen 160x120\napply 32\nbrush 10\n";
    const QStringList words{"/dev/stdin", "pattern.png", "second.png", "--out-dir", "out", "--resume", "--json"};
    ASSERT_EQ(Run(words, start + "stroke 40,60 41,60\n"), 0) << error.constData();
    const QByteArray first[] = {ReadBytes(Path("out/pattern.png")), ReadBytes(Path("out/second.png"))};
    ASSERT_EQ(Run(words, start + "stroke 40,60 41,60\n"), 0) << error.constData();
    EXPECT_EQ(output.count("\"skipped\""), 2) << output.constData();
    ASSERT_EQ(Run(words, start + "stroke 90,60 91,60\n"), 0) << error.constData();
    EXPECT_EQ(output.count("\"skipped\""), 0) << output.constData();
    EXPECT_NE(ReadBytes(Path("out/pattern.png")), first[0]);
    EXPECT_NE(ReadBytes(Path("out/second.png")), first[1]);
}

TEST_F(ReplayCommand, FilmsGrowFromThePhotographToTheResult) {
    ASSERT_EQ(Run({"first.kelu", "out.png"}), 0);
    ASSERT_EQ(Run({"first.kelu", "--film", "film.gif"}), 0) << error.constData();
    FrameStrip strip;
    ASSERT_GT(strip.Load(ReadBytes(Path("film.gif"))), 8);
    strip.LoadRest();
    int time = 0;
    for (int frame = 1; frame <= strip.FrameCount(); ++frame) time += strip.Frame(frame).DelayMs;
    EXPECT_LE(time, 12000);
    EXPECT_GE(strip.Frame(strip.FrameCount()).DelayMs, 1000);
    FrameComposer composer(strip);
    const auto distance = [](const QImage& a, const QImage& b) {
        double sum = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
        return sum / (a.width() * a.height());
    };
    EXPECT_LT(distance(composer.Compose(1), QImage(Path("pattern.png"))), 10);
    EXPECT_LT(distance(composer.Compose(strip.FrameCount()), QImage(Path("out.png"))), 10);
    EXPECT_GT(distance(composer.Compose(1), composer.Compose(strip.FrameCount())), 12);
}

TEST_F(ReplayCommand, RefusesHostileRecipesInOneLine) {
    const QByteArray start = "kelu recipe 1 effects 3\nfile pattern.png\nopen 160x120\n";
    const QByteArray texts[] = {
        "",
        "{\"strokes\": []}",
        "kelu recipe 2 effects 3\n",
        "kelu recipe 1 effects 3\nfile pattern.png\n",
        start + "open 3x3\n",
        start + "apply\n",
        start + "apply 49\n",
        start + "apply 33 s1=101\n",
        start + "apply 33 s1=1e9\n",
        start + "apply 1 choice=3\n",
        start + "brush 1000\n",
        start + "brush -1\n",
        start + "stroke\n",
        start + "stroke 1,2 3\n",
        start + "stroke 99999999999,0\n",
        start + "kept ../../pattern.png 24\n",
        start + "paint 10 0 ..%2fpattern.png 24\n",
        start + "paint 10 0 none.png 24\n",
        start + "undo\n",
        start + "\x01\xff\n",
        "kelu journal 1 effects 3\nfile pattern.png\nopen 160x120\n",
    };
    for (const QByteArray& text : texts) {
        WriteBytes(Path("bad.kelu"), text);
        EXPECT_EQ(Run({"bad.kelu", "pattern.png", "out.png"}), 1) << text.constData();
        EXPECT_EQ(error.count('\n'), 1) << error.constData();
        EXPECT_FALSE(QFile::exists(Path("out.png"))) << text.constData();
    }
}

}  // namespace
}  // namespace kelu
