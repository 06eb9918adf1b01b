// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <unistd.h>

#include <QFileInfo>
#include <cstdio>

#include "platform/error.h"

namespace kelu::cli {

int Arguments::Integer(const QString& name, int from, int to) const {
    bool isNumber = false;
    const int value = options.value(name).toInt(&isNumber);
    if (!isNumber || value < from || value > to)
        throw UsageError(QStringLiteral("--%1 takes a whole number from %2 to %3").arg(name).arg(from).arg(to));
    return value;
}

Arguments Parse(const QStringList& words, const QStringList& withValue, const QStringList& flags) {
    Arguments parsed;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (word == u"--") {
            parsed.words += words.mid(i + 1);
            break;
        }
        if (!word.startsWith(u"--")) {
            parsed.words += word;
            continue;
        }
        const qsizetype equals = word.indexOf(u'=');
        const QString name = word.mid(2, equals < 0 ? -1 : equals - 2);
        if (withValue.contains(name)) {
            if (equals < 0 && i + 1 == words.size()) throw UsageError(QStringLiteral("--%1 takes a value").arg(name));
            parsed.options[name] = equals < 0 ? words[++i] : word.mid(equals + 1);
        } else if (flags.contains(name) && equals < 0) {
            parsed.options[name] = QString();
        } else {
            throw UsageError(QStringLiteral("unknown option %1").arg(word));
        }
    }
    return parsed;
}

void PrintLine(const QString& text) { std::printf("%s\n", text.toLocal8Bit().constData()); }

void PrintFailure(const QString& file, const QString& reason) {
    // Failures of files name their file, for a message in a window; here its whole path stands before.
    QString rest = reason;
    for (const QString& name : {file, QFileInfo(file).fileName()})
        if (rest.startsWith(name + QStringLiteral(": "))) rest.remove(0, name.size() + 2);
    std::fprintf(stderr, "kelu-cli: %s: %s\n", file.toLocal8Bit().constData(),
                 rest.simplified().toLocal8Bit().constData());
}

void ShowProgress(const QString& file, int percent) {
    if (!isatty(STDERR_FILENO)) return;
    std::fprintf(stderr, "\r%s: %d%%%s", file.toLocal8Bit().constData(), percent, percent >= 99 ? "\r\033[K" : "");
    std::fflush(stderr);
}

bool RunForFile(const QString& file, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const UsageError&) {
        throw;
    } catch (const Error& error) {
        PrintFailure(file, error.Description());
    } catch (const std::bad_alloc&) {
        PrintFailure(file, QStringLiteral("not enough memory"));
    }
    return false;
}

}  // namespace kelu::cli
