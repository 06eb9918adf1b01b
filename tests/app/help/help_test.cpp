// Help topics, the help window and its search, on pages made for the test.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include "app/help_browser.h"
#include "app/help_key.h"
#include "app/help_topics.h"
#include "app/help_window.h"
#include "platform/language.h"
#include "tests/support/kit.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

class Help : public testing::Test {
 protected:
    Help() {
        Write("index.html", "All effects", "<p>Here they are. <a href=\"sepia.html\">Sepia</a></p>");
        Write("sepia.html", "Sepia", "<p>The warm brown of old photographs.</p>");
        Write("negative.html", "Negative", "<p>Looks like the negative of old films.</p>");
        Write("settings.html", "Settings", "<p>Six pages of photographs? No.</p>");
    }

    void Write(const char* name, const char* title, const char* body) {
        WriteBytes(folder_.filePath(name),
                   QString("<html><head><title>%1</title></head><body>%2</body></html>").arg(title, body).toUtf8());
    }

    QString Shown() { return topics_.Window()->Browser().toPlainText(); }

    QTemporaryDir folder_;
    SharedState state_;
    ScriptedDialog dialog_;
    HelpTopics topics_{state_, dialog_, folder_.path()};
};

TEST_F(Help, F1InADialogOpensItsPage) {
    const HelpKey key([this](const QString& page) { topics_.ShowPage(page); });
    Write("keys.html", "Mouse and keys", "<p>Hands.</p>");
    QDialog dialog;
    auto* field = new QLineEdit(&dialog);
    dialog.show();
    QTest::keyClick(field, Qt::Key_F1);
    ASSERT_NE(topics_.Window(), nullptr);
    EXPECT_TRUE(Shown().contains("Hands"));
    QTest::keyClick(topics_.Window(), Qt::Key_F1);
    EXPECT_TRUE(Shown().contains("Hands")) << "a window that is no dialog is left alone";
}

TEST_F(Help, OpensThePageOfTheChosenEffectInOneWindow) {
    state_.CurrentSFX = 2;
    topics_.LoadCHMFile();
    HelpWindow* window = topics_.Window();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(Shown().contains("warm brown"));
    EXPECT_EQ(window->windowTitle(), "Kelu Help - Sepia");
    window->close();
    state_.CurrentSFX = 99;
    topics_.LoadCHMFile();
    EXPECT_EQ(topics_.Window(), window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(Shown().contains("Six pages"));
    EXPECT_EQ(state_.CurrentSFX, 99);
    EXPECT_FALSE(window->testAttribute(Qt::WA_QuitOnClose)) << "the program ends with its main window";
}

TEST_F(Help, APageInTheLanguageInUseTakesThePlaceOfTheOther) {
    Write("index_de.html", "Alle Effekte", "<p>Hier sind sie.</p>");
    const auto foundIn = [&](const char* language) {
        UseLanguage(language);
        topics_.LoadCHMFile();
        topics_.Window()->Browser().setSource(QUrl("index.html"));
        HelpPages pages(folder_.path());
        return Shown() + QString::number(pages.Search("Here").size()) + QString::number(pages.Search("Hier").size());
    };
    EXPECT_EQ(foundIn("de"), "Hier sind sie.01");
    EXPECT_EQ(foundIn("0"), "Here they are. Sepia10");
}

TEST_F(Help, SearchesAllPages) {
    HelpPages pages(folder_.path());
    const auto found = [&](const char* words) {
        QStringList names;
        for (const HelpHit& hit : pages.Search(words)) names += hit.page;
        return names.join(' ');
    };
    EXPECT_EQ(found("photographs"), "sepia.html settings.html");
    EXPECT_EQ(found("PHOTO"), "sepia.html settings.html") << "beginnings of words, in any case";
    EXPECT_EQ(found("graphs"), "") << "not from the middle of a word";
    EXPECT_EQ(found("old films"), "negative.html") << "all words";
    EXPECT_EQ(found("sepia"), "sepia.html index.html") << "the title weighs most";
    EXPECT_EQ(found("  "), "");
    EXPECT_EQ(found("a.*("), "") << "no pattern, just letters";
    EXPECT_TRUE(pages.Search("brown")[0].extract.contains("warm brown of old"));

    topics_.LoadCHMFile();
    auto* search = topics_.Window()->findChild<QLineEdit*>();
    search->setText("<b>nothing");
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_TRUE(Shown().contains("No page holds <b>nothing")) << "what was typed is text, not markup";
}

TEST_F(Help, WorksBesideAModalDialog) {
    topics_.LoadCHMFile();
    HelpWindow& window = *topics_.Window();
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    state_.CurrentSFX = 99;
    topics_.LoadCHMFile();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(Shown().contains("Six pages"));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      window.mapFromGlobal(window.findChild<QLineEdit*>()->mapToGlobal(QPoint(20, 8))));
    QTest::keyClicks(
        window.windowHandle()->focusObject() ? static_cast<QWidget*>(window.findChild<QLineEdit*>()) : nullptr, "old");
    EXPECT_TRUE(window.findChild<QLineEdit*>()->hasFocus()) << "the click reached the window";
    dialog.close();
    EXPECT_TRUE(window.isVisible()) << "it stays when the dialog goes";
}

}  // namespace
}  // namespace kelu
