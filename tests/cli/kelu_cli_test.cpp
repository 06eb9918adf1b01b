// The command line as a script uses it: real files, exit statuses, one line for each failure, nothing half-written.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "effects/catalogue/catalogue.h"
#include "tests/support/kit.h"

namespace {

using kelu::ReadBytes, kelu::WriteBytes;

struct Result {
    int status = -1;
    QByteArray out;
    QByteArray err;
};

class KeluCli : public testing::Test {
 protected:
    QTemporaryDir folder;

    QString Path(const QString& name) const { return folder.filePath(name); }
    QString Photo() const { return QStringLiteral(KELU_SOURCE_DIR "/Gallery/cat.jpg"); }

    Result Run(const QStringList& arguments, const QString& shellPrefix = {}) const {
        QProcess process;
        if (shellPrefix.isEmpty()) {
            process.start(QStringLiteral(KELU_CLI), arguments);
        } else {
            process.start("sh",
                          QStringList{"-c", shellPrefix + QStringLiteral(" exec \"$0\" \"$@\""), KELU_CLI} + arguments);
        }
        EXPECT_TRUE(process.waitForFinished(60000));
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    QStringList Files() const {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

TEST_F(KeluCli, TellsTheCatalogue) {
    const Result result = Run({"effects", "--json"});
    ASSERT_EQ(result.status, 0) << result.err.constData();
    const QJsonArray effects = QJsonDocument::fromJson(result.out).array();
    ASSERT_EQ(effects.size(), static_cast<int>(kelu::Catalogue().size()));
    const QJsonObject oil = effects[32].toObject();
    EXPECT_EQ(oil["number"], 33);
    EXPECT_EQ(oil["name"], "Oil Painting");
    EXPECT_EQ(oil["inputs"][0]["option"], "s1");
    EXPECT_EQ(oil["inputs"][0]["min"], 1);
    EXPECT_EQ(oil["inputs"][0]["max"], 100);
    EXPECT_EQ(oil["inputs"][0]["default"], 5);
    // What it tells of a point is what it takes.
    const QJsonObject x = effects[8].toObject()["inputs"].toArray().last().toObject();
    ASSERT_EQ(x["option"], "y");
    const QString most = QString::number(x["max"].toInt());
    EXPECT_EQ(Run({"apply", "9", Photo(), Path("far.png"), "--y", most, "--x", "-" + most}).status, 0);
    EXPECT_EQ(Run({"apply", "9", Photo(), Path("far.png"), "--y", most + "0"}).status, 2);
    EXPECT_EQ(Run({"effects"}).out.count('\n'), effects.size());
}

TEST_F(KeluCli, PaintsOnlyAlongTheStrokesAndTheSameTwice) {
    WriteBytes(Path("strokes.json"), R"({"strokes": [{"size": 40, "points": [[100, 100], [300, 100]]}]})");
    const QStringList apply{"apply",     "Oil Painting",      Photo(), Path("one.png"), "--s1", "8",
                            "--strokes", Path("strokes.json")};
    ASSERT_EQ(Run(apply).status, 0);
    QStringList again = apply;
    again[3] = Path("two.png");
    ASSERT_EQ(Run(again).status, 0);
    EXPECT_EQ(ReadBytes(Path("one.png")), ReadBytes(Path("two.png")));

    const QImage before = QImage(Photo()).convertToFormat(QImage::Format_RGB32);
    const QImage after = QImage(Path("one.png")).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(after.size(), before.size());
    int changed = 0;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) == after.pixel(x, y)) continue;
            ++changed;
            const double dx = x < 100 ? 100 - x : x > 300 ? x - 300 : 0;
            ASSERT_LE(dx * dx + (y - 100) * (y - 100), 21.5 * 21.5) << x << "," << y << " lies outside the stroke";
        }
    EXPECT_GT(changed, 2000);
}

TEST_F(KeluCli, EachFaultGivesOneLineAndLeavesTheTarget) {
    const QByteArray jpeg = ReadBytes(Photo());
    WriteBytes(Path("cut.jpg"), jpeg.left(jpeg.size() / 2));
    WriteBytes(Path("empty.jpg"), "");
    QDir(folder.path()).mkdir("x.png");
    // A PNG header that claims 60000 x 60000 pixels; the checksum is right, the data are missing.
    WriteBytes(Path("huge.png"),
               QByteArray::fromHex("89504e470d0a1a0a0000000d494844520000ea600000ea6008020000000fb0e215"
                                   "0000000049454e44ae426082"));
    WriteBytes(Path("unnamed.png"),
               QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de"
                                   "00000000610000000000000000000000000049454e44ae426082"));
    WriteBytes(Path("target.png"), "the old picture");

