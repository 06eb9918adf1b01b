// kelu-cli gif-info: its JSON, its pictures, its status.
// SPDX-License-Identifier: MIT
#include "cli/gif_commands.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QTemporaryDir>

#include "tests/pictures/gif/gif_bytes.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

using namespace test;

struct Outcome {
    int status;
    std::string output, errors;
};

Outcome RunCommand(const QStringList& arguments) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = GifInfoCommand(arguments);
    std::fflush(stdout);
    return {status, testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
}

QString Save(const QTemporaryDir& folder, const char* name, const QByteArray& bytes) {
    WriteBytes(folder.filePath(name), bytes);
    return folder.filePath(name);
}

TEST(GifInfo, DescribesAndDumps) {
    QTemporaryDir folder;
    const QString name = Save(folder, "a.gif",
                              Header(3, 1) + Netscape(4) + Image(0, 0, 3, 1, {0, 0, 0}) + Control(2, 12, 3) +
                                  Image(1, 0, 1, 1, {1}) + Image(2, 0, 1, 1, {2}) + kTrailer);
    const QString dump = folder.filePath("new/frames");
    const Outcome outcome = RunCommand({name, "--dump", dump});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(QJsonDocument::fromJson(outcome.output.c_str()), QJsonDocument::fromJson(R"({
        "width": 3, "height": 1, "loops": 4, "frames": [
        {"left": 0, "top": 0, "width": 3, "height": 1, "delay_ms": 0, "disposal": 0, "transparent_index": null},
        {"left": 1, "top": 0, "width": 1, "height": 1, "delay_ms": 120, "disposal": 2, "transparent_index": 3},
        {"left": 2, "top": 0, "width": 1, "height": 1, "delay_ms": 0, "disposal": 0, "transparent_index": null}]})"));
    EXPECT_EQ(QDir(dump).entryList(QDir::Files), (QStringList{"frame-1.png", "frame-2.png", "frame-3.png"}));
    const QImage last(dump + "/frame-3.png");
    EXPECT_EQ(last.size(), QSize(3, 1));
    EXPECT_EQ(last.pixel(0, 0), kRed);
    EXPECT_EQ(last.pixel(1, 0), kClear);
    EXPECT_EQ(last.pixel(2, 0), kBlue);
}

TEST(GifInfo, TellsWhatIsWrong) {
    QTemporaryDir folder;
    const QString good = Save(folder, "good.gif", Header(1, 1) + Image(0, 0, 1, 1, {1}) + kTrailer);
    const QString text = Save(folder, "text.gif", "hello");
    const QString huge = Save(folder, "huge.gif", Header(1, 1) + Image(65000, 65000, 1, 1, {1}) + kTrailer);
    struct Case {
        QStringList arguments;
        int status;
    };
    const Case cases[] = {{{}, 2},
                          {{good, text}, 2},
                          {{good, "--dump"}, 2},
                          {{good, "--unknown"}, 2},
                          {{folder.filePath("none.gif")}, 1},
                          {{folder.path()}, 1},
                          {{text}, 1},
                          {{huge}, 0},
                          {{huge, "--dump", folder.filePath("d")}, 1},
                          {{good, "--dump", good}, 1}};
    for (const Case& test : cases) {
        const Outcome outcome = RunCommand(test.arguments);
        EXPECT_EQ(outcome.status, test.status) << test.arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.output.empty(), test.status != 0);
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), test.status == 0 ? 0 : 1)
            << outcome.errors;
    }
}

}  // namespace
}  // namespace kelu
