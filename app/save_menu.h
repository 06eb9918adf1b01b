// What a right click on Save offers beside the picture itself: how it was made, as a recipe and as a film.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

#include "document/document.h"
#include "document/journal.h"
#include "platform/msg_dialog.h"

class QPoint;
class QWidget;

namespace kelu {

class SaveMenu : public QObject {
    Q_OBJECT

 public:
    /// `button` gets the menu, also by the keyboard's menu key. `showProgress` gets percent; 100 hides it.
    SaveMenu(QWidget& button, Document& document, const SharedState& state, Journal& journal, MsgDialog& dialog,
             std::function<void(int)> showProgress);

 private:
    void Show(const QPoint& at);
    void SaveRecipe();
    void SaveFilm();
    /// A name for what is to be saved, "" when the user cancelled.
    QString AskForName(const QString& title, const QString& filter, const char* suffix);

    QWidget& button_;
    Document& document_;
    const SharedState& state_;
    Journal& journal_;
    MsgDialog& dialog_;
    std::function<void(int)> showProgress_;
};

}  // namespace kelu
