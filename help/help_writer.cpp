// The HTML of the pages.
// SPDX-License-Identifier: MIT
#include "help/help_writer.h"

#include <QCoreApplication>
#include <algorithm>

#include "help/help_pictures.h"
#include "platform/error.h"
#include "platform/language.h"

namespace kelu {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::Help)
};

constexpr QSize kShown(HelpPictures::kSize.width() / 2, HelpPictures::kSize.height() / 2);
constexpr int kPerRow = 5;

QString Page(const QString& title, const QString& body) {
    return QStringLiteral(
               "<!DOCTYPE html>\n<html lang=\"%3\"><head><meta charset=\"utf-8\"><title>%1</title>"
               "<link rel=\"stylesheet\" type=\"text/css\" href=\"kelu.css\"></head>\n<body>\n%2\n</body></html>\n")
        .arg(title, body, LanguageInUse().isEmpty() ? QStringLiteral("en") : LanguageInUse());
}

QString Picture(const QString& name, const QSize& size, const QString& alt) {
    // The help window knows that pictures are twice as fine; a web browser takes the size from here.
    return QStringLiteral("<img src=\"%1.jpg\" alt=\"%2\" width=\"%3\" height=\"%4\">")
        .arg(name, alt.toHtmlEscaped())
        .arg(size.width())
        .arg(size.height());
}

QString ColorName(qint32 value) {
    const ColorBytes color = SplitColor(value);
    return QStringLiteral("red %1, green %2, blue %3").arg(color.red).arg(color.green).arg(color.blue);
}

QString Swatch(qint32 value) {
    const ColorBytes color = SplitColor(value);
    return QStringLiteral("<span style=\"background-color:#%1%2%3\">&nbsp;&nbsp;&nbsp;&nbsp;</span> ")
        .arg(color.red, 2, 16, QLatin1Char('0'))
        .arg(color.green, 2, 16, QLatin1Char('0'))
        .arg(color.blue, 2, 16, QLatin1Char('0'));
}

struct InputRow {
    QString name, range, initial;
};

InputRow ChoiceRow(const EffectChoice& choice) {
    QStringList names;
    for (const char* name : choice.names) names += QString::fromLatin1(name).toHtmlEscaped();
    const QString initial = names[choice.initial - 1];
    switch (choice.kind) {
        case EffectChoice::Kind::Compass:
            return {QStringLiteral("Direction"), QStringLiteral("One of eight"), initial};
        case EffectChoice::Kind::List:
            return {QStringLiteral("List"), QStringLiteral("One of ") + names.join(QStringLiteral(", ")), initial};
        default:
            return {QStringLiteral("Kind"), QStringLiteral("Either ") + names.join(QStringLiteral(" or ")), initial};
    }
}

InputRow RowOf(const Effect& effect, const QString& name) {
    for (const EffectSlider& slider : effect.sliders) {
        if (slider.label && name == QLatin1String(slider.label)) {
            return {name, QStringLiteral("Range %1 to %2").arg(slider.min).arg(slider.max),
                    QString::number(slider.value)};
        }
    }
    for (const EffectColor* color : {&effect.color1, &effect.color2}) {
        if (color->label && name == QLatin1String(color->label))
            return {name, QStringLiteral("Any color"), Swatch(color->value) + ColorName(color->value)};
    }
    if (name == u"Choice") return ChoiceRow(effect.choice);
    return {QStringLiteral("Point X, Y"),
            QStringLiteral("Range 0 to %1 each, in pixels of the picture").arg(kCoordinateMax),
            effect.ResetsCoordinates() ? QStringLiteral("%1, %2").arg(kDefaultX).arg(kDefaultY)
                                       : QStringLiteral("as it stands")};
}

QString Inputs(const HelpTopic& topic) {
    const QStringList names = InputNames(*topic.effect);
    if (names.isEmpty()) return QStringLiteral("<h2>Inputs</h2><p>None. Click <b>Apply</b> and paint.</p>");
    QString rows;
    for (const QString& name : names) {
        const InputRow row = RowOf(*topic.effect, name);
        rows += QStringLiteral(
                    "<tr><td class=\"name\" valign=\"top\" width=\"120\">%1</td><td valign=\"top\">%2<br>"
                    "<span class=\"note\">%3 &nbsp;&middot;&nbsp; At the start: %4</span></td></tr>\n")
                    .arg(row.name, topic.text.inputs[name].toHtmlEscaped(), row.range, row.initial);
    }
    return QStringLiteral("<h2>Inputs</h2>\n<table cellspacing=\"0\" cellpadding=\"6\" width=\"100%\">\n%1</table>")
        .arg(rows);
}

QString PicturedWith(const HelpTopic& topic) {
    const EffectInputs inputs = HelpPictures::Inputs(*topic.effect, topic.text);
    QStringList values;
    for (std::size_t i = 0; i < inputs.slider.size(); ++i) {
        const EffectSlider& slider = topic.effect->sliders[i];
        if (slider.label) values += QStringLiteral("%1 %2").arg(QLatin1String(slider.label)).arg(inputs.slider[i]);
    }
    if (topic.effect->ShowsCoordinates()) values += QStringLiteral("point in the middle");
    return values.isEmpty() ? QStringLiteral("with the effect")
                            : QStringLiteral("with ") + values.join(QStringLiteral(", "));
}

