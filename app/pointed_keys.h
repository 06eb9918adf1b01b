// Keys of a hand on the mouse: while nobody works by keyboard, what is typed goes to the chooser or the panel that the
// pointer is over.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace kelu {

class EffectPanel;
class EffectSelectors;

class PointedKeys : public QObject {
    Q_OBJECT

 public:
    PointedKeys(QWidget& window, EffectSelectors& selectors, EffectPanel& panel);

 protected:
    /// Over a chooser a name and the page keys find an effect; there and over the panel Enter applies.
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget& window_;
    EffectSelectors& selectors_;
    EffectPanel& panel_;
};

}  // namespace kelu
