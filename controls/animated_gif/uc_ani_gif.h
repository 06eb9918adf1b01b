// The control that plays an animated GIF on any window: loading, fitting, painting, mouse. What a file holds, how its
// frames are composed and when each is due is known by the reader, the composer and the clock beside it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include "controls/animated_gif/frame_clock.h"
#include "controls/animated_gif/gif_fit.h"
#include "controls/animated_gif/remote_read.h"
#include "pictures/gif/frame_composer.h"
#include "pictures/gif/frame_strip.h"

namespace kelu {

class PropertyBag;

class ucAniGIF : public QWidget {
    Q_OBJECT

 public:
    /// Bits of DelayAnimation.
    static constexpr int kLoadLater = 1;    ///< decode the frames behind the first after the first paint
    static constexpr int kStartByHand = 2;  ///< loading does not start the animation

    explicit ucAniGIF(QWidget* parent = nullptr);

    // Loading. False: no frame was found, and the control is empty. A file that cannot be read counts as empty.
    bool LoadAnimatedGIF_File(const QString& fileName);
    bool LoadAnimatedGIF_Array(const QByteArray& bytes);
    /// Returns at once; RemoteLoadComplete or RemoteLoadFailure tells the result. What plays goes on until then.
    void LoadAnimatedGIF_Remote(const QString& url);
    void Refresh() { update(); }

    /// The current frame alone, Format_Indexed8; null with no frame.
    QImage AnimatedGIF() const;
    /// The bytes of a GIF file; empty clears the control.
    void SetAnimatedGIF(const QByteArray& gifBytes);

    int FrameCount() const { return clock_.FrameCount(); }
    int CurrentFrame() const { return clock_.CurrentFrame(); }
    /// Size of the animation in twips.
    int ActualWidth() const;
    int ActualHeight() const;

    int Stretch() const { return stretch_; }
    void SetStretch(int stretch);  ///< GifStretch; anything else is ignored
    int MinFrameDelay() const { return clock_.MinFrameDelay(); }
    void SetMinFrameDelay(int ms);
    int Loops() const { return clock_.Loops(); }
    void SetLoops(int loops);
    int LoopsRemaining() const { return clock_.LoopsRemaining(); }
    int Mirrored() const { return mirrored_; }
    void SetMirrored(int mirrored);  ///< bit 0 left to right, bit 1 top to bottom; other values are ignored
    int DelayAnimation() const { return delayAnimation_; }
    void SetDelayAnimation(int bits);  ///< other values than 0 to 3 are ignored

    /// 0 stopped, 1 running, 2 paused.
    int Action() const;
    /// 0 stop on frame 1, 1 start, 2 pause, 3 one frame on and pause, 4 start over; other values are ignored.
    void SetAction(int action);

    bool Enabled() const { return isEnabled(); }
    void SetEnabled(bool enabled);
    QPixmap MouseIcon() const { return mouseIcon_; }
    void SetMouseIcon(const QPixmap& icon);  ///< a null picture sets the pointer to 0
    int MousePointer() const { return mousePointer_; }
    void SetMousePointer(int pointer);  ///< 0 the window's own, 1 to 15 a standard shape, 99 MouseIcon; others ignored

    /// Values out of range read as their defaults.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    QSize sizeHint() const override;

 Q_SIGNALS:
    void Click();
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int xTwips, int yTwips);
    void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, int xTwips, int yTwips);
    void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int xTwips, int yTwips);
    /// The last pass ended; frame 1 is shown.
    void LoopsEnded();
    /// A remote GIF of this size (twips) has come. A receiver that sets `*cancel` drops it.
    void RemoteLoadComplete(bool* cancel, int width, int height);
    void RemoteLoadFailure();
    /// A persisted property was written; `name` is the one under which hosts know it.
    void PropertyChanged(const QString& name);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

 private:
    int LoadGifStream(const QByteArray& gifBytes);
    bool LoadAndResize(const QByteArray& gifBytes);
    void FreeGif();
    void LoadLaterFrames();
    void FinishLoading();
    void StartFrameTimer();
    void Stop();
    void FrameStep();
    void RemoteBytesCame(const QByteArray& bytes);
    void ResizeToFit();
    void FitTo(const QSize& wanted);

    FrameStrip strip_;
    FrameComposer composer_{strip_};
    FrameClock clock_;
    RemoteRead remote_;
    QTimer frameTimer_;
    QTimer laterTimer_;  // runs from the end of the first half of a load to its second half

    GifStretch stretch_ = kProportional;
    GifFit fit_;
    bool resizing_ = false;
    int mirrored_ = 0;
    int delayAnimation_ = kLoadLater;
    QPixmap mouseIcon_;
    int mousePointer_ = 0;
};

}  // namespace kelu
