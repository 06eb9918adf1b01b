// A label of the effect panel: text in a fixed box. A line too long for it is set narrower instead of being cut off.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kelu {

class PanelLabel : public QLabel {
    Q_OBJECT

 public:
    explicit PanelLabel(QWidget* parent = nullptr);

    /// `caption`: a doubled ampersand shows as one, lines end in CR LF.
    void SetCaption(const QString& caption);

 Q_SIGNALS:
    void Pressed();

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

 private:
    void Fit();
};

}  // namespace kelu
