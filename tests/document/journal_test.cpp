// The journal against what was really painted: random sessions replayed, and files that were cut, zeroed and damaged.
// SPDX-License-Identifier: MIT
#include "document/journal.h"

#include <QDir>
#include <QSignalSpy>
#include <QtTest>

#include "document/journal_file.h"
#include "document/replay.h"
#include "document/session_replay.h"
#include "effects/catalogue/render_onto.h"
#include "platform/error.h"
#include "tests/document/painting_session.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

QStringList JournalsIn(const QString& folder) {
    QStringList paths;
    for (const QFileInfo& file : QDir(folder).entryInfoList({"*.journal"}, QDir::Files)) paths += file.filePath();
    return paths;
}

void ReplayInto(Surfaces& surfaces, const Recipe& recipe) {
    Replay replay(recipe, surfaces, &RenderEffectOn);
    replay.Open(ReadJournalPicture(recipe));
    replay.DoAll();
}

/// Replayed by hand with many more: KELU_SESSIONS=300.
class RandomSession : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Seeds, RandomSession,
                         testing::Range(1u, 1u + qEnvironmentVariableIntValue("KELU_SESSIONS") + 12u));

TEST_P(RandomSession, IsReplayedToTheSameBytes) {
    QTemporaryDir state;
    const QString folder = state.filePath("journals");
    Journal journal(folder);
    QSignalSpy off(&journal, &Journal::Off);
    PaintingSession session(journal, GetParam());
    session.surfaces.picCanvas.SetUndoBudget(1 << 19);  // so that levels fall off
    session.Open();
    for (int step = 0; step < 60; ++step) {
        session.DoSomething();
        if (session.Below(10) == 0) journal.Flush();
    }
    session.Apply(1);
    session.settings.Write(settings::kCursorStyle, CursorStyle::Brush);
    session.Stroke();  // so that there is something unsaved
    journal.Flush(/*wait=*/true);
    ASSERT_TRUE(off.isEmpty()) << qPrintable(off.value(0).value(0).toString());

    const QStringList files = JournalsIn(folder);
    ASSERT_EQ(files.size(), 1);
    const Recipe recipe = ReadRecipeFile(files[0]);
    ASSERT_EQ(recipe.fault, QString());
    EXPECT_TRUE(recipe.unsaved);
    Surfaces replayed;
    ReplayInto(replayed, recipe);
    const auto told = [](const Surface& surface) { return surface.Told().texts.value(0).text; };
    EXPECT_NE(told(replayed.picCanvas), "");
    EXPECT_EQ(told(replayed.picCanvas), told(session.surfaces.picCanvas));
    EXPECT_TRUE(SameBytes(replayed.picCanvas.Picture(), session.surfaces.picCanvas.Picture()));
    EXPECT_TRUE(SameBytes(replayed.picPen.Picture(), session.surfaces.picPen.Picture()));
    EXPECT_TRUE(SameBytes(replayed.picOriginal.Picture(), session.surfaces.picOriginal.Picture()));
    const QImage painted = session.surfaces.picCanvas.Picture().copy();
    for (; session.surfaces.picCanvas.CanUndo(); session.surfaces.picCanvas.Undo()) replayed.picCanvas.Undo();
    EXPECT_TRUE(SameBytes(replayed.picCanvas.Picture(), session.surfaces.picCanvas.Picture()));

    // As a recipe elsewhere, twice under one name.
    const QString kept = session.folder.filePath("my painting.kelu");
    for (int i = 0; i < 2; ++i) WriteRecipe(journal.Told(), kept);
    Surfaces again;
    Replay replay(ReadRecipeFile(kept), again, &RenderEffectOn);
    replay.Open({session.surfaces.picOriginal.Picture()});
    replay.DoAll();
    EXPECT_TRUE(SameBytes(again.picCanvas.Picture(), painted));
}

/// A journal with a few strokes, and the pictures after each number of its steps.
struct Damage : testing::Test {
    QTemporaryDir state;
    QByteArray text;
    Recipe whole;
    std::vector<QImage> after;
    Journal journal{state.path()};
    PaintingSession session{journal, 5};

