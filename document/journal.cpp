// SPDX-License-Identifier: MIT
#include "document/journal.h"

#include <QFileInfo>
#include <charconv>

#include "document/journal_file.h"
#include "platform/error.h"
#include "platform/msg_dialog.h"

namespace kelu {
namespace {

constexpr int kFlushTime = 800;  // ms from the first line that is not on the disk
constexpr int kPointsOfLine = 250;

void AppendNumber(QByteArray& line, char before, int number) {
    char text[12];
    const char* const end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    line += before;
    line.append(text, end - text);
}

void AppendPoint(QByteArray& line, const QPoint& point) {
    AppendNumber(line, ' ', point.x());
    AppendNumber(line, ',', point.y());
}

bool SameFile(const QString& a, const QString& b) { return QFileInfo(a) == QFileInfo(b); }

}  // namespace

Journal::Journal(QString folder) : folder_(std::move(folder)), files_(std::make_shared<Files>()) {
    worker_.setMaxThreadCount(1);
    timer_.setSingleShot(true);
    timer_.setInterval(kFlushTime);
    connect(&timer_, &QTimer::timeout, this, [this] { Flush(); });
}

Journal::~Journal() {
    disconnect();
    LeavePicture();
    WaitForJobs(worker_);
}

void Journal::Opened(const OpenedPicture& picture) {
    LeavePicture();
    picture_ = picture;
    lines_ = FileLine(picture.path) + OpenLine(picture.opened.picture.size(), picture.shrunk);
}

void Journal::Replaced() { LeavePicture(); }

void Journal::Applied(int effect, const EffectInputs& inputs, bool rendered) {
    if (Records()) Put(ApplyLine({effect, inputs, rendered}));
}

void Journal::BrushTaken(BrushSource source, const BrushHandle& brush) {
    if (!Records()) return;
    // Moving a slider takes one brush after the other; of those from one source the last tells all.
    if (brush_ && brush_->source != source) PutBrush();
    brush_ = {.kind = Recipe::Kind::Brush,
              .source = source,
              .softness = static_cast<std::uint8_t>(brush.softness),
              .number = brush.paint.isNull() ? 0 : brush.size};
    // From here on the brush is this picture's own, or needs the paint that it had before.
    if (source == BrushSource::Pen) picture_.brush = {};
    if (source == BrushSource::Render && !picture_.brush.paint.isNull()) picture_.brush = brush;
}

void Journal::BrushSoftened(int softness) {
    if (!Records()) return;
    if (brush_) {
        brush_->softness = static_cast<std::uint8_t>(softness);
        return;
    }
    CutStroke();
    lines_ += "soft " + QByteArray::number(softness) + '\n';
}

void Journal::StrokeBegan(const QPoint& at) {
    if (!Records()) return;
    CutStroke();
    PutBrush(/*paints=*/true);
    stroke_ = QByteArrayLiteral("stroke");
    AppendPoint(stroke_, at);
    strokePoints_ = 1;
    last_ = at;
    Changed();
}

void Journal::LinePainted(const QPoint& from, const QPoint& to) {
    if (!Records()) return;
    if (stroke_.isEmpty() || from != last_ || brush_ || strokePoints_ >= kPointsOfLine) {
        CutStroke();
        PutBrush(/*paints=*/true);
        stroke_ = QByteArrayLiteral("more");
        AppendPoint(stroke_, from);
        strokePoints_ = 1;
    }
    AppendPoint(stroke_, to);
    ++strokePoints_;
    last_ = to;
    Changed();
}

void Journal::AllPainted() {
    if (!Records()) return;
    Put(QByteArrayLiteral("all\n"));
    Changed();
}

void Journal::Undone() {
    if (!Records()) return;
    Put(QByteArrayLiteral("undo\n"));
    Changed();
}

void Journal::Redone() {
    if (!Records()) return;
    Put(QByteArrayLiteral("redo\n"));
    Changed();
}

void Journal::Settled(const QString& savedAs) {
    if (!Records() || !begun_) return;
    Put(QByteArrayLiteral("settled\n"));
    unsaved_ = false;
    Flush();
    Run([savedAs, picture = picture_](Files& files) {
        for (const QString& path : std::exchange(files.left, {})) JournalFile(path, 0, 0).Remove();
        // Later strokes still need the picture that this save has replaced.
        if (!files.file || files.kept || savedAs.isEmpty() || !SameFile(savedAs, picture.path)) return;
        files.file->KeepOpened(picture.opened);
        files.kept = true;
    });
}

void Journal::Resume(const Recipe& recipe, const OpenedPicture& picture, std::shared_ptr<JournalFile> file) {
    LeavePicture();
    picture_ = picture;
    Recipe lines = recipe;
    lines.brush = {};  // told by the line that its keeping gives
    lines_ = LinesOf(lines);
    foreign_ = !recipe.brush.paint.name.isEmpty();
    if (!file) {
        Changed();
        return KeepForeignBrush();
    }
    begun_ = unsaved_ = true;
    handedOn_ = lines_.size();
    Run([file, recipe](Files& files) {
        files.left.removeAll(file->Path());
        files.file = file;
        files.kept = !recipe.kept.name.isEmpty();
        files.brush = recipe.brush;
    });
}

Recipe Journal::Told() {
    CutStroke();
    Recipe recipe = ReadRecipeText(HeaderLine(/*isJournal=*/false) + lines_);
    recipe.folder = folder_;
    if (!foreign_) return recipe;
    Wait();
    recipe.brush = files_->brush;
    if (recipe.brush.paint.name.isEmpty())
        throw Error(kFileError, tr("The brush of the picture before, which painted here, could not be kept"),
                    QStringLiteral("Journal"));
    return recipe;
}

void Journal::Flush(bool wait) {
    timer_.stop();
    CutStroke();
    if (begun_ && handedOn_ < lines_.size()) {
        Run([lines = lines_.mid(handedOn_)](Files& files) {
            if (files.file) files.file->Append(lines);
        });
        handedOn_ = lines_.size();
    }
    if (wait) WaitForJobs(worker_);
}

void Journal::Changed() {
    unsaved_ = true;
    if (!begun_) Begin();
    if (!timer_.isActive()) timer_.start();
}

void Journal::Begin() {
    begun_ = true;
    Run([folder = folder_, picture = picture_](Files& files) {
        files.file = std::make_shared<JournalFile>(folder);
        files.kept = picture.passing;
        if (picture.passing)
            files.file->KeepOpened(picture.opened);
        else
            files.file->AppendStamp(picture.path);
    });
}

void Journal::PutBrush(bool paints) {
    CutStroke();
    if (brush_) restores_ = brush_->source == BrushSource::Original;
    if ((brush_ || paints) && !restores_) KeepForeignBrush();
    if (brush_) lines_ += BrushLine(*std::exchange(brush_, std::nullopt));
}

// The brush may still be that of the picture before: its paint is told by no line of this session.
void Journal::KeepForeignBrush() {
    if (picture_.brush.paint.isNull()) return;
    foreign_ = true;
    if (!begun_) Begin();
    Run([brush = std::exchange(picture_.brush, {})](Files& files) {
        if (!files.file) return;
        const QString name = files.file->Keep({brush.paint});
        files.brush = {{name, brush.paint.hasAlphaChannel()}, brush.size, brush.softness};
        files.file->Append(PaintLine(files.brush));
    });
}

void Journal::CutStroke() {
    if (!stroke_.isEmpty()) lines_ += stroke_ + '\n';
    stroke_.clear();
}

void Journal::Put(const QByteArray& line) {
    CutStroke();
    PutBrush();
    lines_ += line;
}

void Journal::LeavePicture() {
    if (begun_) {
        Flush();
        Run([this, unsaved = unsaved_, name = QFileInfo(picture_.path).fileName()](Files& files) {
            files.brush = {};
            const std::shared_ptr<JournalFile> file = std::exchange(files.file, nullptr);
            if (!file) return;
            if (!unsaved) return file->Remove();
            files.left += file->Path();
            HandBack(this, [this, path = file->Path(), name] { Q_EMIT Left(path, name); });
        });
    }
    timer_.stop();
    picture_ = {};
    lines_.clear();
    handedOn_ = 0;
    brush_.reset();
    begun_ = unsaved_ = foreign_ = restores_ = false;
}

void Journal::Run(Job job) {
    StartJob(worker_, [this, files = files_, job = std::move(job)] {
        QString reason;
        try {
            job(*files);
            if (files->file) files->off = false;
            return;
        } catch (const std::exception& error) {
            reason = DescriptionOf(error);
        }
        if (const auto file = std::exchange(files->file, nullptr)) files->left += file->Path();
        if (!std::exchange(files->off, true)) HandBack(this, [this, reason] { Q_EMIT Off(reason); });
    });
}

}  // namespace kelu
