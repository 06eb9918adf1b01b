// SPDX-License-Identifier: MIT
#include "cli/batch.h"

#include <sys/stat.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutex>
#include <cstdio>
#include <memory>

#include "cli/done_list.h"
#include "cli/stream_folder.h"
#include "document/document.h"
#include "output/pdf/pdf_export.h"
#include "pictures/picture_file.h"
#include "platform/error.h"
#include "platform/pool_job.h"

namespace kelu::cli {

namespace {

constexpr int kMostJobs = 64;
const QString kStandard = QStringLiteral("-");

bool IsPdf(const QString& name) { return name.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive); }
bool CanWrite(const QString& name) { return IsPdf(name) || CanWritePicture(name); }

/// "-", what a shell's <(...) gives, a named pipe: bytes that come once.
bool IsStream(const QString& name) {
    struct stat what {};
    return name == kStandard || name.startsWith(QStringLiteral("/dev/fd/")) || name == QStringLiteral("/dev/stdin") ||
           name.startsWith(QStringLiteral("/proc/self/fd/")) ||
           (::stat(QFile::encodeName(name).constData(), &what) == 0 && S_ISFIFO(what.st_mode));
}

/// Copies all that comes from `in` to a file; throws Error.
void CopyStream(const QString& in, const QString& file) {
    QFile from(in), to(file);
    const bool opened = in == kStandard ? from.open(stdin, QIODevice::ReadOnly) : from.open(QIODevice::ReadOnly);
    if (!opened) throw Error(kFileError, from.errorString());
    if (!to.open(QIODevice::WriteOnly)) throw Error(kFileError, to.errorString());
    for (QByteArray bytes = from.read(1 << 20); !bytes.isEmpty(); bytes = from.read(1 << 20))
        if (to.write(bytes) != bytes.size()) throw Error(kFileError, to.errorString());
}

void CopyToStandardOutput(const QString& file) {
    QFile from(file);
    if (!from.open(QIODevice::ReadOnly)) throw Error(kFileError, from.errorString());
    const QByteArray bytes = from.readAll();
    if (std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) !=
            static_cast<std::size_t>(bytes.size()) ||
        std::fflush(stdout) != 0)
        throw Error(kFileError, QStringLiteral("standard output takes no more"));
}

QStringList ReadList(const QString& name, char separator) {
    QFile file(name);
    const bool opened = name == kStandard ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened) throw UsageError(QStringLiteral("--list %1: %2").arg(name, file.errorString()));
    QStringList names;
    for (const QByteArray& line : file.readAll().split(separator))
        if (!line.isEmpty()) names += QFile::decodeName(line);
    return names;
}

/// The file's one name, whether it is there or not.
QString Canonical(const QString& name) {
    const QFileInfo file(name);
    if (file.exists()) return file.canonicalFilePath();
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return (folder.isEmpty() ? file.absolutePath() : folder) + u'/' + file.fileName();
}

}  // namespace

QStringList Batch::Options() { return {"out-dir", "format", "quality", "jobs", "list", "shard"}; }
QStringList Batch::Flags() { return {"strip", "force", "resume", "json", "0"}; }

Batch::Batch(const Arguments& arguments, QStringList words)
    : folder_(arguments.options.value("out-dir")),
      format_(arguments.options.value("format").toLower().toLatin1()),
      force_(arguments.Has("force")),
      resume_(arguments.Has("resume")),
      json_(arguments.Has("json")),
      strip_(arguments.Has("strip")),
      quality_(arguments.Has("quality") ? arguments.Integer("quality", 1, 100) : WriteOptions().quality) {
    const bool toFolder = arguments.Has("out-dir");
    if (!toFolder) {
        if (words.isEmpty()) throw UsageError(QStringLiteral("no name for the result, and no --out-dir"));
        out_ = words.takeLast();
    }
    if (arguments.Has("list")) words += ReadList(arguments.options["list"], arguments.Has("0") ? '\0' : '\n');
    if (words.isEmpty()) throw UsageError(QStringLiteral("no pictures, or no name for the result"));
    if (!toFolder && words.size() > 1) throw UsageError(QStringLiteral("several pictures need --out-dir"));
    if (resume_ && !toFolder) throw UsageError(QStringLiteral("--resume goes with --out-dir"));
    if (out_ == kStandard && format_.isEmpty()) throw UsageError(QStringLiteral("- as the result needs --format"));
    if (!format_.isEmpty() && !CanWrite(QStringLiteral("x.") + QString::fromLatin1(format_)))
        throw UsageError(QStringLiteral("no such format to write: %1").arg(QString::fromLatin1(format_)));
    if (arguments.Has("jobs")) jobs_ = arguments.Integer("jobs", 1, kMostJobs);
    if (arguments.Has("shard")) {
        const QStringList parts = arguments.options["shard"].split(u'/');
        shard_ = parts.value(0).toInt() - 1;
        shards_ = parts.value(1).toInt();
        if (parts.size() != 2 || shard_ < 0 || shard_ >= shards_)
            throw UsageError(QStringLiteral("--shard takes I/N, I from 1 to N"));
    }
    inputs_ = words;
}

QString Batch::NameInFolder(const QString& in) const {
    const QFileInfo name(in == kStandard ? QStringLiteral("stdin") : in);
    QString file = name.fileName();
    if (!format_.isEmpty())
        file = name.completeBaseName() + u'.' + QString::fromLatin1(format_);
    else if (!CanWritePicture(file))
        file = name.completeBaseName() + QStringLiteral(".png");
    return QDir(folder_).filePath(file);
}

