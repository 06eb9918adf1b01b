// SPDX-License-Identifier: MIT
#include "dialogs/film_dialog.h"

#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/animated_gif/uc_ani_gif.h"
#include "controls/title_row/dialog_frame.h"
#include "platform/language.h"
#include "platform/units.h"

namespace kelu {

namespace {
constexpr QSize kLargest(640, 480);  // pixels
}

FilmDialog::FilmDialog(const QByteArray& film, QWidget* parent)
    : QDialog(parent),
      player(new ucAniGIF(this)),
      cmdSave(new QPushButton(tr("Save..."), this)),
      cmdCancel(new QPushButton(tr("Cancel"), this)) {
    setObjectName(QStringLiteral("FilmDialog"));
    setWindowTitle(tr("As It Grew"));
    player->LoadAnimatedGIF_Array(film);
    const QSize size(TwipsToPixels(player->ActualWidth()), TwipsToPixels(player->ActualHeight()));
    const bool fits = size.width() <= kLargest.width() && size.height() <= kLargest.height();
    player->setFixedSize(fits ? size : size.scaled(kLargest, Qt::KeepAspectRatio));
    player->setAccessibleName(tr("The film"));
    auto* about = new QLabel(tr("%1 \u00D7 %2 pixels, %3")
                                 .arg(QString::number(size.width()), QString::number(size.height()),
                                      LanguageLocale().formattedDataSize(film.size(), 1, QLocale::DataSizeSIFormat)),
                             this);
    QVBoxLayout* column = MakeDialogFrame(*this);
    column->addWidget(player, 0, Qt::AlignCenter);
    column->addWidget(about);
    column->addLayout(ButtonRow({}, {cmdSave, cmdCancel}));
    cmdSave->setDefault(true);
    connect(cmdSave, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace kelu
