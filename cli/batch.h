// From words to results: which pictures come in, where each result goes, what may be replaced, which share of the list
// is ours, how many are made at a time, and what is already there. Every command that makes pictures goes this way.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSet>
#include <QStringList>
#include <functional>
#include <vector>

#include "cli/command_line.h"

namespace kelu {
class Surface;
struct Surfaces;
}  // namespace kelu

namespace kelu::cli {

class Batch {
 public:
    /// Names of the options that a batch reads, with a value and without.
    static QStringList Options();
    static QStringList Flags();

    /// Makes the picture of one input: the result is the canvas. Runs on any thread, several at once with --jobs. A
    /// failure is thrown and counts for the input.
    using Make = std::function<void(const QString& in, Surfaces& made)>;

    /// `words` are the inputs and, without --out-dir, the name of the result. "-" and pipes stand for what is read from
    /// them; "-" as the result for standard output in the format of --format. Throws UsageError for words that fit no
    /// result and options that contradict each other.
    Batch(const Arguments& arguments, QStringList words);

    /// Makes and writes all; the bad ones are named, the good ones done. `recipe` is all that decides the result beside
    /// the input, for --resume. Returns the exit status.
    int Run(const QByteArray& recipe, const Make& make);

 private:
    struct Task {
        QString in;
        QString out;      ///< "-": standard output
        QString refusal;  ///< why the result must not be written; empty when it may
    };
    enum class Outcome { Done, Failed, Skipped };

    /// Our share of the list; what may not be written is told before anything runs, whatever order the jobs take.
    std::vector<Task> Tasks();
    QString NameInFolder(const QString& in) const;
    QString Refusal(const QString& out);
    void Save(const Surface& made, const QString& out) const;
    Outcome RunOne(const Task& task, const Make& make, QString& reason) const;
    void Report(const Task& task, Outcome outcome, const QString& reason) const;

    QStringList inputs_;
    QString out_;        ///< name of the one result; empty with a folder
    QString folder_;     ///< --out-dir
    QByteArray format_;  ///< --format, in lower case; empty: by the name
    bool force_ = false;
    bool resume_ = false;
    bool json_ = false;
    bool strip_ = false;
    int quality_;
    int jobs_ = 1;
    int shard_ = 0;  ///< counted from 0
    int shards_ = 1;
    QSet<QString> sources_;  ///< inputs as canonical paths: never written without --force
    QSet<QString> written_;  ///< results of this run
};

}  // namespace kelu::cli
