// SPDX-License-Identifier: MIT
#include "app/save_menu.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QStandardPaths>

#include "dialogs/film_dialog.h"
#include "dialogs/save_file_dialog.h"
#include "document/film.h"
#include "document/recipe.h"
#include "effects/catalogue/render_onto.h"
#include "platform/atomic_file.h"
#include "platform/run_beside.h"

namespace kelu {

SaveMenu::SaveMenu(QWidget& button, Document& document, OpenSave& openSave, const SharedState& state, Journal& journal,
                   MsgDialog& dialog)
    : QObject(&button),
      button_(button),
      document_(document),
      openSave_(openSave),
      state_(state),
      journal_(journal),
      dialog_(dialog) {
    button.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&button, &QWidget::customContextMenuRequested, this, &SaveMenu::Show);
}

void SaveMenu::Show(const QPoint& at) {
    QMenu menu(&button_);
    QAction* recipe = menu.addAction(tr("Save the recipe..."));
    QAction* film = menu.addAction(tr("Save as it grew..."));
    const bool painted = !state_.CaptureBusy && journal_.Painted();
    recipe->setEnabled(painted);
    film->setEnabled(painted);
    const QAction* chosen = menu.exec(button_.mapToGlobal(at));
    if (chosen == recipe) SaveRecipe();
    if (chosen == film) SaveFilm();
}

void SaveMenu::SaveRecipe() {
    const QString path = AskForName(tr("Save the Recipe"), tr("Recipes (*.kelu)"), "kelu");
    if (path.isEmpty()) return;
    RunShowingErrors(dialog_, [&] {
        const Recipe recipe = Told();
        document_.RunsBeside()([&] { WriteRecipe(recipe, path); });
        openSave_.TellSaved(path, /*mayGoOn=*/false);
    });
}

void SaveMenu::SaveFilm() {
    RunShowingErrors(dialog_, [this] {
        const QByteArray film = Film();
        if (film.isEmpty() || FilmDialog(film, button_.window()).exec() != QDialog::Accepted) return;
        const QString path = AskForName(tr("Save as It Grew"), tr("GIF Files (*.gif)"), "gif");
        if (path.isEmpty()) return;
        document_.RunsBeside()([&] { WriteFile(path, film); });
        openSave_.TellSaved(path, /*mayGoOn=*/false);
    });
}

Recipe SaveMenu::Told() {
    document_.RunsBeside()([this] { journal_.Wait(); });
    return journal_.Told();
}

QByteArray SaveMenu::Film() {
    Recipe recipe = Told();
    CheckWhole(recipe);
    recipe.shrunk = false;  // the picture was shrunk when it was opened
    QByteArray film;
    document_.RunsBeside()([&, picture = document_.Original().Picture()] {
        const WorkReport report;
        film = MakeFilm(recipe, picture, &RenderEffectOn, /*fit=*/false, [&report](int percent) {
            report.Tell(percent, 100);
            return !report.Cancelled();
        });
    });
    return film;
}

QString SaveMenu::AskForName(const QString& title, const QString& filter, const char* suffix) {
    const QFileInfo picture(journal_.Picture().path);
    const QString folder = journal_.Picture().passing || !picture.dir().exists()
                               ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)
                               : picture.path();
    QFileDialog dialog(button_.window(), title, QDir(folder).exists() ? folder : QDir::homePath(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);  // we ask
    dialog.setDefaultSuffix(QLatin1String(suffix));
    DressFileDialog(dialog);
    dialog.selectFile(picture.completeBaseName() + u'.' + QLatin1String(suffix));
    while (dialog.exec() == QDialog::Accepted) {
        const QString path = dialog.selectedFiles().value(0);
        if (MayReplaceFile(path, dialog_)) return path;
        dialog.selectFile(path);
    }
    return {};
}

}  // namespace kelu
