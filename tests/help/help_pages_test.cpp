// The pages of the help: complete, true to the catalogue, and without dead links; and what the texts' reader refuses.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include "help/help_writer.h"
#include "platform/error.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

const QDir kTexts(QStringLiteral(KELU_SOURCE_DIR "/help/texts"));

QList<HelpTopic> AllTopics() {
    QList<HelpTopic> topics;
    for (const Effect& effect : Catalogue()) {
        const QString stem = QFileInfo(QLatin1String(effect.helpPage)).completeBaseName();
        topics += {&effect, ReadHelpText(kTexts.filePath(stem + ".txt"), effect), stem};
    }
    return topics;
}

QStringList Matches(const QString& page, const char* pattern) {
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(page); match.hasNext();)
        found += match.next().captured(1);
    return found;
}

TEST(HelpPages, EveryLinkLeadsSomewhere) {
    const QList<HelpTopic> topics = AllTopics();
    QMap<QString, QString> pages{{"index.html", IndexPage(topics)},
                                 {"keys.html", PlainPage(ReadBytes(kTexts.filePath("keys.html")))},
                                 {"settings.html", PlainPage(ReadBytes(kTexts.filePath("settings.html")))}};
    QSet<QString> pictures;
    for (const HelpTopic& topic : topics) {
        pages[topic.stem + ".html"] = EffectPage(topic, topics);
        pictures += {topic.text.photo + ".jpg", topic.stem + "-after.jpg", topic.stem + "-small.jpg"};
        EXPECT_TRUE(QFileInfo::exists(QStringLiteral(KELU_SOURCE_DIR "/Gallery/") + topic.text.photo + ".jpg"))
            << topic.stem.toStdString();
    }
    ASSERT_EQ(pages.size(), topics.size() + 3);
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        for (const QString& link : Matches(*page, "<a href=\"([^\"]*)\""))
            EXPECT_TRUE(pages.contains(link)) << page.key().toStdString() << " to " << link.toStdString();
        for (const QString& picture : Matches(*page, "<img src=\"([^\"]*)\""))
            EXPECT_TRUE(pictures.contains(picture)) << page.key().toStdString() << " shows " << picture.toStdString();
    }
    EXPECT_EQ(Matches(pages["index.html"], "<img src=\"([^\"]*)\"").size(), topics.size());
}

TEST(HelpPages, TellTheRangesOfTheCatalogue) {
    const QList<HelpTopic> topics = AllTopics();
    const auto page = [&](int number) { return EffectPage(topics[number - 1], topics); };
    EXPECT_TRUE(page(47).contains("Range -100 to 100 &nbsp;&middot;&nbsp; At the start: -10<"));
    EXPECT_TRUE(
        page(9).contains("Range 0 to 999 each, in pixels of the picture &nbsp;&middot;&nbsp; At the start: 250, 100"));
    EXPECT_TRUE(page(26).contains("At the start: as it stands"));
    EXPECT_TRUE(page(1).contains("Either Proportional or Weighted &nbsp;&middot;&nbsp; At the start: Proportional"));
    EXPECT_TRUE(page(40).contains("Shift &amp; Difference Diagonal"));
    EXPECT_TRUE(page(18).contains("red 200, green 100, blue 50"));
    EXPECT_TRUE(page(35).contains("None. Click <b>Apply</b>"));
    EXPECT_TRUE(page(3).contains("<h1>Black &amp; White</h1>"));
}

TEST(HelpText, RefusesWhatDoesNotFitTheCatalogue) {
    const QString good = ReadBytes(kTexts.filePath("sepia.txt"));
    const Effect& sepia = *FindEffect(2);
    QTemporaryDir folder;
    const QString path = folder.filePath("sepia.txt");
    const auto reads = [&](const QString& text) {
        WriteBytes(path, text.toUtf8());
        const Error error = ErrorOf([&] { ReadHelpText(path, sepia); });
        EXPECT_TRUE(error.Number() == 0 || error.Description().startsWith("sepia.txt: ")) << error.what();
        return error.Number() == 0;
    };
    EXPECT_TRUE(reads(good));
    EXPECT_FALSE(reads(QString(good).replace("input Strength", "input Power"))) << "an input of another name";
    EXPECT_FALSE(reads(good + "input Radius: more\n")) << "an input that the effect has not";
    EXPECT_FALSE(reads(QString(good).remove(QRegularExpression("input .*\\n(  .*\\n)*")))) << "an input not told of";
    EXPECT_FALSE(reads(QString(good).replace("sliders 45", "sliders 101")));
    EXPECT_FALSE(reads(QString(good).remove(QRegularExpression("lead .*\\n"))));
    EXPECT_FALSE(reads(good + "remark Nobody knows this word\n"));
}

}  // namespace
}  // namespace kelu
