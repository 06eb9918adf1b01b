// How long the window is held: starts the real window, drives it as a user does, and prints for each action its whole
// time, the longest gap between two turns of the event loop (a timer of 1 ms), the most processor time that the
// interface thread took between two turns, which a busy machine doesn't stretch, and the longest time from an input to
// the repaint that answers it. bench_stalls PHOTO [MEGAPIXELS]...: the photograph is enlarged to each size.
// SPDX-License-Identifier: MIT
#include <malloc.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <utility>

#include "app/frm_main.h"
#include "controls/slider/ls_slider.h"
#include "controls/system_look/system_colors.h"
#include "controls/theme/theme.h"
#include "controls/tool_button/tool_button.h"
#include "effects/catalogue/catalogue.h"
#include "effects/effect_panel.h"
#include "effects/effect_pictures.h"
#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "platform/units.h"
#include "tests/support/memory_settings.h"
#include "tests/support/paper_only_printing.h"
#include "tests/support/scripted_camera.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/scripted_save_dialog.h"

namespace {

using namespace kelu;

/// Milliseconds of the processors that this thread has taken.
double ThreadTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The longest gap between two turns of the event loop.
class Pulse : public QObject {
 public:
    Pulse() {
        timer_.setTimerType(Qt::PreciseTimer);
        connect(&timer_, &QTimer::timeout, this, [this] { Beat(); });
        timer_.start(1);
    }
    void Start() {
        longest_ = busiest_ = 0;
        worked_ = ThreadTime();
        clock_.start();
    }
    double Longest() {
        Beat();
        return longest_;
    }
    double Busiest() const { return busiest_; }

 private:
    void Beat() {
        if (!clock_.isValid()) return;
        longest_ = std::max(longest_, static_cast<double>(clock_.nsecsElapsed()) / 1e6);
        busiest_ = std::max(busiest_, ThreadTime() - worked_);
        worked_ = ThreadTime();
        clock_.start();
    }
    QTimer timer_;
    QElapsedTimer clock_;
    double longest_ = 0;
    double busiest_ = 0;
    double worked_ = 0;
};

/// Tells when a widget has painted itself.
class PaintWatch : public QObject {
 public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    bool painted = false;
    QElapsedTimer since;  ///< the first paint

 protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && !std::exchange(painted, true)) since.start();
        return false;
    }
};

/// Megabytes of the line of this name in the process's status: VmRSS now, VmHWM at the most.
double Memory(const std::string& name) {
    std::ifstream lines("/proc/self/status");
    for (std::string line; std::getline(lines, line);)
        if (line.rfind(name + ":", 0) == 0) return std::atof(line.c_str() + name.size() + 1) / 1024;
    return -1;
}

class Drive {
 public:
    explicit Drive(const QString& photo) : photo_(ReadPicture(photo)) {
        settings_.Write(settings::kResize, 0);
        settings_.Write(settings::kReminder, false);
        camera_.devices = {QStringLiteral("Camera")};
    }

    void Run(double megapixels) {
        const double scale = std::sqrt(megapixels * 1e6 / photo_.width() / photo_.height());
        const QSize size(RoundToEven(photo_.width() * scale), RoundToEven(photo_.height() * scale));
        const QString path = folder_.filePath(QStringLiteral("photo.jpg"));
        WritePicture(photo_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), path);
        std::printf("\n%.0f megapixels (%d x %d)\n%-24s %8s %8s %8s %8s\n", megapixels, size.width(), size.height(),
                    "action", "ms", "stall", "cpu", "repaint");

        frmMain window(state_, {settings_, dialog_, saveDialog_, printing_, camera_, camera_, {}, {}, {}});
        window_ = &window;
        window.Start();
        window.show();
        window.EndSplash();
        QTest::qWait(2000);  // the pictures of the effects
        canvas_ = window.controls.picCanvas;

