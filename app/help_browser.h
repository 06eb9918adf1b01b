// Shows the help's pages: pictures at twice the fineness, own pages for what is missing and for what was searched.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>

#include "app/help_pages.h"

namespace kelu {

class HelpBrowser : public QTextBrowser {
    Q_OBJECT

 public:
    /// `folder` holds the pages and their pictures.
    explicit HelpBrowser(const QString& folder, QWidget* parent = nullptr);

    void ShowPage(const QString& page);
    /// Shows the pages that hold all `words`.
    void Search(const QString& words);
    QUrl Home() const { return InLanguage(PageUrl(QStringLiteral("index.html"))); }

 protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
    QUrl PageUrl(const QString& page) const;
    /// The page's version in the language in use, where there is one: page_de.html beside page.html.
    QUrl InLanguage(const QUrl& page) const;
    /// How pages look, on the ground of the theme.
    QString Rules() const;
    QString Framed(const QString& title, const QString& body) const;
    QString MissingPage(const QUrl& url) const;
    QString FoundPages(const QString& words);

    QString folder_;
    HelpPages pages_;
};

}  // namespace kelu
