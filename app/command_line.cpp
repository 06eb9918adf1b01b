// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <QCommandLineParser>
#include <QRegularExpression>
#include <QUrl>

namespace kelu {

namespace {

constexpr int kWrongUsage = 2;

/// Options that the toolkit's application object takes for itself.
constexpr const char* kToolkitOptions[] = {
    "platform",    "platformpluginpath", "platformtheme", "plugin",  "qwindowgeometry",
    "qwindowicon", "qwindowtitle",       "session",       "display", "style",
    "geometry"};
constexpr const char* kToolkitFlags[] = {"reverse", "widgetcount"};

QString LocalPath(const QString& word) {
    const QUrl url(word);
    return url.isLocalFile() ? url.toLocalFile() : word;
}

}  // namespace

CommandLine ReadCommandLine(const QStringList& words) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(QStringLiteral("Renders effects over photographs and lets you brush them on."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help and end."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version and end."));
    parser.addOptions({help, version});
    const auto hide = [&parser](QCommandLineOption option) {
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    };
    for (const char* name : kToolkitOptions) hide({QLatin1String(name), QString(), QStringLiteral("value")});
    for (const char* name : kToolkitFlags) hide(QCommandLineOption(QLatin1String(name)));
    parser.addPositionalArgument(QStringLiteral("picture"), QStringLiteral("Picture to open: a path or a file: URL."),
                                 QStringLiteral("[picture]"));

    CommandLine line;
    if (!parser.parse(words)) {
        line.error = QStringLiteral("kelu: %1\nTry kelu --help.\n").arg(parser.errorText());
        line.status = kWrongUsage;
    } else if (parser.isSet(help)) {
        static const QRegularExpression program(QStringLiteral("^Usage: .*(?= \\[options\\])"));
        line.out = parser.helpText().replace(program, QStringLiteral("Usage: kelu"));
        line.status = 0;
    } else if (parser.isSet(version)) {
        line.out = QStringLiteral("kelu " KELU_VERSION "\n");
        line.status = 0;
    } else if (const QStringList pictures = parser.positionalArguments(); !pictures.isEmpty()) {
        line.picture = LocalPath(pictures.last());
        if (pictures.size() > 1)
            line.error = QStringLiteral("kelu: opens one picture at a time: %1\n").arg(line.picture);
    }
    return line;
}

}  // namespace kelu
