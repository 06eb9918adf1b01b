// The Scroller's property page for authors: two buttons move the page while it is designed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

namespace kelu {

class Scroller;

class MoveControlsPage : public QWidget {
    Q_OBJECT

 public:
    explicit MoveControlsPage(QWidget* parent = nullptr);

    /// The selected controls; the buttons work on the first.
    void SetSelected(const QList<Scroller*>& selected);

 private:
    void MovePage(int twips);

    QPointer<Scroller> first_;
    QPushButton* cmdDown_;
    QPushButton* CmdUp_;
};

}  // namespace kelu
