// A program that is killed while it saves, at moments all over the save, in every format: the file is the old one or
// the new one, whole.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace {

constexpr int kMoments = 16;

struct KilledSave : testing::TestWithParam<const char*> {
    QTemporaryDir folder;
    const QString picture = folder.filePath("picture.bmp");
    const QString target = folder.filePath(QStringLiteral("target.") + GetParam());

    /// Starts a save and kills it after so many milliseconds; below 0 lets it end. Returns what it took.
    qint64 Save(qint64 killAfter) const {
        QElapsedTimer timer;
        timer.start();
        QProcess process;
        process.start(QStringLiteral(KELU_CLI), {"convert", picture, target, "--force"});
        EXPECT_TRUE(process.waitForStarted());
        if (killAfter >= 0) {
            QThread::msleep(static_cast<unsigned long>(killAfter));
            process.kill();
        }
        EXPECT_TRUE(process.waitForFinished(30000));
        return timer.elapsed();
    }
    QByteArray Target() const {
        QFile file(target);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

INSTANTIATE_TEST_SUITE_P(Formats, KilledSave, testing::Values("bmp", "png", "gif", "jpg", "tif", "pdf"));

TEST_P(KilledSave, LeavesTheOldFileOrTheNewOne) {
    QImage image(600, 450, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x / 3, y / 2, (x / 8 * y / 8) % 251));
    ASSERT_TRUE(image.save(picture));
    const qint64 whole = Save(-1);
    const QByteArray fresh = Target();
    ASSERT_GT(fresh.size(), 10000);
    const QByteArray old(50000, 'o');

    int killedBefore = 0;
    for (int moment = 0; moment < kMoments; ++moment) {
        QFile file(target);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(old), old.size());
        file.close();
        Save(whole * (moment + 1) / kMoments);
        const QByteArray now = Target();
        // A PDF holds the time of its making.
        const bool isNew = now.endsWith("%%EOF\n") ? now.size() == fresh.size() : now == fresh;
        ASSERT_TRUE(now == old || isNew) << moment << ": " << now.size() << " bytes of " << fresh.size();
        killedBefore += now == old;
    }
    EXPECT_GT(killedBefore, 0) << "no kill fell before the end of a save";
    // Only a kill between naming and renaming can leave something, and its name tells what it is.
    for (const QString& entry : QDir(folder.path()).entryList(QDir::Files | QDir::Hidden))
        EXPECT_TRUE(entry == "picture.bmp" || entry.startsWith("target.") || entry.startsWith(".kelu-"))
            << qPrintable(entry);
}

}  // namespace
