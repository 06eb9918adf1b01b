// A picture without a window.
// SPDX-License-Identifier: MIT
#include "canvas/surface.h"

#include <QPainter>
#include <QScopeGuard>

#include "canvas/brush_stroke.h"
#include "canvas/undo_levels.h"
#include "engine/neon.h"
#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"
#include "platform/run_beside.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr double kInch = 0.0254;  // metres

}  // namespace

Surface::Surface(QObject* parent) : QObject(parent), undo_(std::make_unique<UndoLevels>()) {}

Surface::~Surface() = default;

void Surface::LoadFile(const QString& path) {
    const Photograph read = ReadPhotograph(path);
    SetPicture(read.picture, read.metadata);
}

void Surface::SaveFile(const QString& path) const {
    if (picture_.isNull()) throw Error(kInvalidPicture, PictureTexts::tr("There is no picture to save"));
    WriteOptions options;
    options.metadata = told_;
    WritePicture(picture_, path, options);
}

void Surface::SetPicture(const QImage& picture, const Metadata& told) {
    told_ = told;
    Replace(ToPictureFormat(picture));
}

void Surface::TakeOver(Surface& other) {
    std::swap(picture_, other.picture_);
    std::swap(told_, other.told_);
    std::swap(brush_, other.brush_);
    std::swap(undo_, other.undo_);
    Q_EMIT PictureReplaced();
    Q_EMIT other.PictureReplaced();
}

int Surface::ColorDepth() const {
    if (picture_.isNull()) return 0;
    return picture_.hasAlphaChannel() ? 32 : 24;
}

void Surface::ResizeImage(int width, int height) {
    if (picture_.isNull()) return;
    if (width < 0 || height < 0 || (width == 0 && height == 0))
        throw Error(kInvalidProperty, PictureTexts::tr("Invalid picture size"));
    const double proportion = static_cast<double>(picture_.width()) / picture_.height();
    if (height == 0) height = std::max(1, RoundToEven(width / proportion));
    if (width == 0) width = std::max(1, RoundToEven(height * proportion));
    Replace(ScalePicture(picture_, QSize(width, height)));
}

void Surface::RotateLeft() {
    if (!picture_.isNull()) Replace(Orient(picture_, 8));
}

void Surface::RotateRight() {
    if (!picture_.isNull()) Replace(Orient(picture_, 6));
}

double Surface::ResolutionX() const { return picture_.dotsPerMeterX() > 0 ? picture_.dotsPerMeterX() * kInch : 96.0; }

double Surface::ResolutionY() const { return picture_.dotsPerMeterY() > 0 ? picture_.dotsPerMeterY() * kInch : 96.0; }

void Surface::CreateBlank(int width, int height, int bits, const QColor& color) {
    QImage blank = MakePicture(width, height, bits == 32 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    blank.fill(color);
    SetPicture(blank);
}

void Surface::DrawBitmap(const QImage& bitmap, int x, int y, int opacity) {
    const QRect area = QRect(QPoint(x, y), bitmap.size()) & picture_.rect();
    if (area.isEmpty() || opacity <= 0) return;
    MakeUnique(picture_);
    if (undo_->IsOpen()) undo_->Touch(picture_, area);
    QPainter painter(&picture_);
    painter.setOpacity(std::min(opacity, 255) / 255.0);
    painter.drawImage(QPoint(x, y), bitmap);
    painter.end();
    Announce(area);
}

void Surface::Render(const Renderer& renderer) {
    if (picture_.isNull()) return;
    bool reported = false;
    engine::Run run;
    const WorkReport work;
    run.progress = [this, &reported, &work](int percent) {
        if (work.Cancelled()) throw WorkCancelled();
        if (percent >= 99) return;
        reported = true;
        Q_EMIT Progress(percent);
    };
    // Whoever disabled a window at the first report waits for the last one, also after a failure.
    const auto atEnd = qScopeGuard([this, &reported] {
        if (reported) Q_EMIT Progress(99);
    });
    Replace(renderer(picture_, run));
}

void Surface::NeonFilter() {
    Render([](const QImage& picture, const engine::Run& run) { return RenderPicture(picture, engine::Neon, run); });
}

BrushHandle Surface::MakeBrush(int size) const { return {picture_, std::max(1, size)}; }

void Surface::SelectBrush(const BrushHandle& brush) {
    // What an open level knows of its stroke holds for one paint only.
    if (brush.paint.constBits() != brush_.paint.constBits()) undo_->Close();
    brush_ = brush;
    if (brush_.paint.isNull() || picture_.isNull() || brush_.paint.constBits() == picture_.constBits()) return;
    if (picture_.isDetached()) return;
    // The copy takes long where memory is fresh; the picture shown stays as it is until it is there.
    QImage own = picture_;
    RunBeside([&own] { MakeUnique(own); });
    picture_ = own;
}

void Surface::SetBrushSize(int size) { brush_.size = std::max(1, size); }

void Surface::SetBrushSoftness(int percent) { brush_.softness = std::clamp(percent, 0, 100); }

void Surface::DrawBrushLine(int x1, int y1, int x2, int y2, int strength) {
    if (picture_.isNull() || brush_.paint.isNull()) return;
    // Painting a picture with itself changes nothing, and must not cost a copy of it.
    if (brush_.paint.constBits() == picture_.constBits()) return;
    MakeUnique(picture_);
    if (!undo_->IsOpen()) undo_->Open();
    Announce(
        PaintSegment(picture_, brush_.paint, {{x1, y1}, {x2, y2}, brush_.size, brush_.softness}, strength, *undo_));
}

void Surface::PaintAll() {
    if (brush_.paint.isNull() || brush_.paint.size() != picture_.size() ||
        brush_.paint.hasAlphaChannel() != picture_.hasAlphaChannel())
        return;
    if (brush_.paint.constBits() == picture_.constBits()) return;
    undo_->KeepWhole(picture_);
    picture_ = brush_.paint;
    Announce(picture_.rect());
}

void Surface::PushUndo() { undo_->Open(); }

void Surface::Undo() {
    if (!undo_->CanUndo()) throw Error(kNoUndoLevel, PictureTexts::tr("Nothing to undo"));
    Announce(undo_->Undo(picture_));
}

void Surface::Redo() {
    if (!undo_->CanRedo()) throw Error(kNoUndoLevel, PictureTexts::tr("Nothing to redo"));
    Announce(undo_->Redo(picture_));
}

bool Surface::CanUndo() const { return undo_->CanUndo(); }

bool Surface::CanRedo() const { return undo_->CanRedo(); }

void Surface::SetUndoBudget(qint64 bytes) { undo_->SetBudget(bytes); }

qint64 Surface::UndoBytes() const { return undo_->Bytes(); }

void Surface::Replace(QImage picture) {
    picture_ = std::move(picture);
    undo_->Reset(picture_.size());
    Q_EMIT PictureReplaced();
}

void Surface::Announce(const QRect& changed) {
    if (!changed.isEmpty()) Q_EMIT PictureChanged(changed);
}

}  // namespace kelu
