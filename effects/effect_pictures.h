// The pictures of the toolbar's buttons: the open picture, or a sample photograph, with each effect applied, the
// effect's name below.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <atomic>

namespace kelu {

class Surface;
struct Effect;
struct SharedState;

/// Size of a button picture, device-independent pixels: as wide as the sliders of the settings panel below the toolbar,
/// and so high that three with their names fill the toolbar of the smallest window.
inline constexpr QSize kEffectPictureSize{119, 100};

/// A picture as small as the buttons show it: its middle, in device pixels.
struct PreviewPhoto {
    QImage pixels;     ///< null: none
    double scale = 0;  ///< pixels of it for one of the picture; 0 where the picture is but a sample
};

/// Looks at a few places of `picture` for each pixel, so that a hundred megapixels are no more work than one.
PreviewPhoto TakePreview(const QImage& picture, qreal ratio);

/// The picture of one button for a screen of ratio `ratio`. Without a photograph the name stands alone.
QImage DrawEffectPicture(const Effect& effect, const PreviewPhoto& photo, qreal ratio);

/// Draws them all on a thread of its own, while the window is already up.
class EffectPictures : public QObject {
    Q_OBJECT

 public:
    explicit EffectPictures(QObject* parent = nullptr);
    /// Waits for the picture in hand, not for the rest.
    ~EffectPictures() override;

    /// Starts drawing, with the picture that is open or else with the photograph at `path`; PictureReady comes once for
    /// each effect, in the order of the numbers. Whatever starts a drawing ends the one before.
    void Start(const QString& path, qreal ratio);
    /// After Start: draws anew with what `canvas` shows, a moment after it was opened, painted or undone, while `state`
    /// says that a picture is open.
    void Follow(const Surface& canvas, const SharedState& state);

 Q_SIGNALS:
    /// On the thread of this object.
    void PictureReady(int number, const QImage& picture);

 private:
    void TakeCanvas();
    void Draw(const PreviewPhoto& photo, qreal ratio, int run);

    const Surface* canvas_ = nullptr;
    const SharedState* state_ = nullptr;
    qreal ratio_ = 0;  ///< 0 before Start
    QTimer moment_;
    std::atomic<int> run_ = 0;  ///< raised to end the run before
    QThreadPool pool_;
};

}  // namespace kelu
