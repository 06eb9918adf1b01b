// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <unistd.h>

#include <QFileInfo>
#include <algorithm>
#include <cstdio>
#include <numeric>
#include <utility>
#include <vector>

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
        if (word.size() == 2 && word[0] == u'-' && flags.contains(word.mid(1))) {
            parsed.options[word.mid(1)] = QString();
            continue;
        }
        if (word == u"-q" || word == u"-v") {
            SetTalk(word == u"-q" ? Talk::Little : Talk::Much);
            continue;
        }
        if (!word.startsWith(u'-') || word == u"-") {
            parsed.words += word;
            continue;
        }
        if (!word.startsWith(u"--")) throw UsageError(QStringLiteral("unknown option %1").arg(word));
        const qsizetype equals = word.indexOf(u'=');
        const QString name = word.mid(2, equals < 0 ? -1 : equals - 2);
        if (withValue.contains(name)) {
            if (equals < 0 && i + 1 == words.size()) throw UsageError(QStringLiteral("--%1 takes a value").arg(name));
            parsed.options[name] = equals < 0 ? words[++i] : word.mid(equals + 1);
        } else if (name.size() > 1 && flags.contains(name) && equals < 0) {
            parsed.options[name] = QString();
        } else {
            throw UsageError(QStringLiteral("unknown option %1").arg(word));
        }
    }
    return parsed;
}

QString DidYouMean(const QString& word, const QStringList& names) {
    // Edit distance of two words: insertions, deletions, exchanges (Wagner and Fischer 1974).
    const auto distance = [](const QString& a, const QString& b) {
        std::vector<qsizetype> row(static_cast<std::size_t>(b.size()) + 1);
        std::iota(row.begin(), row.end(), 0);
        for (qsizetype i = 0; i < a.size(); ++i) {
            qsizetype diagonal = std::exchange(row[0], i + 1);
            for (qsizetype j = 0; j < b.size(); ++j) {
                qsizetype& cell = row[static_cast<std::size_t>(j) + 1];
                const qsizetype exchanged = diagonal + (a[i] != b[j]);
                diagonal = cell;
                cell = std::min({cell + 1, row[static_cast<std::size_t>(j)] + 1, exchanged});
            }
        }
        return row.back();
    };
    const QString* nearest = nullptr;
    for (const QString& name : names)
        if (!nearest && word.size() > 1 && name.startsWith(word, Qt::CaseInsensitive)) nearest = &name;
    qsizetype least = std::max<qsizetype>(2, word.size() / 3) + 1;
    if (nearest) least = 0;  // the rest of the name was left out
    for (const QString& name : names) {
        if (std::abs(word.size() - name.size()) >= least) continue;  // what the lengths differ is the least of it
        if (const qsizetype steps = distance(word.toLower(), name.toLower()); steps < least)
            least = steps, nearest = &name;
    }
    return nearest ? QStringLiteral(" (did you mean %1?)").arg(*nearest) : QString();
}

void PrintLine(const QString& text) { std::printf("%s\n", text.toLocal8Bit().constData()); }

namespace {
Talk talking = Talk::Normal;
bool ShowsProgress() { return Talks(Talk::Normal) && isatty(STDERR_FILENO); }
constexpr const char* kClearLine = "\r\033[K";
}  // namespace

void SetTalk(Talk talk) { talking = talk; }
bool Talks(Talk atLeast) { return talking >= atLeast; }

QString FailureLine(const QString& file, const QString& reason) {
    // Failures of files name their file, for a message in a window; here its whole path stands before.
    QString rest = reason;
    for (const QString& name : {file, QFileInfo(file).fileName()})
        if (rest.startsWith(name + QStringLiteral(": "))) rest.remove(0, name.size() + 2);
    return file + QStringLiteral(": ") + rest.simplified();
}

void PrintError(const QString& text) {
    const QByteArray line = (QByteArray(ShowsProgress() ? kClearLine : "")) + "kelu-cli: " + text.toLocal8Bit() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

void PrintFailure(const QString& file, const QString& reason) { PrintError(FailureLine(file, reason)); }

void ShowProgress(const QString& file, int percent) {
    if (!ShowsProgress()) return;
    std::fprintf(stderr, "\r%s: %d%%%s", file.toLocal8Bit().constData(), percent, percent >= 99 ? kClearLine : "");
    std::fflush(stderr);
}

void ShowCount(std::size_t finished, std::size_t all, qint64 elapsed) {
    if (!ShowsProgress()) return;
    const qint64 left = elapsed * static_cast<qint64>(all - finished) / static_cast<qint64>(finished) / 1000;
    if (finished == all)
        std::fputs(kClearLine, stderr);
    else
        std::fprintf(stderr, "\r%zu of %zu, %lld:%02lld left\033[K", finished, all, static_cast<long long>(left / 60),
                     static_cast<long long>(left % 60));
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
