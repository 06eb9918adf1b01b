// Rendering for the help.
// SPDX-License-Identifier: MIT
#include "help/help_pictures.h"

#include <QRect>

#include "effects/catalogue/render_onto.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr int kJpegQuality = 86;

}  // namespace

EffectInputs HelpPictures::Inputs(const Effect& effect, const HelpText& text) {
    EffectInputs inputs = effect.Defaults();
    for (qsizetype i = 0; i < text.sliders.size(); ++i) inputs.slider[static_cast<std::size_t>(i)] = text.sliders[i];
    inputs.x = kSize.width() / 2;
    inputs.y = kSize.height() / 2;
    return inputs;
}

const QImage& HelpPictures::Photo(const QString& name) {
    QImage& photo = photos_[name];
    if (!photo.isNull()) return photo;
    const QString path = gallery_.filePath(name + QStringLiteral(".jpg"));
    const QImage whole(path);
    if (whole.isNull()) throw Error(kInvalidPicture, path + QStringLiteral(" cannot be read"));
    const QSize cut = QSizeF(kSize).scaled(QSizeF(whole.size()), Qt::KeepAspectRatio).toSize();
    const QPoint corner((whole.width() - cut.width()) / 2, (whole.height() - cut.height()) / 2);
    photo = whole.copy(QRect(corner, cut))
                .scaled(kSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .convertToFormat(QImage::Format_RGB32);
    Save(photo, name);
    return photo;
}

void HelpPictures::Make(const Effect& effect, const HelpText& text, const QString& stem) {
    const QImage after = RenderOnto(effect, Inputs(effect, text), Photo(text.photo));
    Save(after, stem + QStringLiteral("-after"));
    Save(after.scaled(kSmallSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), stem + QStringLiteral("-small"));
}

void HelpPictures::Save(const QImage& picture, const QString& name) const {
    const QString path = output_.filePath(name + QStringLiteral(".jpg"));
    if (!picture.save(path, "JPEG", kJpegQuality)) throw Error(kFileError, QStringLiteral("cannot write ") + path);
}

}  // namespace kelu
