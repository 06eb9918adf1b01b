// The toolbar's button pictures: one for each effect, drawn aside while the interface thread goes on.
// SPDX-License-Identifier: MIT
#include "effects/effect_pictures.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <set>

#include "canvas/surface.h"
#include "document/shared_state.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "engine/copy.h"
#include "pictures/picture.h"
#include "tests/effects/sample_picture.h"

namespace kelu {
namespace {

const int kAll = static_cast<int>(Catalogue().size());

// The part of a button picture that holds the photograph, without its rounded rim.
QImage Photo(const QImage& picture, int ratio) { return picture.copy(8 * ratio, 8 * ratio, 100 * ratio, 62 * ratio); }

TEST(EffectPictures, EveryEffectCanBeToldFromThePlainPhotographAndFromTheOthers) {
    const QImage picture = SamplePicture(200, 180);
    const Effect copy{.listText = "", .render = [](auto& source, auto& target, auto&, auto& run) {
                          engine::Copy(source, target, run);
                      }};
    for (int ratio : {1, 2}) {
        const PreviewPhoto photograph = TakePreview(picture, ratio);
        const QImage plain = Photo(DrawEffectPicture(copy, photograph, ratio), ratio);
        std::set<QByteArray> seen{QByteArray(reinterpret_cast<const char*>(plain.constBits()), plain.sizeInBytes())};
        for (const Effect& effect : Catalogue()) {
            const QImage drawn = DrawEffectPicture(effect, photograph, ratio);
            EXPECT_EQ(drawn.size(), kEffectPictureSize * ratio);
            EXPECT_EQ(drawn.devicePixelRatio(), ratio);
            const QImage photo = Photo(drawn, ratio);
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

TEST(EffectPictures, ShowTheOpenPictureAndWhatIsPaintedOnIt) {
    Surface canvas;
    SharedState state;
    EffectPictures pictures;
    pictures.Follow(canvas, state);
    QSignalSpy ready(&pictures, &EffectPictures::PictureReady);
    pictures.Start(QStringLiteral("missing.png"), 1);
    while (ready.count() < kAll) ASSERT_TRUE(ready.wait(10000));
    const auto shows = [&](const QImage& picture) {
        ready.clear();
        while (ready.count() < kAll) ASSERT_TRUE(ready.wait(10000));
        const QImage expected = DrawEffectPicture(*FindEffect(1), TakePreview(picture, 1), 1);
        EXPECT_EQ(ready[0][1].value<QImage>(), expected);
        EXPECT_NE(expected, DrawEffectPicture(*FindEffect(1), {}, 1));
    };
    canvas.SetPicture(SamplePicture(1200, 700));  // the placeholder of a program without a picture
    EXPECT_FALSE(ready.wait(200) && ready.count() > kAll);
    state.CurrentFileName = QStringLiteral("photo.jpg");
    canvas.SetPicture(SamplePicture(1300, 900));
    shows(SamplePicture(1300, 900));

    QImage patch(600, 500, QImage::Format_RGB32);
    patch.fill(Qt::white);
    canvas.DrawBitmap(patch, 300, 200, 255);
    const uchar* const pixels = canvas.Picture().constBits();
    shows(canvas.Picture());
    canvas.DrawBitmap(patch, 0, 0, 255);
    EXPECT_EQ(canvas.Picture().constBits(), pixels) << "nobody holds the picture that strokes go on with";

    // No room to render in: the buttons stay as they are, and so does the program.
    const auto most = MaxPicturePixels();
    SetMaxPicturePixels(1000);
    {
        EffectPictures none;
        QSignalSpy made(&none, &EffectPictures::PictureReady);
        none.Follow(canvas, state);
        none.Start({}, 1);
        EXPECT_FALSE(made.wait(100));
    }
    SetMaxPicturePixels(most);
}

// A length that Apply would make visible is promised as it will be; a shorter one is drawn so that it shows.
TEST(EffectPictures, PromiseTheLengthsThatApplyGives) {
    const Effect& tile = *FindEffect(44);
    const int least = tile.sliders[0].preview.value;
    EXPECT_EQ(PreviewInputs(tile, {115, 77}, 1, 0.01).slider[0], least);
    EXPECT_EQ(PreviewInputs(tile, {115, 77}, 1, 0.2).slider[0], 20);
    EXPECT_EQ(PreviewInputs(tile, {115, 77}, 1, 0.6).slider[0], 26) << "three of them fit";
    EXPECT_EQ(PreviewInputs(tile, {230, 154}, 2, 0).slider[0], 2 * least);
    EXPECT_EQ(PreviewInputs(*FindEffect(47), {115, 77}, 1, 0.01).slider[1], -10) << "a length may point backward";
    EXPECT_EQ(PreviewInputs(*FindEffect(9), {115, 77}, 1).x, 57) << "the point in the middle";
    EXPECT_EQ(PreviewInputs(*FindEffect(9), {115, 77}, 1).y, 38);
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
