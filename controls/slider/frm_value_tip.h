// The small window beside a slider's thumb that shows the value during a drag. One instance serves all sliders, as only
// one can be dragged at a time.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QWidget>

namespace kelu {

class frmValueTip : public QWidget {
    Q_OBJECT

 public:
    /// The shared instance, made when there is none, kept above the window of `owner`.
    static frmValueTip& Shared(const QWidget& owner);
    /// The shared instance, or null when there is none.
    static frmValueTip* Loaded();
    static void Unload();

    /// Sets the number and returns the label's size in widget pixels.
    QSize SetNumber(int value);
    QString Text() const { return lblTip_->text(); }

    /// Shows the tip at `place` (screen pixels) above other windows; it never takes the focus.
    void ShowAt(const QRect& place);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    explicit frmValueTip(QWidget* window);

    QLabel* lblTip_;
};

}  // namespace kelu