    struct Row {
        const char* what;
        QString in;
        QString out;
    };
    const Row rows[] = {
        {"cut short", Path("cut.jpg"), Path("target.png")},
        {"empty", Path("empty.jpg"), Path("target.png")},
        {"claims 60000 x 60000", Path("huge.png"), Path("target.png")},
        {"a chunk with no name", Path("unnamed.png"), Path("target.png")},
        {"a folder as source", Path("x.png"), Path("target.png")},
        {"missing", Path("none.jpg"), Path("target.png")},
        {"a folder as target", Photo(), Path("x.png")},
        {"no format", Photo(), Path("target.xyz")},
    };
    const QStringList files = Files();
    for (const Row& row : rows) {
        const Result result = Run({"apply", "negative", row.in, row.out, "--force"});
        EXPECT_EQ(result.status, 1) << row.what;
        EXPECT_EQ(result.err.count('\n'), 1) << row.what << ": " << result.err.constData();
        EXPECT_TRUE(result.err.startsWith("kelu-cli: ")) << row.what << ": " << result.err.constData();
        EXPECT_EQ(ReadBytes(Path("target.png")), "the old picture") << row.what;
        EXPECT_EQ(Files(), files) << row.what;
    }
}

TEST_F(KeluCli, SeveralPicturesGoOnPastABadOne) {
    WriteBytes(Path("bad.jpg"), "no picture");
    const Result result =
        Run({"apply", "32", Photo(), Path("bad.jpg"), KELU_SOURCE_DIR "/Gallery/coffee.jpg", "--out-dir", Path("out")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err.toStdString(), testing::HasSubstr("bad.jpg"));
    EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files), (QStringList{"cat.jpg", "coffee.jpg"}));
}

