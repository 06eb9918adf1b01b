// What the commands of kelu-cli share: exit statuses, the one-line error, reading options, progress on a terminal.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <exception>
#include <functional>

namespace kelu::cli {

enum Status : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

/// Wrong words on the command line; ends the program with kWrongUsage.
class UsageError : public std::exception {
 public:
    explicit UsageError(const QString& text) : text_(text.toUtf8().toStdString()) {}
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    std::string text_;
};

struct Arguments {
    QStringList words;               ///< what is no option, in order
    QMap<QString, QString> options;  ///< by name without dashes; a flag's value is empty

    bool Has(const QString& name) const { return options.contains(name); }
    /// Throws UsageError when the text is no whole number within the range.
    int Integer(const QString& name, int from, int to) const;
};

/// Splits `words`; options named in `withValue` take the next word or the part behind "=". A flag of one letter has one
/// dash. Throws UsageError for an option that is in neither list. Everything behind "--" is a word, and so is "-".
Arguments Parse(const QStringList& words, const QStringList& withValue, const QStringList& flags);

/// " (did you mean NAME?)" where one of the names is nearly the word, else nothing.
QString DidYouMean(const QString& word, const QStringList& names);

/// How much is told on standard error: failures alone, progress on a terminal too, or each file.
enum class Talk { Little, Normal, Much };
void SetTalk(Talk talk);
bool Talks(Talk atLeast);

/// "FILE: reason" in one line, the file named once.
QString FailureLine(const QString& file, const QString& reason);
/// Prints "kelu-cli: TEXT" on standard error, whole even when several threads print.
void PrintError(const QString& text);
/// Prints the failure of a file.
void PrintFailure(const QString& file, const QString& reason);
void PrintLine(const QString& text);

/// Runs the work for one file; a failure is printed and gives false. Shows percent reports as long as it runs, when
/// standard error is a terminal.
bool RunForFile(const QString& file, const std::function<void()>& work);
/// Shows `percent` of the work on `file` on a terminal; elsewhere nothing.
void ShowProgress(const QString& file, int percent);
/// Shows how many of a list are finished and how long the rest may take, after `elapsed` ms; on a terminal alone.
void ShowCount(std::size_t finished, std::size_t all, qint64 elapsed);

}  // namespace kelu::cli
