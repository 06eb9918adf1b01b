// Loading, playing and painting of the animated GIF control.
// SPDX-License-Identifier: MIT
#include "controls/animated_gif/uc_ani_gif.h"

#include <QFile>
#include <QMouseEvent>
#include <QPainter>
#include <array>

#include "controls/property_bag/property_bag.h"
#include "controls/theme/accessible_role.h"
#include "pictures/gif/frame_encoder.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr int kLoadLaterMs = 20;
constexpr int kDefaultDelayMs = 50;
constexpr int kCustomPointer = 99;
constexpr int kMinRemoteBytes = 15;

constexpr std::array kPointerShapes = {Qt::ArrowCursor,  // 0, not used: the window's own
                                       Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,   Qt::ArrowCursor,
                                       Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor,
                                       Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,    Qt::ForbiddenCursor,
                                       Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor};

QByteArray ReadFile(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() > RemoteRead::kMaxBytes) return QByteArray();
    return file.readAll();
}

}  // namespace

ucAniGIF::ucAniGIF(QWidget* parent) : QWidget(parent) {
    UseAccessibleRole<ucAniGIF, QAccessible::Animation>();
    setMouseTracking(true);
    frameTimer_.setSingleShot(true);
    frameTimer_.setTimerType(Qt::PreciseTimer);
    laterTimer_.setSingleShot(true);
    connect(&frameTimer_, &QTimer::timeout, this, &ucAniGIF::FrameStep);
    connect(&laterTimer_, &QTimer::timeout, this, &ucAniGIF::LoadLaterFrames);
    connect(&remote_, &RemoteRead::Finished, this, &ucAniGIF::RemoteBytesCame);
    connect(&remote_, &RemoteRead::Failed, this, &ucAniGIF::RemoteLoadFailure);
}

// Loading

bool ucAniGIF::LoadAnimatedGIF_File(const QString& fileName) { return LoadAndResize(ReadFile(fileName)); }

bool ucAniGIF::LoadAnimatedGIF_Array(const QByteArray& bytes) { return LoadAndResize(bytes); }

void ucAniGIF::LoadAnimatedGIF_Remote(const QString& url) {
    if (url.isEmpty()) return;
    if (!remote_.Start(url)) Q_EMIT RemoteLoadFailure();
}

void ucAniGIF::RemoteBytesCame(const QByteArray& bytes) {
    const QByteArray signature = bytes.left(6).toLower();
    if (bytes.size() < kMinRemoteBytes || (signature != "gif89a" && signature != "gif87a")) {
        Q_EMIT RemoteLoadFailure();
        return;
    }
    const auto word = [&](int index) {
        return static_cast<std::uint8_t>(bytes[index]) | (static_cast<std::uint8_t>(bytes[index + 1]) << 8);
    };
    bool cancel = false;
    Q_EMIT RemoteLoadComplete(&cancel, PixelsToTwips(word(6)), PixelsToTwips(word(8)));
    if (!cancel) LoadAndResize(bytes);
}

QImage ucAniGIF::AnimatedGIF() const { return EncodeFrameAsPicture(strip_, CurrentFrame()); }

void ucAniGIF::SetAnimatedGIF(const QByteArray& gifBytes) {
    LoadGifStream(gifBytes);
    Q_EMIT PropertyChanged("AnimatedGIF");
}

bool ucAniGIF::LoadAndResize(const QByteArray& gifBytes) {
    if (LoadGifStream(gifBytes) == 0) return false;
    if (stretch_ == kProportional || stretch_ == kShrinkOnly || stretch_ == kControlToImage) ResizeToFit();
    return true;
}

int ucAniGIF::LoadGifStream(const QByteArray& gifBytes) {
    FreeGif();
    fit_ = GifFit{size()};
    const int frames = strip_.Load(gifBytes);
    std::vector<int> delays;
    for (int frame = 1; frame <= frames; ++frame) delays.push_back(strip_.Frame(frame).DelayMs);
    clock_.Load(std::move(delays));
    clock_.SetLoops(strip_.Loops());
    strip_.Mirror(mirrored_ & 1, mirrored_ & 2);
    FitTo(size());
    if (frames > 1) {
        if (delayAnimation_ == 0) {
            LoadLaterFrames();
        } else {
            laterTimer_.start(kLoadLaterMs);
        }
    }
    updateGeometry();
    update();
    return frames;
}

