// kelu-cli: effects, strokes, conversion and measurements without a window.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/gif_commands.h"
#include "cli/registry_commands.h"

namespace {

constexpr const char* kUsage = R"(usage: kelu-cli COMMAND ...

  effects [--json | --names]                the catalogue: numbers, names, inputs, ranges, defaults
  apply EFFECT IN... OUT                    render an effect, by number or name; several pictures with
  apply EFFECT IN... --out-dir DIR          --s1 N --s2 N --s3 N --color1 #rrggbb --color2 #rrggbb --x N --y N
                                            --direction 1..8 --row N --option 1|2
                                            --strokes FILE paints only along the strokes, else everywhere
  convert IN OUT                            any readable picture to bmp, png, gif, jpg, tif or pdf
  gif-info FILE [--dump DIR]                the frames of an animated GIF as JSON; DIR gets each composed frame
  registry export KEY FILE [--subkeys]      settings as REGEDIT4 text
  registry import FILE
  registry show [KEY] --json                --store FILE works on another store
  bench EFFECT|all IN [--json]              time of the render alone, beside a plain copy of the picture

Status: 0 done, 1 a file or render failed, 2 wrong usage.
)";

int Run(const QStringList& arguments) {
    using namespace kelu::cli;
    const QString command = arguments.value(0);
    const QStringList words = arguments.mid(1);
    if (command == u"effects") return EffectsCommand(words);
    if (command == u"apply") return ApplyCommand(words);
    if (command == u"convert") return ConvertCommand(words);
    if (command == u"bench") return BenchCommand(words);
    if (command == u"gif-info") return kelu::GifInfoCommand(words);
    if (command == u"registry") return kelu::RegistryCommand(words);
    if (command == u"help" || command == u"--help" || command == u"-h") {
        std::fputs(kUsage, stdout);
        return kDone;
    }
    if (command == u"--version") {
        PrintLine(QStringLiteral("kelu-cli ") + QCoreApplication::applicationVersion());
        return kDone;
    }
    throw UsageError(command.isEmpty() ? QStringLiteral("no command; try kelu-cli help")
                                       : QStringLiteral("no such command: %1; try kelu-cli help").arg(command));
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
    try {
        return Run(application.arguments().mid(1));
    } catch (const kelu::cli::UsageError& error) {
        std::fprintf(stderr, "kelu-cli: %s\n", error.what());
        return kelu::cli::kWrongUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelu-cli: %s\n", error.what());
        return kelu::cli::kFailed;
    }
}
