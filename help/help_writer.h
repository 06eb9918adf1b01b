// Puts catalogue and written texts together as pages. Ranges and defaults come from the catalogue alone.
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include "help/help_text.h"

namespace kelu {

struct HelpTopic {
    const Effect* effect = nullptr;
    HelpText text;
    QString stem;  ///< of its page and pictures
};

/// Title of an effect as the help writes it.
QString TopicTitle(const Effect& effect);
QString EffectPage(const HelpTopic& topic, const QList<HelpTopic>& all);
/// In the language in use, as the window shows the names.
QString IndexPage(const QList<HelpTopic>& all);
/// A page written by hand, `body` without head; its first line is the title.
QString PlainPage(const QString& body);

}  // namespace kelu
