// SPDX-License-Identifier: MIT
#include "document/document.h"

namespace kelu {

namespace {

constexpr int kLandscapeLimit = 2048;  // image pixels
constexpr int kLandscapeWidth = 800;
constexpr int kPortraitLimit = 1536;
constexpr int kPortraitWidth = 600;

void ShowFitted(SurfaceView& view) {
    view.SetViewAnchor(5);
    view.SetViewMode(2);
}

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
                   Beside beside)
    : surfaces_(surfaces),
      canvasView_(canvasView),
      originalView_(originalView),
      state_(state),
      beside_(std::move(beside)) {}

void Document::Open(const QString& path, Source source, bool wasDirty) {
    // Read and shrink beside the document, so that a failure at any step leaves it whole.
    const bool shrinks = source != Source::Capture && state_.ResizeOnOpen == 1;
    QImage picture;
    beside_([&, prepareCanvas = canvasView_.Preparation(), prepareOriginal = originalView_.Preparation()] {
        Surface opened;
        opened.LoadFile(path);
        if (shrinks) ShrinkLargePicture(opened);
        picture = opened.Picture();
        prepareCanvas(picture);
        prepareOriginal(picture);
    });

    Canvas().SetPicture(picture);
    ShowFitted(canvasView_);
    Pen().SetPicture(Canvas().Picture());
    Original().SetPicture(Canvas().Picture());
    ShowFitted(originalView_);

    state_.ImageActive = true;
    if (source == Source::Browse) state_.EffectReady = false;
    state_.CurrentFileName = FileNameOfPath(path);
    ShowStatusText(/*longForm=*/source != Source::Drop || wasDirty);
    Q_EMIT Opened();
}

void Document::ShowStatusText(bool longForm) {
    showsLongForm_ = longForm;
    Q_EMIT StatusTextChanged(longForm ? LongStatusText() : ShortStatusText());
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
