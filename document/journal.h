// The record of what is done to the open picture, so that a crash, a kill or a power cut costs at most the last second.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QPoint>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "document/recipe.h"
#include "document/session_log.h"
#include "platform/pool_job.h"

namespace kelu {

class JournalFile;

/// Keeps the text of the session in memory and has a worker append it to a file in `folder`, from the first stroke on:
/// a picture that is only looked at leaves no trace. The file goes when all is saved or given up and the next picture
/// comes, or the program ends; else it stays for the next start.
class Journal : public QObject, public SessionLog {
    Q_OBJECT

 public:
    /// Nothing is read or written before the first stroke.
    explicit Journal(QString folder);
    /// Ends the journal in order: the file goes if nothing in it is unsaved. Waits for the worker.
    ~Journal() override;

    void Opened(const OpenedPicture& picture) override;
    void Replaced() override;
    void Applied(int effect, const EffectInputs& inputs, bool rendered) override;
    void BrushTaken(BrushSource source, const BrushHandle& brush) override;
    void BrushSoftened(int softness) override;
    void StrokeBegan(const QPoint& at) override;
    void LinePainted(const QPoint& from, const QPoint& to) override;
    void AllPainted() override;
    void Undone() override;
    void Redone() override;
    void Settled(const QString& savedAs) override;

    /// Goes on after a replay of `recipe`, all of which counts as unsaved: in the journal that it came from, or in a
    /// new one when `file` is null.
    void Resume(const Recipe& recipe, const OpenedPicture& picture, std::shared_ptr<JournalFile> file);

    const QString& Folder() const { return folder_; }
    /// Something was painted since the picture was opened.
    bool Painted() const { return begun_; }
    /// What was done since the picture was opened; opens none without a picture. Waits for the worker where something
    /// was painted with the brush of the picture before, and throws Error(kFileError) where that could not be kept.
    Recipe Told();
    /// Waits for the worker; on any thread.
    void Wait() { WaitForJobs(worker_); }
    const OpenedPicture& Picture() const { return picture_; }
    /// Hands what is not yet written to the worker, and waits for it if asked to.
    void Flush(bool wait = false);

 Q_SIGNALS:
    /// The journal can't be written; painting goes on without. Told once until it could be again.
    void Off(const QString& reason);
    /// The picture gave way to another while something was unsaved: its journal, of this path, stays until the next
    /// picture is saved or given up.
    void Left(const QString& path, const QString& pictureName);

 private:
    /// What belongs to the worker's jobs alone.
    struct Files {
        std::shared_ptr<JournalFile> file;  ///< of the present picture; null: none, or it failed
        bool kept = false;                  ///< the opened picture lies beside it
        Recipe::KeptBrush brush;            ///< of the picture before; painted with
        QStringList left;                   ///< journals that were left with something unsaved
        bool off = false;                   ///< nothing was kept since a failure that was told
    };
    using Job = std::function<void(Files& files)>;

    bool Records() const { return !lines_.isEmpty(); }
    /// Something that can't be had again by opening the file: from here on there is a file.
    void Changed();
    void PutBrush(bool paints = false);
    void KeepForeignBrush();
    void CutStroke();
    void Put(const QByteArray& line);
    void Begin();
    void LeavePicture();
    void Run(Job job);

    QString folder_;
    OpenedPicture picture_;
    QByteArray lines_;        ///< since the open, whole lines
    qsizetype handedOn_ = 0;  ///< bytes of lines_ that the worker has
    QByteArray stroke_;       ///< the line under way, without its end; empty: none
    int strokePoints_ = 0;
    QPoint last_;
    std::optional<Recipe::Step> brush_;  ///< taken since the last line
    bool begun_ = false;                 ///< the worker has the file
    bool unsaved_ = false;
    bool restores_ = false;  ///< the brush paints the original
    bool foreign_ = false;   ///< painted with the brush of the picture before
    QTimer timer_;
    QThreadPool worker_;  ///< one thread, so that jobs keep their order
    std::shared_ptr<Files> files_;
};

}  // namespace kelu
