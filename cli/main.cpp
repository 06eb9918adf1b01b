// kelu-cli: effects, strokes, conversion and measurements without a window.
// SPDX-License-Identifier: MIT
#include <poll.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/gif_commands.h"
#include "cli/registry_commands.h"
#include "cli/stream_folder.h"

namespace {

constexpr const char* kBatchUsage =
    "  --out-dir DIR       results go there under the pictures' names\n"
    "  --format png        format of the results; needed where the result is - (standard output)\n"
    "  --quality N         1 to 100, of JPEG and WebP; 92 without it\n"
    "  --strip             leave out what the photograph carries (camera, date, place, author); without it all is "
    "kept\n"
    "  --force             replace what is there; without it nothing is ever overwritten\n"
    "  --resume            pass over what an earlier run made from the same picture and inputs, make the rest\n"
    "                      anew, also where a result is there (with --out-dir)\n"
    "  --list FILE|-       more pictures, one a line; -0: ended by NUL\n"
    "  --jobs N            N pictures at a time\n"
    "  --shard I/N         the I-th of N shares of the list, for several machines\n"
    "  --json              a line of JSON a picture\n"
    "IN may be - or a pipe.\n";

struct CommandRow {
    const char* name;
    int (*run)(const QStringList& words);
    const char* words;  ///< what stands behind the name
    const char* purpose;
    const char* options;  ///< for its own help
    bool makesPictures;
};

using namespace kelu::cli;

constexpr CommandRow kCommands[] = {
    {"effects", EffectsCommand, "[--json | --names]", "the catalogue: numbers, names, inputs, ranges, defaults", "",
     false},
    {"apply", ApplyCommand, "EFFECT IN... OUT|--out-dir DIR", "render an effect, by number or name",
     "  --s1 N --s2 N --s3 N --color1 #rrggbb --color2 #rrggbb --x N --y N --direction 1..8 --row N --option 1|2\n"
     "                      its inputs; kelu-cli effects tells which it has\n"
     "  --strokes FILE|-    paint only along the strokes, else everywhere\n",
     true},
    {"convert", ConvertCommand, "IN... OUT|--out-dir DIR",
     "any readable picture to bmp, png, gif, jpg, tif, webp or pdf", "", true},
    {"replay", ReplayCommand, "RECIPE [IN...] OUT|--out-dir DIR",
     "what a recipe tells, bit for bit; on its own picture or others",
     "  --fit               strokes and points follow a picture of another size\n"
     "  --film OUT.gif      the painting as it grew, in place of a result\n",
     true},
    {"gif-info", kelu::GifInfoCommand, "FILE [--dump DIR]",
     "the frames of an animated GIF as JSON; DIR gets each as PNG", "", false},
    {"registry", kelu::RegistryCommand, "export KEY FILE [--subkeys] | import FILE | show [KEY] --json",
     "settings as REGEDIT4 text", "  --store FILE        works on another store\n", false},
    {"bench", BenchCommand, "EFFECT|all IN [--json]", "time of the render alone, beside a plain copy of the picture",
     "", false},
};

void PrintUsage() {
    std::puts("usage: kelu-cli COMMAND ... [-q | -v]\n");
    for (const CommandRow& row : kCommands) std::printf("  %s %s\n      %s\n", row.name, row.words, row.purpose);
    std::puts(
        "\nkelu-cli COMMAND --help tells its options. -q tells failures alone, -v each file. --version.\n"
        "Status: 0 done, 1 a file or render failed (one line each on standard error), 2 wrong usage.");
}

int PrintHelp(const CommandRow& row) {
    std::printf("usage: kelu-cli %s %s\n%s\n\n%s%s", row.name, row.words, row.purpose, row.options,
                row.makesPictures ? kBatchUsage : "");
    return kDone;
}

int Run(QStringList words) {
    while (words.value(0) == u"-q" || words.value(0) == u"-v")
        SetTalk(words.takeFirst() == u"-q" ? Talk::Little : Talk::Much);
    const QString command = words.value(0);
    if (!words.isEmpty()) words.removeFirst();
    if (command == u"help" || command == u"--help" || command == u"-h") {
        if (!words.value(0).isEmpty() && words[0][0] != u'-') return Run({words.first(), QStringLiteral("--help")});
        PrintUsage();
        return kDone;
    }
    if (command == u"--version") {
        PrintLine(QStringLiteral("kelu-cli ") + QCoreApplication::applicationVersion());
        return kDone;
    }
    QStringList names;
    for (const CommandRow& row : kCommands) {
        names += QLatin1String(row.name);
        if (command != QLatin1String(row.name)) continue;
        if (words.contains(QStringLiteral("--help")) || words.contains(QStringLiteral("-h"))) return PrintHelp(row);
        return row.run(words);
    }
    throw UsageError(
        command.isEmpty()
            ? QStringLiteral("no command; try kelu-cli help")
            : QStringLiteral("no such command: %1%2; try kelu-cli help").arg(command, DidYouMean(command, names)));
}

/// Lines that standard output did not take, as on a full disk, are a failure; a reader that has seen enough is none.
int AfterOutput(int status) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    pollfd reader{STDOUT_FILENO, 0, 0};
    const bool left = ::poll(&reader, 1, 0) > 0 && (reader.revents & POLLERR) != 0;
    if (status != kDone || left) return status;
    std::fputs("kelu-cli: standard output takes no more\n", stderr);
    return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    // Decoders of the libraries below tell their troubles on standard error too; a failure is told once, by us.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg) std::fprintf(stderr, "kelu-cli: %s\n", text.toLocal8Bit().constData());
    });
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kelu-cli"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KELU_VERSION));
    kelu::cli::RemoveStreamFoldersAtEnd();
    try {
        return AfterOutput(Run(application.arguments().mid(1)));
    } catch (const kelu::cli::UsageError& error) {
        std::fprintf(stderr, "kelu-cli: %s\n", error.what());
        return kelu::cli::kWrongUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelu-cli: %s\n", error.what());
        return kelu::cli::kFailed;
    }
}