        Measure("open JPEG", [&] { window.OpenPicture(path); });
        Chooser(path);
        Measure("zoom in", *canvas_, [&] { window.Run(Command::ZoomReset), Zoom(8); });
        Measure("zoom reset", *canvas_, [&] { window.Run(Command::ZoomReset); });
        Measure("zoom out", *canvas_, [&] { window.Run(Command::ZoomOut); });
        window.Run(Command::ZoomReset);
        Measure("larger window", *canvas_, [&] { window.resize(window.size() + QSize(100, 100)); });
        for (const auto& [effect, name] :
             {std::pair{1, "apply Grayscale"}, {33, "apply Oil Painting"}, {48, "apply Neon"}})
            Apply(effect, name);
        Apply(1, "apply Grayscale again");
        std::printf("memory after apply: %.0f MB, at the most %.0f MB\n", Memory("VmRSS"), Memory("VmHWM"));
        window.controls.pnlSettings->sldBrushSize->SetValue(100);
        for (int stroke = 0; stroke < 40; ++stroke) Stroke(stroke);
        std::printf("%-24s %8s %8.1f %8.1f %8.1f\n", "40 long strokes", "", strokeStall_, strokeBusy_, strokeRepaint_);
        std::printf("memory after 40 strokes: %.0f MB, at the most %.0f MB\n", Memory("VmRSS"), Memory("VmHWM"));
        Measure("undo", *canvas_, [&] { window.Run(Command::Undo); });
        Measure("redo", *canvas_, [&] { window.Run(Command::Redo); });
        Measure("compare", *window.controls.picOriginal, [&] { window.Run(Command::Original); });
        Measure("compare back", *canvas_, [&] { window.Run(Command::Original); });
        Measure("copy", [&] { window.Run(Command::Copy); });
        Measure("paste elsewhere", [] { QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("image/png")); });
        QGuiApplication::clipboard()->clear();
        for (const char* extension : {"bmp", "png", "gif", "jpg", "tif", "pdf"}) {
            saveDialog_.names = {folder_.filePath(QStringLiteral("saved.") + QLatin1String(extension))};
            saveDialog_.chosenFilter = qstrcmp(extension, "pdf") == 0 ? SaveDialog::kPdfFilter : SaveDialog::kPngFilter;
            state_.ImageDirty = state_.ImageActive = true;
            Measure((QByteArray("save ") + extension).constData(), [&] { window.Run(Command::Save); });
        }
        state_.ImageDirty = false;
        Measure("open PNG", [&] { window.OpenPicture(folder_.filePath(QStringLiteral("saved.png"))); });
        Measure("close", [&] { window.close(); });
    }

 private:
    template <typename Action>
    void Measure(const char* name, Action action) {
        QTest::qWait(100);
        QElapsedTimer whole;
        whole.start();
        pulse_.Start();
        action();
        const auto taken = static_cast<double>(whole.nsecsElapsed()) / 1e6;
        QTest::qWait(50);  // what the action left to be done
        const double stall = pulse_.Longest();
        std::printf("%-24s %8.0f %8.1f %8.1f\n", name, taken, stall, pulse_.Busiest());
        std::fflush(stdout);
    }
    template <typename Action>
    void Measure(const char* name, QWidget& answers, Action action) {
        QTest::qWait(100);
        PaintWatch watch(answers);
        QElapsedTimer whole;
        whole.start();
        pulse_.Start();
        action();
        const auto taken = static_cast<double>(whole.nsecsElapsed()) / 1e6;
        while (!watch.painted && whole.elapsed() < 5000) QCoreApplication::processEvents();
        const auto repaint = static_cast<double>(whole.nsecsElapsed()) / 1e6;
        QTest::qWait(20);
        const double stall = pulse_.Longest();
        std::printf("%-24s %8.0f %8.1f %8.1f %8.1f\n", name, taken, stall, pulse_.Busiest(), repaint);
        std::fflush(stdout);
    }
    /// From the first paint of a new picture to the last effect's picture of it.
    void Chooser(const QString& path) {
        PaintWatch watch(*canvas_);
        int waits = 0;
        QObject context;
        QObject::connect(&window_->surfaces.picCanvas, &Surface::PictureReplaced, &context, [&] {
            watch.painted = false;
            waits = static_cast<int>(Catalogue().size());
        });
        QObject::connect(window_->findChild<EffectPictures*>(), &EffectPictures::PictureReady, &context,
                         [&] { --waits; });
        pulse_.Start();
        window_->OpenPicture(path);
        while (waits > 0) QCoreApplication::processEvents();
        const auto taken = static_cast<double>(watch.since.nsecsElapsed()) / 1e6;
        std::printf("%-24s %8.0f %8.1f %8.1f\n", "pictures of the chooser", taken, pulse_.Longest(), pulse_.Busiest());
    }
    void Zoom(int steps) {
        for (; steps > 0; --steps) window_->Run(Command::ZoomIn);
    }
    void Apply(int effect, const char* name) {
        window_->controls.pnlSettings->SetUp(effect);
        Measure(name, [&] { QTest::mouseClick(window_->controls.pnlSettings->cmdApply, Qt::LeftButton); });
    }
    void Stroke(int number) {
        const QRectF shown = canvas_->ImageRect();
        const double y = shown.top() + shown.height() * (number + 0.5) / 40;
        pulse_.Start();
        QTest::mousePress(canvas_, Qt::LeftButton, {}, QPoint(int(shown.left()) + 5, int(y)));
        QCoreApplication::processEvents();
        NoteStroke();
        for (int x = 10; x < int(shown.width()) - 10; x += 12) {
            PaintWatch watch(*canvas_);
            QElapsedTimer clock;
            clock.start();
            pulse_.Start();
            const QPoint at(int(shown.left()) + x, int(y));
            QMouseEvent move(QEvent::MouseMove, at, canvas_->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(canvas_, &move);
            while (!watch.painted && clock.elapsed() < 1000) QCoreApplication::processEvents();
            strokeRepaint_ = std::max(strokeRepaint_, static_cast<double>(clock.nsecsElapsed()) / 1e6);
            NoteStroke();
        }
        QTest::mouseRelease(canvas_, Qt::LeftButton, {}, QPoint(int(shown.right()) - 10, int(y)));
    }
    void NoteStroke() {
        strokeStall_ = std::max(strokeStall_, pulse_.Longest());
        strokeBusy_ = std::max(strokeBusy_, pulse_.Busiest());
    }

    QTemporaryDir folder_;
    QImage photo_;
    MemorySettings settings_;
    SharedState state_;
    ScriptedDialog dialog_;
    ScriptedSaveDialog saveDialog_;
    PaperOnlyPrinting printing_;
    ScriptedCamera camera_;
    Pulse pulse_;
    frmMain* window_ = nullptr;
    ImageX* canvas_ = nullptr;
    double strokeStall_ = 0;
    double strokeBusy_ = 0;
    double strokeRepaint_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    theme::Apply(application);
    SystemColors::SetCurrent(SystemColors::Dark());
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_stalls PHOTO [MEGAPIXELS]...\n");
        return 2;
    }
    for (int i = 2; i < std::max(argc, 3); ++i)
        Drive(QString::fromLocal8Bit(argv[1])).Run(argc > 2 ? std::atof(argv[i]) : 12);
    return 0;
}
