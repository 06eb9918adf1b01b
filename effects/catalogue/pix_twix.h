// The effect engine as the program sees it: a working picture and one operation for each effect that works on it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>

#include "canvas/render_picture.h"
#include "effects/catalogue/operations.h"

namespace kelu {

/// One render: SetPicture, one operation, and, when it answered true, Picture.
///
/// An operation returns when all is done. True: Picture() holds the render. False: the picture is as it was (nothing
/// set, no memory, a render already running). Operations don't throw. The source is shared, never copied.
class PixTwix : public QObject {
    Q_OBJECT

 public:
    /// threads: how many the engine may use, 0 for all.
    explicit PixTwix(int threads = 0) : threads_(threads) {}

    const QImage& Picture() const { return picture_; }
    void SetPicture(const QImage& picture);

    /// Any render that answers to the same rules.
    bool Render(const Renderer& renderer);
    /// Whether the last operation answered false for want of memory.
    bool LackedMemory() const { return lackedMemory_; }

    // FxGrayscale to FxWind: one for each line of the list.
#define KELU_DECLARE(Name, parameters, call) bool Name parameters;
    KELU_OPERATIONS(KELU_DECLARE)
#undef KELU_DECLARE

 Q_SIGNALS:
    /// Raised on the caller's thread inside a running operation. Whoever reported below 100 ends with 100.
    void FxProgress(int percent);

 private:
    template <class Function, class... Inputs>
    bool Run(Function kernel, Inputs... inputs);

    QImage picture_;
    int threads_;
    bool rendering_ = false;
    bool lackedMemory_ = false;
};

}  // namespace kelu