    void SetUp() override {
        session.document.Open(session.folder.filePath("plain.png"), Document::Source::Browse);
        for (int effect : {32, 1}) {
            session.Apply(effect);
            session.Stroke();
            session.history.PerformUndo();
            session.Stroke();
            journal.Flush(/*wait=*/true);
        }
        text = ReadBytes(JournalsIn(state.path()).value(0));
        whole = ReadRecipeText(text);
        ASSERT_EQ(whole.fault, QString());
        ASSERT_GT(whole.steps.size(), 12u);
        Surfaces surfaces;
        Replay replay(whole, surfaces, &RenderEffectOn);
        replay.Open(ReadJournalPicture(whole));
        for (after.push_back(surfaces.picCanvas.Picture().copy()); !replay.AtEnd();
             after.push_back(surfaces.picCanvas.Picture().copy()))
            replay.DoNext();
    }

    /// The text tells the first lines of the whole, all others are missing, and it says so.
    void ExpectPrefix(const QByteArray& damaged) {
        const Recipe recipe = ReadRecipeText(damaged);
        ASSERT_LE(recipe.certainBytes, damaged.size());
        if (!recipe.fault.isEmpty() && recipe.size.isEmpty()) return;
        ASSERT_EQ(recipe.fault.isEmpty(), damaged.size() == recipe.certainBytes);
        ASSERT_TRUE((LinesOf(whole) + '\n').startsWith(LinesOf(recipe))) << LinesOf(recipe).toStdString();
        if (recipe.steps.size() == std::exchange(replayed, recipe.steps.size())) return;
        Surfaces surfaces;
        ReplayInto(surfaces, recipe);
        ASSERT_TRUE(SameBytes(surfaces.picCanvas.Picture(), after[recipe.steps.size()]));
    }
    std::size_t replayed = 0;
};

TEST_F(Damage, LeavesAPrefixOfTheSession) {
    std::mt19937 random(1);
    for (qsizetype length = 0; length <= text.size(); ++length) {
        SCOPED_TRACE(length);
        ExpectPrefix(text.first(length));
        QByteArray zeroed = text;  // the last block never reached the disk
        std::fill(zeroed.begin() + length, zeroed.end(), '\0');
        if (length < text.size()) ExpectPrefix(zeroed);
        QByteArray other = text;  // one byte is another one
        if (length < text.size()) {
            other[length] = static_cast<char>(other[length] ^ (1 + random() % 255));
            ExpectPrefix(other);
        }
        QByteArray garbage = text.first(length);
        for (int i = 0; i < 100; ++i) garbage += static_cast<char>(random());
        ExpectPrefix(garbage);
        if (HasFatalFailure()) return;
    }
    // A line that was told once can't be told again elsewhere.
    const QByteArray last = text.mid(text.lastIndexOf('\n', -2) + 1);
    EXPECT_EQ(ReadRecipeText(text + last).certainBytes, text.size());
}

// As the next start finds it: asked about, brought back, painted on, and whole again after that.
TEST_F(Damage, IsBroughtBackAndGoneOnWith) {
    for (unsigned round = 0; round < 9; ++round) {
        SCOPED_TRACE(round);
        QTemporaryDir folder;
        const qsizetype cut = text.size() * (9 - round) / 9;
        QByteArray damaged = text.first(cut);
        if (round % 3 == 1) damaged.append(text.size() - cut, '\0');
        if (round % 3 == 2) damaged.append("\x93\n ~0\nundo ~00000000\n");
        WriteBytes(folder.filePath("left.journal"), damaged);
        const Recipe certain = ReadRecipeText(damaged);

        Journal goesOn(folder.path());
        PaintingSession next(goesOn, round);
        next.dialog.answers = {MsgAnswer::Yes};
        SessionReplay replay(next.document, next.openSave, next.state, goesOn, next.dialog,
                             {folder.path(), &RenderEffectOn, [] { return true; }, [](int) {}, [] {}});
        replay.LookForJournals();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        if (!certain.unsaved) {
            EXPECT_TRUE(next.dialog.shown.empty());
            continue;
        }
        ASSERT_TRUE(SameBytes(next.surfaces.picCanvas.Picture(), after[certain.steps.size()]));
        EXPECT_EQ(next.dialog.shown.size(), round % 3 == 0 ? 1u : 2u) << "damaged, not only cut: said so";
        next.Apply(1);
        next.Stroke();
        goesOn.Flush(/*wait=*/true);
        Surfaces again;
        ReplayInto(again, ReadRecipeFile(JournalsIn(folder.path()).value(0)));
        ASSERT_TRUE(SameBytes(again.picCanvas.Picture(), next.surfaces.picCanvas.Picture()));
    }
}

