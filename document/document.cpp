// SPDX-License-Identifier: MIT
#include "document/document.h"

#include <QScopedValueRollback>

#include "pictures/picture_texts.h"
#include "platform/lack_of_memory.h"

namespace kelu {

namespace {

constexpr int kLandscapeLimit = 2048;  // image pixels
constexpr int kLandscapeWidth = 800;
constexpr int kPortraitLimit = 1536;
constexpr int kPortraitWidth = 600;

}  // namespace

void ShrinkLargePicture(Surface& surface) {
    if (surface.ImageWidth() > surface.ImageHeight() && surface.ImageWidth() > kLandscapeLimit)
        surface.ResizeImage(kLandscapeWidth, 0);
    if (surface.ImageHeight() > surface.ImageWidth() && surface.ImageHeight() > kPortraitLimit)
        surface.ResizeImage(kPortraitWidth, 0);
}

QString FileNameOfPath(const QString& path) {
    return path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

Document::Document(Surfaces& surfaces, SurfaceView& canvasView, SurfaceView& originalView, SharedState& state,
                   SessionLog& log, Beside beside)
    : surfaces_(surfaces),
      canvasView_(canvasView),
      originalView_(originalView),
      state_(state),
      log_(log),
      beside_(std::move(beside)) {
    connect(&surfaces_.picCanvas, &Surface::PictureReplaced, this, [this] {
        if (!opening_) log_.Replaced();
    });
}

void Document::Open(const QString& path, Source source, bool wasDirty, Size size) {
    // Read and shrink beside the document, so that a failure at any step leaves it whole.
    const bool shrinks = size == Size::AsSet && source != Source::Capture && state_.ResizeOnOpen == 1;
    QImage picture;
    Metadata told;
    QSize inFile;
    beside_([&, prepareCanvas = canvasView_.Preparation(), prepareOriginal = originalView_.Preparation()] {
        Surface opened;
        opened.LoadFile(path);
        inFile = opened.Picture().size();
        if (shrinks) ShrinkLargePicture(opened);
        picture = opened.Picture();
        told = opened.Told();
        try {
            prepareCanvas(picture);
            prepareOriginal(picture);
        } catch (const std::exception& error) {
            if (!IsLackOfMemory(error)) throw;
            const QString lack = PictureTexts::tr("Not enough memory for this picture");
            throw Error(kOutOfMemory, QStringLiteral("%1: %2").arg(FileNameOfPath(path), lack));
        }
    });

    const QScopedValueRollback<bool> opening(opening_, true);
    Canvas().SetPicture(picture, told);
    canvasView_.ShowWhole();
    Pen().SetPicture(Canvas().Picture());
    Original().SetPicture(Canvas().Picture(), told);
    originalView_.ShowWhole();

    log_.Opened(
        {path, {Original().Picture(), told}, Canvas().Picture().size() != inFile, Passing(source), Canvas().Brush()});
    state_.ImageActive = true;
    if (source == Source::Browse) state_.EffectReady = false;
    state_.CurrentFileName = FileNameOfPath(path);
    openedPath_ = path;
    openedBy_ = source;
    sizeInFile_ = inFile;
    openedSize_ = Canvas().Picture().size();
    const bool dropped = source == Source::Drop || source == Source::Paste;
    ShowStatusText(/*longForm=*/!dropped || wasDirty);
    Q_EMIT Opened();
}

void Document::ShowStatusText(bool longForm) {
    showsLongForm_ = longForm;
    Q_EMIT StatusTextChanged(longForm ? LongStatusText() : ShortStatusText());
}

void Document::TakeOver(Surfaces& made, const QString& path, Source source, bool effectReady) {
    const QScopedValueRollback<bool> opening(opening_, true);
    Canvas().TakeOver(made.picCanvas);
    Pen().TakeOver(made.picPen);
    Original().TakeOver(made.picOriginal);
    canvasView_.ShowWhole();
    originalView_.ShowWhole();
    openedPath_ = path;
    openedBy_ = source;
    sizeInFile_ = openedSize_ = Canvas().Picture().size();
    state_.ImageActive = true;
    state_.ImageDirty = true;
    state_.EffectReady = effectReady;
    state_.CurrentFileName = FileNameOfPath(path);
    ShowLongStatusText();
    Q_EMIT Opened();
}

QString Document::LongStatusText() const {
    const Surface& canvas = surfaces_.picCanvas;
    return QStringLiteral("%1 - [%2 x %3 / %4 bits / %5%]")
        .arg(state_.CurrentFileName, QString::number(canvas.ImageWidth()), QString::number(canvas.ImageHeight()),
             QString::number(canvas.ColorDepth()), QString::number(canvasView_.ZoomPercent()));
}

QString Document::ShortStatusText() const {
    const Surface& canvas = surfaces_.picCanvas;
    return QStringLiteral("%1 - (%2 x %3 / %4 bits)")
        .arg(state_.CurrentFileName, QString::number(canvas.ImageWidth()), QString::number(canvas.ImageHeight()),
             QString::number(canvas.ColorDepth()));
}

}  // namespace kelu
