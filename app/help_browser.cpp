// Pages, pictures and notes of the help.
// SPDX-License-Identifier: MIT
#include "app/help_browser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <algorithm>

#include "controls/theme/theme.h"
#include "platform/language.h"

namespace kelu {
namespace {

// Pictures hold four pixels for each one of the page.
constexpr qreal kPictureRatio = 2;
constexpr auto kSearchScheme = "search";

/// Letters as large as the desktop wants them.
QString Enlarged(const QString& rules) {
    static const QRegularExpression size(QStringLiteral("(?<=font-size: )\\d+(?=px)"));
    QString enlarged;
    qsizetype done = 0;
    for (auto each = size.globalMatch(rules); each.hasNext();) {
        const QRegularExpressionMatch found = each.next();
        enlarged += rules.mid(done, found.capturedStart() - done);
        enlarged += QString::number(qRound(found.captured().toInt() * theme::TextScale()));
        done = found.capturedEnd();
    }
    return enlarged + rules.mid(done);
}

}  // namespace

HelpBrowser::HelpBrowser(const QString& folder, QWidget* parent)
    : QTextBrowser(parent), folder_(folder), pages_(folder) {
    setOpenExternalLinks(true);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(tr("Help page"));
    QPalette colours = palette();
    colours.setColor(QPalette::Base, theme::kGround);
    setPalette(colours);
}

QUrl HelpBrowser::PageUrl(const QString& page) const {
    QUrl url = QUrl::fromLocalFile(QDir(folder_).absoluteFilePath(page.section(u'#', 0, 0)));
    if (page.contains(u'#')) url.setFragment(page.section(u'#', 1));
    return url;
}

QUrl HelpBrowser::InLanguage(const QUrl& page) const {
    const QFileInfo file(page.toLocalFile());
    const QString local = file.dir().filePath(file.completeBaseName() + u'_' + LanguageInUse() + u'.' + file.suffix());
    if (LanguageInUse().isEmpty() || !page.isLocalFile() || !QFileInfo(local).isFile()) return page;
    QUrl found = QUrl::fromLocalFile(local);
    found.setFragment(page.fragment());
    return found;
}

void HelpBrowser::ShowPage(const QString& page) { setSource(PageUrl(page)); }

void HelpBrowser::Search(const QString& words) {
    QUrl url;
    url.setScheme(QLatin1String(kSearchScheme));
    url.setPath(words.simplified());
    setSource(url);
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    QTextBrowser::doSetSource(InLanguage(source().resolved(name)),
                              type == QTextDocument::UnknownResource ? QTextDocument::HtmlResource : type);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::HtmlResource) {
        if (name.scheme() == QLatin1String(kSearchScheme)) return FoundPages(name.path());
        if (name.isLocalFile() && !QFileInfo(name.toLocalFile()).isFile()) return MissingPage(name);
    }
    if (type == QTextDocument::StyleSheetResource) return Rules();
    if (type == QTextDocument::ImageResource) {
        QImage picture(source().resolved(name).toLocalFile());
        if (picture.isNull()) return QVariant();
        // Where the screen is coarser than the picture, averaging now is better than dropping pixels when painting.
        const qreal ratio = devicePixelRatioF();
        if (ratio < kPictureRatio) {
            picture =
                picture.scaled(picture.size() * ratio / kPictureRatio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        picture.setDevicePixelRatio(std::min(ratio, kPictureRatio));
        return picture;
    }
    return QTextBrowser::loadResource(type, name);
}

QString HelpBrowser::Rules() const {
    QFile style(QDir(folder_).filePath(QStringLiteral("kelu.css")));
    if (!style.open(QIODevice::ReadOnly)) return QStringLiteral("body { margin: 18px }");
    QString rules = Enlarged(QString::fromUtf8(style.readAll()));
    if (!theme::IsHighContrast()) return rules;
    return rules.replace(QStringLiteral("#333333"), theme::kGround.name())
        .replace(QStringLiteral("#b4b4b4"), theme::kMutedText.name())
        .replace(QStringLiteral("#f2a541"), theme::kAccent.name());
}

QString HelpBrowser::Framed(const QString& title, const QString& body) const {
    return QStringLiteral("<html><head><title>%1</title><style>%2</style></head><body><h1>%1</h1>%3</body></html>")
        .arg(title, Rules(), body);
}

QString HelpBrowser::MissingPage(const QUrl& url) const {
    return Framed(
        tr("This page is missing"),
        tr("<p>The help has no page called <b>%1</b>. It should lie here:</p><p class=\"note\">%2</p>"
           "<p>Perhaps the program was moved without its <b>help</b> folder. Putting the folder back "
           "beside the program, or installing Kelu again, brings the page back.</p>")
            .arg(url.fileName().toHtmlEscaped(), QDir::toNativeSeparators(url.toLocalFile()).toHtmlEscaped()));
}

QString HelpBrowser::FoundPages(const QString& words) {
    const QList<HelpHit> hits = pages_.Search(words);
    const QString shown = words.toHtmlEscaped();
    if (hits.isEmpty()) {
        return Framed(tr("Nothing found"),
                      tr("<p>No page holds <b>%1</b>. Fewer words or the beginning of a word find more; "
                         "or have a look at <a href=\"%2\">all effects</a>.</p>")
                          .arg(shown, Home().toString()));
    }
    const QString count = hits.size() == 1 ? tr("One page for <b>%1</b>").arg(shown)
                                           : tr("%2 pages for <b>%1</b>").arg(shown, QString::number(hits.size()));
    QString body = QStringLiteral("<p class=\"lead\">%1</p>").arg(count);
    for (const HelpHit& hit : hits) {
        body += QStringLiteral("<p class=\"hit\"><a href=\"%1\">%2</a><br>%3</p>")
                    .arg(PageUrl(hit.page).toString(), hit.title.toHtmlEscaped(), hit.extract.toHtmlEscaped());
    }
    return Framed(tr("Found"), body);
}

}  // namespace kelu
