// A box for one coordinate: up to three digits, nothing else, whichever way the text comes in.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace kelu {

class CoordinateBox : public QLineEdit {
    Q_OBJECT

 public:
    explicit CoordinateBox(QWidget* parent = nullptr);

    /// Image pixels, 0 to 999; an empty box counts as 0.
    int Value() const { return text().toInt(); }

 protected:
    // Getting the focus selects the whole text, so that typing replaces it.
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // A field keeps the keys that go up to itself, yet the window's commands are among them.
    void keyReleaseEvent(QKeyEvent* event) override;

 private:
    bool selectAfterPress_ = false;
};

}  // namespace kelu
