// The film of a painting as it will be, before it is saved.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QPushButton;

namespace kelu {

class ucAniGIF;

class FilmDialog : public QDialog {
    Q_OBJECT

 public:
    /// `film` is an animated GIF, which plays at once. Accepted: it is to be saved.
    FilmDialog(const QByteArray& film, QWidget* parent);

    ucAniGIF* const player;
    QPushButton* const cmdSave;
    QPushButton* const cmdCancel;
};

}  // namespace kelu
