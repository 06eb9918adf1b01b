// The help's own window: pages, back and forward, all effects, search.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLineEdit;

namespace kelu {

class HelpBrowser;
class ToolButton;

class HelpWindow : public QWidget {
    Q_OBJECT

 public:
    /// `folder` holds the pages. The window has no owner and does not keep the program running.
    explicit HelpWindow(const QString& folder);

    /// A page that does not exist gives a note in the window.
    void ShowPage(const QString& page);
    /// Brings the window to the front; also over a dialog that blocks the other windows.
    void Raise();
    HelpBrowser& Browser() const { return *browser_; }

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QWidget* MakeToolRow();
    void AddKeys();

    HelpBrowser* browser_;
    ToolButton* back_;
    ToolButton* forward_;
    ToolButton* index_;
    QLineEdit* search_;
};

}  // namespace kelu