QString SeeAlso(const HelpTopic& topic, const QList<HelpTopic>& all) {
    QStringList links;
    for (const QString& stem : topic.text.see) {
        const auto other =
            std::find_if(all.begin(), all.end(), [&](const HelpTopic& each) { return each.stem == stem; });
        if (other == all.end())
            throw Error(kFileError, QStringLiteral("%1.txt: no page %2 to see").arg(topic.stem, stem));
        links += QStringLiteral("<a href=\"%1.html\">%2</a>").arg(stem, TopicTitle(*other->effect));
    }
    return links.isEmpty() ? QString()
                           : QStringLiteral("<h2>See also</h2>\n<p>%1</p>")
                                 .arg(links.join(QStringLiteral(" &nbsp;&middot;&nbsp; ")));
}

QString HeadingOf(const Effect& effect) {
    for (const EffectFamily& family : Families())
        for (const Effect& row : family.rows)
            if (row.number == effect.number) return QLatin1String(family.heading);
    return {};
}

}  // namespace

QString TopicTitle(const Effect& effect) { return ShownCaption(effect.ListText()).toHtmlEscaped(); }

QString EffectPage(const HelpTopic& topic, const QList<HelpTopic>& all) {
    const QString title = TopicTitle(*topic.effect);
    QString body = QStringLiteral(
                       "<p class=\"crumb\"><a href=\"index.html\">All effects</a> &nbsp;&rsaquo;&nbsp; "
                       "%1</p>\n<h1>%2</h1>\n<p class=\"lead\">%3</p>\n")
                       .arg(HeadingOf(*topic.effect), title, topic.text.lead.toHtmlEscaped());
    body +=
        QStringLiteral(
            "<table cellspacing=\"0\" cellpadding=\"0\"><tr><td>%1</td><td width=\"12\"></td><td>%2</td></tr>"
            "<tr><td class=\"caption\">before</td><td></td><td class=\"caption\">%3</td></tr></table>\n")
            .arg(Picture(topic.text.photo, kShown, QStringLiteral("The photograph")),
                 Picture(topic.stem + QStringLiteral("-after"), kShown, QStringLiteral("The photograph with ") + title),
                 PicturedWith(topic));
    for (const QString& paragraph : topic.text.text)
        body += QStringLiteral("<p>%1</p>\n").arg(paragraph.toHtmlEscaped());
    body += Inputs(topic);
    body += QStringLiteral("\n<h2>Hints</h2>\n<ul>\n");
    for (const QString& hint : topic.text.hints) body += QStringLiteral("<li>%1</li>\n").arg(hint.toHtmlEscaped());
    body += QStringLiteral("</ul>\n") + SeeAlso(topic, all);
    return Page(title, body);
}

QString IndexPage(const QList<HelpTopic>& all) {
    const QString steps[] = {
        Texts::tr("<b>Open</b> a picture with Ctrl+O, or drop one onto the window."),
        Texts::tr(
            "Choose an effect at the right and set its inputs. <b>Apply</b> renders it over a hidden copy of your "
            "picture."),
        Texts::tr("<b>Paint</b> with the left mouse button. The first slider sets the size of the brush."),
        Texts::tr("Not good? Ctrl+Z takes a stroke back, Ctrl+Y brings it again. Ctrl+S <b>saves</b> the picture.")};
    QString body =
        QStringLiteral("<h1>%1</h1>\n<p class=\"lead\">%2</p>\n<ol>")
            .arg(Texts::tr("Have fun with effects"),
                 Texts::tr("Open a photo, choose an effect, press <b>Apply</b> - and brush it on where you like it."));
    for (const QString& step : steps) body += QStringLiteral("<li>%1</li>").arg(step);
    body +=
        QStringLiteral("</ol>\n<p>%1</p>\n")
            .arg(Texts::tr(
                     "All effects stand below. What hands can do is told under %1, how to set up the program under %2.")
                     .arg(QStringLiteral("<a href=\"keys.html\">%1</a>").arg(Texts::tr("Mouse and keys")),
                          QStringLiteral("<a href=\"settings.html\">%1</a>").arg(Texts::tr("Settings"))));
    for (const EffectFamily& family : Families()) {
        body += QStringLiteral("<h2>%1</h2>\n<table cellspacing=\"0\" cellpadding=\"4\"><tr>")
                    .arg(EffectText(family.heading));
        int column = 0;
        for (const Effect& effect : family.rows) {
            const HelpTopic& topic = all[effect.number - 1];
            if (column == kPerRow) {
                body += QStringLiteral("</tr>\n<tr>");
                column = 0;
            }
            ++column;
            body += QStringLiteral("<td valign=\"top\"><a href=\"%1.html\">%2</a><br><a href=\"%1.html\">%3</a></td>")
                        .arg(topic.stem,
                             Picture(topic.stem + QStringLiteral("-small"), HelpPictures::kSmallSize / 2,
                                     TopicTitle(*topic.effect)),
                             TopicTitle(*topic.effect));
        }
        body += QStringLiteral("</tr></table>\n");
    }
    return Page(Texts::tr("All effects"), body);
}

QString PlainPage(const QString& body) {
    return Page(body.section(QLatin1Char('\n'), 0, 0), body.section(QLatin1Char('\n'), 1));
}

}  // namespace kelu
