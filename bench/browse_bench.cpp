// The browse dialog over a folder of many large photographs: time to the first rows, time to the first screen of
// thumbnails, and the longest stall of the interface thread while scrolling. Usage: browse_bench FOLDER
// SPDX-License-Identifier: MIT
#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "controls/theme/theme.h"
#include "dialogs/browse/file_viewer.h"

namespace {

/// Longest time between two turns of the event loop while `work` runs it.
class StallWatch : public QObject {
 public:
    StallWatch() {
        timer_.setInterval(0);
        connect(&timer_, &QTimer::timeout, this, [this] { longest_ = std::max(longest_, clock_.restart()); });
        clock_.start();
        timer_.start();
    }
    qint64 Longest() const { return longest_; }

 private:
    QTimer timer_;
    QElapsedTimer clock_;
    qint64 longest_ = 0;
};

void RunEvents(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    kelu::theme::Apply(application);
    if (argc < 2) return std::fprintf(stderr, "usage: browse_bench FOLDER\n"), 2;
    QTemporaryDir cache;
    kelu::FileViewer viewer{kelu::ThumbnailCache(cache.path())};
    viewer.SetFilter(QStringLiteral("*.jpg;*.png"));
    viewer.resize(800, 500);
    QElapsedTimer clock;
    clock.start();
    viewer.SetFolder(QString::fromLocal8Bit(argv[1]));
    viewer.show();
    viewer.grab();
    std::printf("%d rows, first rows after %lld ms\n", viewer.Model().rowCount(), clock.elapsed());

    const auto ready = [&](int rows) {
        for (int row = 0; row < rows; ++row)
            if (!viewer.Model().index(row, 0).data(kelu::FolderModel::kThumbnailRole).isValid()) return false;
        return true;
    };
    const int screen = std::min(15, viewer.Model().rowCount());
    while (!ready(screen)) RunEvents(5);
    std::printf("first %d thumbnails after %lld ms\n", screen, clock.elapsed());

    auto* view = qobject_cast<QAbstractItemView*>(viewer.currentWidget());
    StallWatch stalls;
    for (int step = 0; step < 200; ++step) {
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() * step / 200);
        RunEvents(16);
    }
    std::printf("scrolled through everything; longest stall %lld ms\n", stalls.Longest());
    return 0;
}
