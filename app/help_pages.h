// The pages of the help as texts: titles, full-text search.
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace kelu {

struct HelpHit {
    QString page;  ///< file name
    QString title;
    QString extract;  ///< the text round the first place, plain
    int weight = 0;   ///< the better the page fits the higher
};

class HelpPages {
 public:
    explicit HelpPages(const QString& folder) : folder_(folder) {}

    /// Pages that hold every word of `words`, at the beginning of words and whatever their case; the best ones first. A
    /// word in the title counts most. No words: no pages.
    QList<HelpHit> Search(const QString& words);

 private:
    struct Page {
        QString name;
        QString title;
        QString text;
    };
    void Load();

    QString folder_;
    QList<Page> pages_;  // read at the first search
};

}  // namespace kelu
