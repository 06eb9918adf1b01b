// The toolbar's button pictures: one for each effect, drawn aside while the interface thread goes on.
// SPDX-License-Identifier: MIT
#include "effects/effect_pictures.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <set>

#include "effects/catalogue/catalogue.h"
#include "engine/copy.h"
#include "tests/effects/sample_picture.h"

namespace kelu {
namespace {

const int kAll = static_cast<int>(Catalogue().size());

// The part of a button picture that holds the photograph, without its rounded rim.
QImage Photo(const QImage& picture, int ratio) { return picture.copy(8 * ratio, 8 * ratio, 100 * ratio, 62 * ratio); }

TEST(EffectPictures, EveryEffectCanBeToldFromThePlainPhotographAndFromTheOthers) {
    const QImage photograph = SamplePicture(200, 180);
    const Effect copy{.listText = "", .render = [](auto& source, auto& target, auto&, auto& run) {
                          engine::Copy(source, target, run);
                      }};
    for (int ratio : {1, 2}) {
        const QImage plain = Photo(DrawEffectPicture(copy, photograph, ratio), ratio);
        std::set<QByteArray> seen{QByteArray(reinterpret_cast<const char*>(plain.constBits()), plain.sizeInBytes())};
        for (const Effect& effect : Catalogue()) {
            const QImage picture = DrawEffectPicture(effect, photograph, ratio);
            EXPECT_EQ(picture.size(), kEffectPictureSize * ratio);
            EXPECT_EQ(picture.devicePixelRatio(), ratio);
            const QImage photo = Photo(picture, ratio);
            EXPECT_TRUE(
                seen.insert(QByteArray(reinterpret_cast<const char*>(photo.constBits()), photo.sizeInBytes())).second)
                << effect.listText << " looks like another one";
        }
    }
}

TEST(EffectPictures, ArriveInOrderAlsoWithoutAPhotograph) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("photo.png"));
    ASSERT_TRUE(SamplePicture(300, 200).save(path));
    for (const QString& photograph : {path, folder.filePath(QStringLiteral("missing.png"))}) {
        EffectPictures pictures;
        QSignalSpy ready(&pictures, &EffectPictures::PictureReady);
        pictures.Start(photograph, 1);
        while (ready.count() < kAll) ASSERT_TRUE(ready.wait(10000));
        for (int i = 0; i < kAll; ++i) {
            EXPECT_EQ(ready[i][0].toInt(), i + 1);
            EXPECT_EQ(ready[i][1].value<QImage>().size(), kEffectPictureSize);
        }
    }
}

TEST(EffectPictures, StartingOverAndLeavingEarlyEndTheRunBefore) {
    EffectPictures pictures;
    QSignalSpy ready(&pictures, &EffectPictures::PictureReady);
    pictures.Start(QStringLiteral("missing.png"), 1);
    pictures.Start(QStringLiteral("missing.png"), 2);
    while (ready.count() < kAll) ASSERT_TRUE(ready.wait(10000));
    EXPECT_EQ(ready.count(), kAll);
    EXPECT_EQ(ready[0][1].value<QImage>().devicePixelRatio(), 2);
    pictures.Start(QStringLiteral("missing.png"), 2);  // left behind by the destructor
}

}  // namespace
}  // namespace kelu