std::vector<Batch::Task> Batch::Tasks() {
    for (const QString& in : inputs_)
        if (!IsStream(in)) sources_.insert(Canonical(in));
    std::vector<Task> tasks;
    for (qsizetype i = 0; i < inputs_.size(); ++i) {
        const QString out = out_.isEmpty() ? NameInFolder(inputs_[i]) : out_;
        // Of two inputs with one name the first has the result, whichever share it falls into.
        const QString refusal = Refusal(out);
        if (i % shards_ == shard_) tasks.push_back({inputs_[i], out, refusal});
    }
    return tasks;
}

QString Batch::Refusal(const QString& out) {
    if (out == kStandard) return {};
    if (!CanWrite(out)) return QStringLiteral("no format that can be written");
    const QString path = Canonical(out);
    if (written_.contains(path)) return QStringLiteral("was written for another picture of this run");
    written_.insert(path);
    if (force_) return {};
    if (sources_.contains(path)) return QStringLiteral("is one of the pictures; --force replaces it");
    if (!resume_ && QFileInfo::exists(path)) return QStringLiteral("is there already; --force replaces it");
    return {};
}

void Batch::Save(const Surface& made, const QString& out) const {
    if (IsPdf(out)) return WritePdf(made.Picture(), out, KeluPdfProperties());
    WriteOptions options;
    options.quality = quality_;
    if (!strip_) options.metadata = made.Told();
    WritePicture(made.Picture(), out, options);
}

Batch::Outcome Batch::RunOne(const Task& task, const Make& make, QString& reason) const {
    QString failing = task.in;
    try {
        Surfaces made;
        std::unique_ptr<StreamFolder> streams;
        QString source = task.in, out = task.out;
        if (QFileInfo(source).isDir())
            throw Error(
                kFileError,
                QStringLiteral("is a folder; name the pictures in it, as by %1/*").arg(QDir::cleanPath(source)));
        if (IsStream(task.in) || out == kStandard) streams = std::make_unique<StreamFolder>();
        if (IsStream(task.in)) CopyStream(task.in, source = streams->FilePath(QStringLiteral("picture")));
        if (out == kStandard) out = streams->FilePath(QStringLiteral("result.") + QString::fromLatin1(format_));
        make(source, made);
        failing = task.out;
        Save(made.picCanvas, out);
        if (task.out == kStandard) CopyToStandardOutput(out);
        return Outcome::Done;
    } catch (const Error& error) {
        reason = FailureLine(failing, error.Description());
    } catch (const std::bad_alloc&) {
        reason = FailureLine(failing, QStringLiteral("not enough memory"));
    } catch (const std::exception& error) {  // no thread could be started
        reason = FailureLine(failing, QString::fromLocal8Bit(error.what()));
    }
    return Outcome::Failed;
}

void Batch::Report(const Task& task, Outcome outcome, const QString& reason) const {
    if (!reason.isEmpty()) PrintError(reason);
    static constexpr const char* kNames[] = {"done", "failed", "skipped"};
    const char* name = kNames[static_cast<int>(outcome)];
    if (json_) {
        QJsonObject line{{"in", task.in}, {"out", task.out}, {"status", name}};
        if (!reason.isEmpty()) line["reason"] = reason;
        PrintLine(QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact)));
    } else if (outcome != Outcome::Failed && Talks(Talk::Much)) {
        PrintError(QStringLiteral("%1 -> %2: %3").arg(task.in, task.out, QLatin1String(name)));
    }
}

int Batch::Run(const QByteArray& recipe, const Make& make) {
    if (!folder_.isEmpty() && !QDir().mkpath(folder_)) {
        PrintFailure(folder_, QStringLiteral("the folder could not be made"));
        return kFailed;
    }
    const std::vector<Task> tasks = Tasks();
    std::unique_ptr<DoneList> done;
    if (resume_) done = std::make_unique<DoneList>(folder_, shard_, shards_);
    QMutex mutex;  // around what the jobs share: the list of what is done, the counts, the terminal
    std::size_t finished = 0;
    bool allDone = true;
    QElapsedTimer clock;
    clock.start();

    const auto runTask = [&](const Task& task) {
        QString reason;
        const QByteArray all =
            recipe + ' ' + format_ + ' ' + QByteArray::number(quality_) + (strip_ ? " strip" : QByteArray());
        const QByteArray key = resume_ && !IsStream(task.in) ? DoneList::KeyOf(task.in, all) : QByteArray();
        const QString result = QFileInfo(task.out).fileName();
        QMutexLocker lock(&mutex);
        Outcome outcome = Outcome::Skipped;
        if (!task.refusal.isEmpty()) {
            reason = FailureLine(task.out, task.refusal);
            outcome = Outcome::Failed;
        } else if (!done || !done->Holds(result, key)) {
            lock.unlock();
            outcome = RunOne(task, make, reason);
            lock.relock();
            if (done && outcome == Outcome::Done) done->Add(result, key);
        }
        allDone &= outcome != Outcome::Failed;
        Report(task, outcome, reason);
        if (tasks.size() > 1) ShowCount(++finished, tasks.size(), clock.elapsed());
    };

    if (jobs_ == 1) {
        for (const Task& task : tasks) runTask(task);
    } else {
        QThreadPool pool;
        pool.setMaxThreadCount(jobs_);
        for (const Task& task : tasks) StartJob(pool, [&runTask, &task] { runTask(task); });
        pool.waitForDone();
    }
    return allDone ? kDone : kFailed;
}

}  // namespace kelu::cli
