// The open document: one picture held three times at full size, the one sequence that opens a file into it, and the
// status text that tells of it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSize>

#include "canvas/surface.h"
#include "canvas/surface_view.h"
#include "document/session_log.h"
#include "document/shared_state.h"
#include "platform/run_beside.h"

namespace kelu {

/// The pictures of the document. They exist before anything shows them.
struct Surfaces {
    Surface picCanvas;    ///< what the user sees, paints on, saves and hands on
    Surface picPen;       ///< source of the brush: the picture with the effect rendered over all of it
    Surface picOriginal;  ///< the picture as it was opened
};

/// Scales a picture that is larger than the limits of opening: a landscape wider than 2048 pixels becomes 800 wide,
/// then a portrait higher than 1536 becomes 600 wide; a square stays.
void ShrinkLargePicture(Surface& surface);

/// The part of a path behind its last separator, slash or backslash; all of it when there is none.
QString FileNameOfPath(const QString& path);

class Document : public QObject {
    Q_OBJECT

 public:
    /// Who opens a file; the callers differ in shrinking, in the status text and in disarming the brush.
    enum class Source { Drop, Browse, Capture, Paste };
    /// Large pictures are made smaller where the setting and the source say so, or come as they are.
    enum class Size { AsSet, Full };

    /// `beside` runs what takes long: reading, writing, encoding.
    Document(
        Surfaces& surfaces, SurfaceView& canvasView, SurfaceView& originalView, SharedState& state,
        SessionLog& log = SessionLog::None(), Beside beside = [](const std::function<void()>& run) { run(); });

    const Beside& RunsBeside() const { return beside_; }

    Surface& Canvas() { return surfaces_.picCanvas; }
    Surface& Pen() { return surfaces_.picPen; }
    Surface& Original() { return surfaces_.picOriginal; }

    /// Opens the file into all three surfaces. `wasDirty`: the canvas had unsaved changes when the file was dropped,
    /// which gives a drop the long status text. Throws Error when the file can't be read; then nothing has changed.
    void Open(const QString& path, Source source, bool wasDirty = false, Size size = Size::AsSet);

    /// The file that is open, and how it was opened.
    const QString& OpenedPath() const { return openedPath_; }
    Source OpenedBy() const { return openedBy_; }
    /// The file will not stay: it lies among the temporary ones.
    static bool Passing(Source source) { return source == Source::Capture || source == Source::Paste; }
    /// Image pixels of the picture in that file, and of what it was opened as.
    QSize SizeInFile() const { return sizeInFile_; }
    QSize OpenedSize() const { return openedSize_; }
    bool MadeSmaller() const { return sizeInFile_ != openedSize_; }

    /// Shows what was made beside: all three surfaces of `made` with the canvas's undo levels and brush. It counts as
    /// changed. `path` is the file that was opened for it, by `source`. Not told to the log.
    void TakeOver(Surfaces& made, const QString& path, Source source, bool effectReady);

    /// "name - [w x h / b bits / z%]"
    QString LongStatusText() const;
    /// "name - (w x h / b bits)"
    QString ShortStatusText() const;
    /// Raises StatusTextChanged with the long form.
    void ShowLongStatusText() { ShowStatusText(/*longForm=*/true); }
    /// The same when the long form is what is shown: its percent is another one.
    void RefreshStatusText() {
        if (showsLongForm_) ShowLongStatusText();
    }

 Q_SIGNALS:
    void StatusTextChanged(const QString& text);
    /// A picture was opened; the zoom buttons may show from now on.
    void Opened();

 private:
    void ShowStatusText(bool longForm);

    Surfaces& surfaces_;
    SurfaceView& canvasView_;
    SurfaceView& originalView_;
    SharedState& state_;
    SessionLog& log_;
    Beside beside_;
    bool showsLongForm_ = false;
    bool opening_ = false;
    QString openedPath_;
    Source openedBy_ = Source::Drop;
    QSize sizeInFile_;
    QSize openedSize_;
};

}  // namespace kelu