void ucAniGIF::LoadLaterFrames() {
    FinishLoading();
    if (!(delayAnimation_ & kStartByHand)) StartFrameTimer();
}

void ucAniGIF::FinishLoading() {
    laterTimer_.stop();
    strip_.LoadRest();
}

void ucAniGIF::FreeGif() {
    Stop();
    laterTimer_.stop();
    composer_.Reset();
    strip_.Clear();
    clock_.Load({});
}

// Playing

int ucAniGIF::Action() const { return laterTimer_.isActive() ? FrameClock::kRunning : clock_.State(); }

void ucAniGIF::SetAction(int action) {
    if (FrameCount() == 0 || action < 0 || action > 4) return;
    // Whoever steers the animation by hand wants all of it.
    FinishLoading();
    switch (action) {
        case 0:
        case 4:
            Stop();
            clock_.Rewind();
            break;
        case 2:
            frameTimer_.stop();
            clock_.Pause();
            return;
        case 3:
            Stop();
            clock_.Advance();
            break;
        default:
            break;
    }
    update();
    if (action == 1 || action == 4) StartFrameTimer();
}

void ucAniGIF::StartFrameTimer() {
    if (clock_.Start()) frameTimer_.start(clock_.CurrentDelay());
}

void ucAniGIF::Stop() {
    frameTimer_.stop();
    clock_.Stop();
}

void ucAniGIF::FrameStep() {
    const bool ended = clock_.Step();
    update();
    if (ended) {
        Q_EMIT LoopsEnded();
    } else {
        frameTimer_.start(clock_.CurrentDelay());
    }
}

void ucAniGIF::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // While later frames wait to be loaded, that load starts the animation.
    if (strip_.IsComplete()) StartFrameTimer();
}

void ucAniGIF::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    SetAction(2);
}

// Properties

int ucAniGIF::ActualWidth() const { return PixelsToTwips(strip_.ScreenWidth()); }

int ucAniGIF::ActualHeight() const { return PixelsToTwips(strip_.ScreenHeight()); }

void ucAniGIF::SetStretch(int stretch) {
    if (stretch < kNaturalSize || stretch > kControlToImage || stretch == stretch_) return;
    stretch_ = static_cast<GifStretch>(stretch);
    ResizeToFit();
    update();
    Q_EMIT PropertyChanged("Stretch");
}

void ucAniGIF::SetMinFrameDelay(int ms) {
    clock_.SetMinFrameDelay(ms);
    Q_EMIT PropertyChanged("Delay");
}

void ucAniGIF::SetLoops(int loops) {
    clock_.SetLoops(loops);
    Q_EMIT PropertyChanged("Loops");
}

void ucAniGIF::SetMirrored(int mirrored) {
    if (mirrored < 0 || mirrored > 3) return;
    const int change = mirrored ^ mirrored_;
    mirrored_ = mirrored;
    if (change != 0) {
        strip_.Mirror(change & 1, change & 2);
        composer_.Reset();
        update();
    }
    Q_EMIT PropertyChanged("Mirrored");
}

void ucAniGIF::SetDelayAnimation(int bits) {
    if (bits < 0 || bits > 3) return;
    delayAnimation_ = bits;
    Q_EMIT PropertyChanged("DelayAnimation");
}

void ucAniGIF::SetEnabled(bool enabled) {
    setEnabled(enabled);
    Q_EMIT PropertyChanged("Enabled");
}

void ucAniGIF::SetMouseIcon(const QPixmap& icon) {
    mouseIcon_ = icon;
    if (icon.isNull()) {
        SetMousePointer(0);
    } else if (mousePointer_ == kCustomPointer) {
        setCursor(QCursor(icon));
    }
    Q_EMIT PropertyChanged("MouseIcon");
}

void ucAniGIF::SetMousePointer(int pointer) {
    const bool standard = pointer >= 0 && pointer < static_cast<int>(kPointerShapes.size());
    if (!standard && pointer != kCustomPointer) return;
    mousePointer_ = pointer;
    if (pointer == kCustomPointer) {
        if (!mouseIcon_.isNull()) setCursor(QCursor(mouseIcon_));
    } else if (pointer == 0) {
        unsetCursor();
    } else {
        setCursor(kPointerShapes[static_cast<std::size_t>(pointer)]);
    }
    Q_EMIT PropertyChanged("MousePointer");
}

