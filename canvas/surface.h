// A picture without a window: load, save, scale, turn, brush, undo. Everything a surface shows or saves is one picture
// at full size; views follow it by its signals.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QObject>
#include <memory>

#include "canvas/brush.h"
#include "canvas/render_picture.h"
#include "pictures/metadata.h"

namespace kelu {

class UndoLevels;

class Surface : public QObject {
    Q_OBJECT

 public:
    explicit Surface(QObject* parent = nullptr);
    ~Surface() override;

    /// Replaces the picture by the file's; see ReadPicture for errors. A failure changes nothing.
    void LoadFile(const QString& path);
    /// Writes the picture with what its file told, format by extension; see WritePicture. Throws Error(kInvalidPicture)
    /// without a picture.
    void SaveFile(const QString& path) const;

    /// The picture, shared until one side writes; null at first. Don't keep it while strokes go on: each stroke on a
    /// shared picture has to copy it first.
    QImage Picture() const { return picture_; }
    /// What the picture's file told beside the pixels; changes of the pixels leave it as it is.
    const Metadata& Told() const { return told_; }
    /// Replaces the picture and what its file told; costs no copy. All undo levels go.
    void SetPicture(const QImage& picture, const Metadata& told = {});

    /// Takes the other's picture with its undo levels and its brush, and leaves it its own.
    void TakeOver(Surface& other);

    /// Image pixels; 0 without a picture.
    int ImageWidth() const { return picture_.width(); }
    int ImageHeight() const { return picture_.height(); }
    /// Bits per pixel as shown to the user: 32 with transparency, else 24; 0 without a picture.
    int ColorDepth() const;

    /// Scales the picture; 0 for one of the sides keeps the proportions. Throws Error(kInvalidProperty) for other
    /// sizes below 1. All undo levels go. Without a picture nothing happens; so for the next two.
    void ResizeImage(int width, int height);
    void RotateLeft();
    void RotateRight();

    /// Dots per inch; 96 where the file tells none.
    double ResolutionX() const;
    double ResolutionY() const;

    /// A new picture of one colour; `bits` 32 gives transparency, all else none. Throws Error(kOutOfMemory) when it is
    /// too large.
    void CreateBlank(int width, int height, int bits, const QColor& color);
    /// Draws `bitmap` with its upper left corner at (x, y), image pixels; `opacity` 0 to 255. Can be undone when a
    /// level is open.
    void DrawBitmap(const QImage& bitmap, int x, int y, int opacity);
    /// Replaces the picture by what the renderer makes of it. A long render raises Progress, with 99 last. All undo
    /// levels go. Throws what the renderer throws, and changes nothing then.
    void Render(const Renderer& renderer);
    /// Glowing edges over the whole picture.
    void NeonFilter();

    /// A brush whose paint is this surface's picture. `size` is a diameter in image pixels, at least 1.
    BrushHandle MakeBrush(int size) const;
    /// The brush of later strokes on this surface. Makes the surface the only owner of its pixels, so that the first
    /// segment costs no more than the others.
    void SelectBrush(const BrushHandle& brush);
    void SetBrushSize(int size);
    const BrushHandle& Brush() const { return brush_; }
    /// 0: a hard edge, to 100: fading from the middle on. A newly selected brush brings its own.
    void SetBrushSoftness(int percent);

    /// Lays the brush along the segment (image pixels, may lie outside): each covered pixel takes the pixel of the
    /// paint at the same place, at `strength` 0 to 255 (full); on an opaque picture, paint with transparency is laid
    /// over. Segments of one undo level count together: a pixel is covered as much as by the one that covers it most.
    /// Nothing happens without a brush or outside the common area of picture and paint. Opens an undo level when none
    /// is open, as after an Undo in the middle of a stroke.
    void DrawBrushLine(int x1, int y1, int x2, int y2, int strength);

    /// Lays the brush's paint on the whole picture as one level of its own. Nothing happens without a brush, or where
    /// paint and picture differ in size or one alone has transparency.
    void PaintAll();

    /// Opens an undo level: the state that the next Undo returns to. Copies nothing. Redo levels go.
    void PushUndo();
    /// Throw Error(kNoUndoLevel) and change nothing when no level is left.
    void Undo();
    void Redo();
    bool CanUndo() const;
    bool CanRedo() const;
    /// Memory that undo levels may hold, in bytes; the oldest fall off first, the newest always stays.
    void SetUndoBudget(qint64 bytes);
    qint64 UndoBytes() const;

 Q_SIGNALS:
    /// Another picture, perhaps of another size.
    void PictureReplaced();
    /// Pixels of the picture changed within this rectangle, in image pixels.
    void PictureChanged(const QRect& imagePixels);
    /// Percent of a long operation: below 99 while it runs, then exactly 99.
    void Progress(int percent);

 private:
    void Replace(QImage picture);
    void Announce(const QRect& changed);

    QImage picture_;
    Metadata told_;
    BrushHandle brush_;
    std::unique_ptr<UndoLevels> undo_;
};

}  // namespace kelu
