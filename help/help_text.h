// The written part of an effect's page, as help/texts holds it: one file per effect, named like its page.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include "effects/catalogue/catalogue.h"

namespace kelu {

/// Each line of the file begins with a keyword; a line that begins with a blank goes on with the one before.
///   photo P      photograph of the gallery that shows it
///   sliders ...  values of the sliders for that picture, where the effect's own would show too little
///   lead L       one sentence
///   text T       a paragraph; may stand several times
///   input I: T   what the input does; I is its label, or Choice, or Point
///   hint H       may stand several times
///   see A B C    related pages, without .html
struct HelpText {
    QString photo, lead;
    QList<int> sliders;
    QStringList text, hints, see;
    QMap<QString, QString> inputs;
};

/// Names under which `effect` has inputs, in the order of the panel: labels of sliders and colors, Choice, Point.
QStringList InputNames(const Effect& effect);

/// Throws Error, naming the file, when a part is missing, or the inputs told are not those of the catalogue.
HelpText ReadHelpText(const QString& path, const Effect& effect);

}  // namespace kelu
