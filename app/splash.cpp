// Rotation of the splash pictures.
// SPDX-License-Identifier: MIT
#include "app/splash.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <algorithm>

#include "controls/animated_gif/uc_ani_gif.h"
#include "platform/error.h"
#include "platform/units.h"

// The resources lie in a library, so a program must name them to keep them. Outside every namespace, as Qt wants it.
static void NameResources() { Q_INIT_RESOURCE(app); }

namespace kelu {
namespace {

constexpr QRectF kAnimationPlace(5520, 8520, 1890, 330);  // twips, inside the cover
constexpr QSizeF kCoverSize(12000, 9000);                 // twips

QByteArray Animation() {
    NameResources();
    QFile file(QStringLiteral(":/kelu/app/splash.gif"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

Splash::Splash(QLabel& picCover, SharedState& state, Settings& settings, MsgDialog& dialog, const QString& dataFolder)
    : picCover_(picCover),
      AniGIF1_(new ucAniGIF(&picCover)),
      state_(state),
      settings_(settings),
      dialog_(dialog),
      dataFolder_(dataFolder) {
    picCover_.resize(TwipsToPixels(kCoverSize.width()), TwipsToPixels(kCoverSize.height()));
    AniGIF1_->setObjectName(QStringLiteral("AniGIF1"));
    AniGIF1_->setGeometry(TwipsToPixels(kAnimationPlace));
    // The cover is a handle to drag the window by, all of it.
    AniGIF1_->setAttribute(Qt::WA_TransparentForMouseEvents);
    AniGIF1_->LoadAnimatedGIF_Array(Animation());
}

void Splash::LoadSplash() {
    RunShowingErrors(dialog_, [this] {
        const int number = settings_.Read(settings::kSplashNumber);
        if (number >= 1 && number <= kPictures) LoadPicture(number);
        const int next = number < kPictures ? number + 1 : 1;
        state_.SplashNumber = static_cast<std::int16_t>(number < kPictures ? std::max(number, 0) : 1);
        settings_.Write(settings::kSplashNumber, next);
    });
}

void Splash::LoadPicture(int number) {
    const QString path = QDir(dataFolder_).filePath(QStringLiteral("scr_loader%1.rs").arg(number));
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        throw Error(kInvalidPicture, QStringLiteral("%1: %2").arg(path, reader.errorString()), "LoadSplash");
    // Scaled once for the screen, since the label itself would do it without averaging.
    const qreal ratio = picCover_.devicePixelRatioF();
    QImage scaled = picture.scaled(picCover_.size() * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    picCover_.setPixmap(QPixmap::fromImage(std::move(scaled)));
}

void Splash::End() {
    AniGIF1_->SetAction(0);
    picCover_.clearFocus();  // hidden with it, it would hand it on as by Tab, and the ring would show
    picCover_.hide();
}

}  // namespace kelu
