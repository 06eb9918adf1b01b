// What a batch has finished, kept beside the results so that a run that was stopped goes on where it was: one line of
// text a result, appended when the result lies whole on disk. Each share of a divided list writes a file of its own, so
// that machines on one folder do not meet; all are read.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace kelu::cli {

class DoneList {
 public:
    /// The lists of `folder`; new lines go to the one of this share, counted from 0.
    DoneList(const QString& folder, int shard, int shards);

    /// What decides a result: the input's bytes and all parameters. Empty when the input can't be read.
    static QByteArray KeyOf(const QString& input, const QByteArray& recipe);

    /// Whether the result (a name in the folder) was made from just this, and still has the size it had.
    bool Holds(const QString& result, const QByteArray& key) const;
    /// Appends in one write; false when it could not.
    bool Add(const QString& result, const QByteArray& key);

 private:
    QString folder_;
    QString own_;
    QHash<QString, QByteArray> lines_;  ///< key and size by result
};

}  // namespace kelu::cli