TEST_F(Damage, ThePictureMustBeTheSame) {
    const QString picture = session.folder.filePath("plain.png");
    Surfaces surfaces;
    QFile::copy(picture, picture + ".old");
    QFile::remove(picture);
    EXPECT_THROW(ReplayInto(surfaces, whole), Error);
    QFile::copy(session.folder.filePath("glass.png"), picture);
    EXPECT_THROW(ReplayInto(surfaces, whole), Error);
}

TEST_F(Damage, WithoutMemoryTheStrokesStayForTheNextStart) {
    WriteBytes(state.filePath("left.journal"), text);
    const auto lacks = [](auto&&...) -> QImage { throw std::bad_alloc(); };
    SessionReplay replay(session.document, session.openSave, session.state, journal, session.dialog,
                         {state.path(), lacks, [] { return true; }, [](int) {}, [] {}});
    session.state.ImageDirty = false;
    replay.BringBack(state.filePath("left.journal"));
    ASSERT_EQ(session.dialog.shown.size(), 1u);
    EXPECT_TRUE(session.dialog.shown[0].text.contains("back: Out of memory."))
        << session.dialog.Texts()[0].toStdString();
    EXPECT_EQ(ReadBytes(state.filePath("left.journal")), text);
}

TEST(JournalLife, FilesComeWithStrokesAndGoWithSaves) {
    QTemporaryDir state;
    const auto files = [&] { return JournalsIn(state.path()).size(); };
    {
        Journal journal(state.path());
        QSignalSpy left(&journal, &Journal::Left);
        PaintingSession session(journal, 1);
        const auto open = [&] {
            session.document.Open(session.folder.filePath("plain.png"), Document::Source::Browse);
            session.Apply(1);
            journal.Flush(true);
        };
        open();
        EXPECT_EQ(files(), 0) << "nothing was painted";
        session.Stroke();
        journal.Flush(true);
        ASSERT_EQ(files(), 1);
        EXPECT_EQ(QFile::permissions(JournalsIn(state.path())[0]) & 0x77, QFile::Permissions());
        // Saved: the file stays for strokes to come, but there is nothing to bring back; with the next picture it goes.
        session.Save();
        journal.Flush(true);
        EXPECT_FALSE(ReadRecipeFile(JournalsIn(state.path())[0]).unsaved);
        open();
        EXPECT_EQ(files(), 0);
        // Counted as saved although nothing was written: left until the next picture is saved.
        session.Stroke();
        session.state.ImageDirty = false;
        open();
        EXPECT_TRUE(left.size() == 1 || left.wait(1000));
        EXPECT_EQ(files(), 1);
        session.Stroke();
        journal.Flush(true);
        EXPECT_EQ(files(), 2);
        session.Save();
        journal.Flush(true);
        EXPECT_EQ(files(), 1);
        session.Stroke();
    }
    EXPECT_EQ(files(), 1) << "unsaved strokes outlive the program";
}

TEST(JournalLife, PaintingGoesOnWithoutAFolder) {
    QTemporaryDir state;
    const QString folder = state.filePath("journals");
    Journal journal(folder);
    QSignalSpy off(&journal, &Journal::Off);
    PaintingSession session(journal, 1);
    const auto paint = [&] {
        session.state.ImageDirty = false;
        session.document.Open(session.folder.filePath("plain.png"), Document::Source::Browse);
        session.Apply(1);
        for (int i = 0; i < 5; ++i) session.Stroke();
        journal.Flush(true);
        QCoreApplication::processEvents();
        EXPECT_TRUE(session.surfaces.picCanvas.CanUndo());
    };
    WriteBytes(folder, "no folder");
    paint();
    paint();
    EXPECT_EQ(off.size(), 1) << "one word is enough";
    QFile::remove(folder);
    paint();
    EXPECT_EQ(JournalsIn(folder).size(), 1) << "the next picture has its own";
    QDir(folder).removeRecursively();
    WriteBytes(folder, "no folder");
    paint();
    EXPECT_EQ(off.size(), 2) << "it was kept in between";
}

}  // namespace
}  // namespace kelu