TEST_F(KeluCli, AStoppedPipeLeavesNothingBehind) {
    const QDir temporary(Path("temporary"));
    ASSERT_TRUE(QDir().mkdir(temporary.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TEMP", temporary.path());
    program.setProcessEnvironment(environment);
    program.start(KELU_CLI, {"apply", "Sepia", "-", "-", "--format", "png"});
    program.write(ReadBytes(Photo()));  // and its end never comes
    ASSERT_TRUE(QTest::qWaitFor([&] { return !temporary.isEmpty(); }));
    program.terminate();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::CrashExit) << "as by the signal";
    EXPECT_TRUE(temporary.isEmpty());
    program.start("sh", {"-c", "\"$0\" convert \"$1\" - --format bmp | head -c 9", KELU_CLI, Photo()});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_TRUE(temporary.isEmpty());
}

TEST_F(KeluCli, ReplacesNothingUnasked) {
    const QString copy = Path("photo.png"), other = Path("sub/photo.png");
    QDir(folder.path()).mkdir("sub");
    ASSERT_EQ(Run({"convert", Photo(), copy}).status, 0);
    ASSERT_TRUE(QFile::copy(copy, other));
    const QByteArray before = ReadBytes(copy);
    // Into the pictures' own folder, onto a file that is there, two pictures of one name.
    EXPECT_EQ(Run({"apply", "negative", copy, "--out-dir", folder.path()}).status, 1);
    EXPECT_EQ(Run({"convert", Photo(), copy}).status, 1);
    const Result same = Run({"convert", copy, other, "--out-dir", Path("out"), "--force"});
    EXPECT_EQ(same.status, 1);
    EXPECT_EQ(same.err.count('\n'), 1) << same.err.constData();
    EXPECT_EQ(ReadBytes(copy), before);
    EXPECT_EQ(Run({"apply", "negative", copy, "--out-dir", folder.path(), "--force"}).status, 0);
    EXPECT_NE(ReadBytes(copy), before);
    EXPECT_EQ(Run({"convert", Photo(), copy, "-v", "--force"}).err.count('\n'), 1) << "told wherever -v stands";
}

TEST_F(KeluCli, GoesOnWhereAStoppedBatchWas) {
    QStringList names;
    for (const char* name : {"a.png", "b.png", "c.png", "d.png"}) {
        names += Path(name);
        ASSERT_EQ(Run({"convert", Photo(), names.back()}).status, 0);
    }
    WriteBytes(Path("list"), names.join(QChar(u'\0')).toUtf8());
    const QStringList batch{"apply",     "Negative",  "--list",   Path("list"), "-0",
                            "--out-dir", Path("out"), "--resume", "--json"};
    const auto statuses = [&](const QStringList& more, const QString& prefix = {}) {
        QStringList found;
        for (const QByteArray& line : Run(batch + more, prefix).out.split('\n'))
            if (!line.isEmpty()) found += QJsonDocument::fromJson(line)["status"].toString();
        found.sort();
        return found;
    };
    EXPECT_EQ(statuses({"--shard", "1/2"}), (QStringList{"done", "done"}));
    EXPECT_EQ(statuses({"--jobs", "2"}), (QStringList{"done", "done", "skipped", "skipped"}));
    const QByteArray whole = ReadBytes(Path("out/c.png"));
    // A result that is gone, one that is cut, a picture that changed: made again; the others are not.
    ASSERT_TRUE(QFile::remove(Path("out/a.png")));
    WriteBytes(Path("out/c.png"), whole.left(100));
    ASSERT_EQ(Run({"apply", "Sepia", Path("b.png"), Path("b.png"), "--force"}).status, 0);
    EXPECT_EQ(statuses({}), (QStringList{"done", "done", "done", "skipped"}));
    EXPECT_EQ(ReadBytes(Path("out/c.png")), whole);
    EXPECT_EQ(Run({"apply", "Negative", "-", "-", "--format", "png"}, "cat " + Path("c.png") + " |").out, whole);
    // A pipe gives its bytes once; lines that the disk did not take are no success, a reader that left is.
    const QStringList fromPipe{"apply", "Negative", Path("pipe"), "--out-dir", Path("piped"), "--resume"};
    EXPECT_EQ(Run(fromPipe, "mkfifo " + Path("pipe") + "; cat " + Path("c.png") + " > " + Path("pipe") + " &").status,
              0);
    EXPECT_EQ(ReadBytes(Path("piped/pipe.png")), whole);
    EXPECT_EQ(Run({"effects"}, "exec > /dev/full;").status, 1);
    EXPECT_EQ(Run({"effects"}, "true < " + Path("pipe") + " & exec > " + Path("pipe") + ";").err, "");
}

TEST_F(KeluCli, RefusesWrongWords) {
    const QString out = Path("out.png");
    for (const QStringList& words : {QStringList{},
                                     {"paint"},
                                     {"apply"},
                                     {"apply", "33", Photo()},
                                     {"apply", "49", Photo(), out},
                                     {"apply", "Oil Paint", Photo(), out},
                                     {"apply", "33", Photo(), out, "--s1", "0"},
                                     {"apply", "33", Photo(), out, "--s1", "many"},
                                     {"apply", "33", Photo(), out, "--s2", "5"},
                                     {"apply", "33", Photo(), out, "--s1"},
                                     {"apply", "33", Photo(), out, "--loud"},
                                     {"apply", "33", Photo(), "-x", out},
                                     {"apply", "45", Photo(), out, "--color1", "purplish"},
                                     {"apply", "45", Photo(), out, "--color1", "#80ff8000"},
                                     {"apply", "45", Photo(), out, "--color1", "transparent"},
                                     {"apply", "1", Photo(), Photo(), out},
                                     {"apply", "1", Photo(), out, "--shard", "3/2"},
                                     {"apply", "1", Photo(), out, "--resume"},
                                     {"apply", "1", Photo(), "-"},
                                     {"convert", Photo()},
                                     {"bench", "33"}}) {
        const Result result = Run(words);
        EXPECT_EQ(result.status, 2) << words.join(' ').toStdString();
        EXPECT_FALSE(result.err.isEmpty());
    }
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(KeluCli, CarriesSettingsFromOneStoreToAnother) {
    WriteBytes(Path("in.reg"),
               "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Tarvane\\Kelu]\r\n\"Size\"=\"42\"\r\n\"Count\"=dword:"
               "0000002a\r\n\r\n"
               "[HKEY_CURRENT_USER\\Software\\Tarvane\\Kelu\\Deep]\r\n@=\"two words\"\r\n");
    const QString key = "HKEY_CURRENT_USER\\Software\\Tarvane\\Kelu";
    const QStringList one{"--store", Path("one.txt")}, two{"--store", Path("two.txt")};
    ASSERT_EQ(Run(QStringList{"registry", "import", Path("in.reg")} + one).status, 0);

    const QJsonObject keys =
        QJsonDocument::fromJson(Run(QStringList{"registry", "show", key, "--json"} + one).out).object();
    EXPECT_EQ(keys[key]["Count"], (QJsonObject{{"type", 4}, {"value", 42}}));
    EXPECT_EQ(keys[key + "\\Deep"][""]["value"], "two words");
    ASSERT_EQ(Run(QStringList{"registry", "export", key, Path("out.reg"), "--subkeys"} + one).status, 0);
    ASSERT_EQ(Run(QStringList{"registry", "import", Path("out.reg")} + two).status, 0);
    EXPECT_EQ(Run(QStringList{"registry", "show", "--json"} + two).out,
              Run(QStringList{"registry", "show", "--json"} + one).out);

    const QByteArray before = ReadBytes(Path("two.txt"));
    EXPECT_EQ(Run(QStringList{"registry", "export", key, Path("out.reg")} + one).status, 1) << "the file is there";
    EXPECT_EQ(Run(QStringList{"registry", "export", key + "\\None", Path("none.reg")} + one).status, 1);
    EXPECT_EQ(Run(QStringList{"registry", "import", Path("no.reg")} + two).status, 1);
    EXPECT_EQ(Run({"registry", "forget"}).status, 2);
    EXPECT_EQ(ReadBytes(Path("two.txt")), before);
}

TEST_F(KeluCli, ConvertsAndMeasures) {
    for (const char* name : {"a.bmp", "a.gif", "a.jpg", "a.tif", "a.pdf", "A.PNG"})
        EXPECT_EQ(Run({"convert", Photo(), Path(name)}).status, 0) << name;
    EXPECT_EQ(QImage(Path("A.PNG")).size(), QImage(Photo()).size());
    WriteBytes(Path("told.jpg"), ReadBytes(Path("a.jpg")).insert(2, QByteArray("\xff\xfe\0\x08places", 10)));
    for (const QStringList& made : {QStringList{"convert"}, QStringList{"apply", "Negative"}}) {
        for (const char* option : {"--quality=92", "--strip", "--quality=30"}) {
            const QString out = Path(QString(made[0] + option + ".jpg"));
            EXPECT_EQ(Run(made + QStringList{option, Path("told.jpg"), out}).status, 0);
            EXPECT_EQ(ReadBytes(out).contains("places"), QByteArray(option) != "--strip") << option;
        }
        EXPECT_LT(2 * ReadBytes(Path(made[0] + "--quality=30.jpg")).size(),
                  ReadBytes(Path(made[0] + "--strip.jpg")).size());
    }
    const Result bench = Run({"bench", "Negative", Photo(), "--json"});
    ASSERT_EQ(bench.status, 0);
    EXPECT_GT(QJsonDocument::fromJson(bench.out)["effects"][0]["ratio_to_copy"].toDouble(), 0);
}

}  // namespace
