// Painting by keys on a view that shows the whole picture: arrows move the brush, Space or Enter held down is the left
// button of the mouse.
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointF>
#include <QSet>
#include <optional>

class QKeyEvent;

namespace kelu {

class ImageX;

/// Turns keys into the mouse events that a hand would make, so that a stroke is a stroke, whichever way it comes.
class KeyBrush : public QObject {
    Q_OBJECT

 public:
    explicit KeyBrush(ImageX& view);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool KeyDown(const QKeyEvent& key);
    bool KeyUp(const QKeyEvent& key);
    void LetGo();
    void Send(QEvent::Type type, Qt::KeyboardModifiers modifiers);

    ImageX& view_;
    std::optional<QPointF> pointer_;  ///< where the brush is; none: neither mouse nor keys have brought it here
    QSet<int> arrows_;                ///< held down
    int paints_ = 0;                  ///< the key that holds the button down; 0: none
    bool sends_ = false;
};

}  // namespace kelu
