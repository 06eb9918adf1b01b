// The registry store in one text file that a person can read and edit.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "platform/file_lock.h"
#include "platform/registry_store.h"

namespace kelu {

/// The file (mode 0600) is read once and again when it has changed; it is replaced as a whole, under a lock that holds
/// other processes off from reading to writing, so that none loses the other's values. Lines that aren't understood
/// make the file a damaged one: it is set aside under another name, and the values that could be read stay.
class RegistryFile : public RegistryStore {
 public:
    /// `path` of the text file; file and folder (mode 0700) are made with the first value.
    explicit RegistryFile(const QString& path);
    ~RegistryFile() override;

    /// The user's settings file of this program.
    static QString UserPath();

    const RegistryTree& Tree() override;
    bool Apply(const Change& change) override;
    QString Failure() const override { return failure_; }
    bool BeginBatch() override;
    bool EndBatch() override;

 private:
    struct Stamp {
        qint64 size = -1;  ///< -1: no file
        qint64 inode = 0;
        qint64 modified = 0;  ///< nanoseconds
        bool operator==(const Stamp&) const = default;
    };
    Stamp Look() const;
    bool Read();
    bool Keep();
    void SetAside();
    bool Fail(const QString& reason);

    QString path_;
    std::unique_ptr<FileLock> lock_;  ///< held during a change or batch
    int batches_ = 0;
    bool batchChanged_ = false;
    QString failure_;
    RegistryTree tree_;
    QByteArray bytes_;  ///< the file's content that tree_ was read from
    Stamp stamp_;
    bool stampTrusted_ = false;  ///< the file was old enough when read for its stamp to tell a later change
    bool damaged_ = false;
    bool repairTried_ = false;  ///< once for each damaged content is enough
    bool readable_ = true;
};

}  // namespace kelu