void ucAniGIF::ReadProperties(const PropertyBag& bag) {
    const auto number = [&](const char* name, int defaultValue, int highest) {
        const int value = bag.ReadProperty(name, defaultValue).toInt();
        return value >= 0 && value <= highest ? value : defaultValue;
    };
    clock_.SetMinFrameDelay(bag.ReadProperty("Delay", kDefaultDelayMs).toInt());
    stretch_ = static_cast<GifStretch>(number("Stretch", kProportional, kControlToImage));
    // Older stores hold -1, a plain "yes", which is out of range and so the default.
    delayAnimation_ = number("DelayLoad", kLoadLater, kLoadLater | kStartByHand);
    mirrored_ = number("Mirror", 0, 3);
    setEnabled(bag.ReadProperty("Enabled", true).toBool());
    mouseIcon_ = bag.ReadProperty("MouseIcon").value<QPixmap>();
    SetMousePointer(number("MousePointer", 0, kCustomPointer));
    if (LoadGifStream(bag.ReadProperty("GIF").toByteArray()) > 0) {
        clock_.SetLoops(bag.ReadProperty("Loops", strip_.Loops()).toInt());
    }
}

void ucAniGIF::WriteProperties(PropertyBag& bag) const {
    // The bytes are there until all frames are decoded.
    bag.WriteProperty("GIF", strip_.GifBytes(), QByteArray());
    bag.WriteProperty("Delay", clock_.MinFrameDelay(), kDefaultDelayMs);
    bag.WriteProperty("Stretch", static_cast<int>(stretch_), static_cast<int>(kProportional));
    // Without a value the file's own count is read.
    bag.WriteProperty("Loops", clock_.Loops(), strip_.Loops());
    bag.WriteProperty("DelayLoad", delayAnimation_, kLoadLater);
    bag.WriteProperty("Mirror", mirrored_, 0);
    bag.WriteProperty("MouseIcon", PictureProperty(mouseIcon_));
    bag.WriteProperty("MousePointer", mousePointer_, 0);
    bag.WriteProperty("Enabled", isEnabled(), true);
}

// Size and painting

QSize ucAniGIF::sizeHint() const { return {strip_.ScreenWidth(), strip_.ScreenHeight()}; }

void ucAniGIF::FitTo(const QSize& wanted) {
    fit_ = FitToControl(stretch_, wanted, {strip_.ScreenWidth(), strip_.ScreenHeight()});
}

void ucAniGIF::ResizeToFit() {
    if (FrameCount() == 0 || resizing_) return;
    FitTo(size());
    resizing_ = true;
    resize(fit_.size);
    resizing_ = false;
}

void ucAniGIF::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ResizeToFit();
}

void ucAniGIF::paintEvent(QPaintEvent*) {
    const QImage screen = composer_.Compose(CurrentFrame());
    if (screen.isNull()) return;
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    const QSize inDevicePixels(RoundToEven(screen.width() * fit_.scaleX * ratio),
                               RoundToEven(screen.height() * fit_.scaleY * ratio));
    if (inDevicePixels.isEmpty()) return;
    if (inDevicePixels == screen.size()) {
        painter.drawImage(QRectF(QPointF(0, 0), QSizeF(screen.size()) / ratio), screen);
        return;
    }
    // Averages all pixels where it shrinks, which the painter's own scaling does not.
    QImage scaled = screen.scaled(inDevicePixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    painter.drawImage(0, 0, scaled);
}

// Mouse

void ucAniGIF::mousePressEvent(QMouseEvent* event) {
    Q_EMIT MouseDown(event->button(), event->modifiers(), PixelsToTwips(event->pos().x()),
                     PixelsToTwips(event->pos().y()));
}

void ucAniGIF::mouseReleaseEvent(QMouseEvent* event) {
    Q_EMIT MouseUp(event->button(), event->modifiers(), PixelsToTwips(event->pos().x()),
                   PixelsToTwips(event->pos().y()));
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) Q_EMIT Click();
}

void ucAniGIF::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT MouseMove(event->buttons(), event->modifiers(), PixelsToTwips(event->pos().x()),
                     PixelsToTwips(event->pos().y()));
}

}  // namespace kelu
