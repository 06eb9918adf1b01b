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

/// Splits `words`; options named in `withValue` take the next word or the part behind "=". Throws UsageError for an
/// option that is in neither list. Everything behind "--" is a word.
Arguments Parse(const QStringList& words, const QStringList& withValue, const QStringList& flags);

/// Prints "kelu-cli: FILE: reason" on standard error.
void PrintFailure(const QString& file, const QString& reason);
void PrintLine(const QString& text);

/// Runs the work for one file; a failure is printed and gives false. Shows percent reports as long as it runs, when
/// standard error is a terminal.
bool RunForFile(const QString& file, const std::function<void()>& work);
/// Shows `percent` of the work on `file` on a terminal; elsewhere nothing.
void ShowProgress(const QString& file, int percent);

}  // namespace kelu::cli
