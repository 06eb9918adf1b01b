// F1 in the dialogs. The main window has it among its commands.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

namespace kelu {

class HelpKey : public QObject {
    Q_OBJECT

 public:
    /// `show` opens a page of the help, in front of the dialog.
    explicit HelpKey(std::function<void(const QString& page)> show);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    std::function<void(const QString& page)> show_;
};

}  // namespace kelu
