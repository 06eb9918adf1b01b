// The pictures of the help: each photograph once, each effect laid over the photograph that its text names.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QImage>
#include <QMap>

#include "help/help_text.h"

namespace kelu {

class HelpPictures {
 public:
    /// Pictures hold two pixels for each one of the page in both directions.
    static constexpr QSize kSize{600, 400};
    static constexpr QSize kSmallSize{240, 160};

    HelpPictures(const QDir& gallery, const QDir& output) : gallery_(gallery), output_(output) {}

    /// Writes PHOTO.jpg, STEM-after.jpg and STEM-small.jpg. Throws Error.
    void Make(const Effect& effect, const HelpText& text, const QString& stem);
    /// The values with which the pictures are drawn.
    static EffectInputs Inputs(const Effect& effect, const HelpText& text);

 private:
    const QImage& Photo(const QString& name);
    void Save(const QImage& picture, const QString& name) const;

    QDir gallery_, output_;
    QMap<QString, QImage> photos_;
};

}  // namespace kelu
