// The pictures of the toolbar's buttons: a sample photograph with each effect applied, the effect's name below.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <QThreadPool>
#include <atomic>

namespace kelu {

struct Effect;

/// Size of a button picture, device-independent pixels: as wide as the sliders of the settings panel below the toolbar,
/// and so high that three with their names fill the toolbar of the smallest window.
inline constexpr QSize kEffectPictureSize{119, 100};

/// The picture of one button for a screen of ratio `ratio`: `photograph`, at least as large as the picture's upper part
/// in device pixels and cut to its middle, with the effect. Without a photograph the name stands alone.
QImage DrawEffectPicture(const Effect& effect, const QImage& photograph, qreal ratio);

/// Draws them all on a thread of its own, while the window is already up.
class EffectPictures : public QObject {
    Q_OBJECT

 public:
    explicit EffectPictures(QObject* parent = nullptr);
    /// Waits for the picture in hand, not for the rest.
    ~EffectPictures() override;

    /// Starts drawing with the photograph at `path`; PictureReady comes once for each effect, in the order of the
    /// numbers. A call before the last is done starts over.
    void Start(const QString& path, qreal ratio);

 Q_SIGNALS:
    /// On the thread of this object.
    void PictureReady(int number, const QImage& picture);

 private:
    void Draw(const QString& path, qreal ratio, int run);

    std::atomic<int> run_ = 0;  ///< raised to end the run before
    QThreadPool pool_;
};

}  // namespace kelu
