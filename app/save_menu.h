// What a right click on Save offers beside the picture itself: how it was made, as a recipe and as a film.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "document/document.h"
#include "document/journal.h"
#include "document/open_save.h"
#include "platform/msg_dialog.h"

class QPoint;
class QWidget;

namespace kelu {

class SaveMenu : public QObject {
    Q_OBJECT

 public:
    /// `button` gets the menu, also by the keyboard's menu key.
    SaveMenu(QWidget& button, Document& document, OpenSave& openSave, const SharedState& state, Journal& journal,
             MsgDialog& dialog);

 private:
    void Show(const QPoint& at);
    void SaveRecipe();
    void SaveFilm();
    Recipe Told();
    /// Empty when the user did not want to wait.
    QByteArray Film();
    /// A name for what is to be saved, "" when the user cancelled.
    QString AskForName(const QString& title, const QString& filter, const char* suffix);

    QWidget& button_;
    Document& document_;
    OpenSave& openSave_;
    const SharedState& state_;
    Journal& journal_;
    MsgDialog& dialog_;
};

}  // namespace kelu
