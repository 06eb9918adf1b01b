// The open dialog: walk the folders, see the pictures, choose one; OK loads it into the document.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "dialogs/browse/file_viewer.h"
#include "document/settings.h"
#include "platform/msg_dialog.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace kelu {

class FolderCombo;
class ToolButton;

namespace settings {
inline constexpr TextSetting kLastFolder{{"LastOpenedFolder", "Path"}, ""};  ///< the Gallery when missing
}

/// Whether a file's name is that of a picture: the last four or five characters, without regard to case.
bool IsPictureName(const QString& path);

class frmBrowse : public QDialog {
    Q_OBJECT

 public:
    struct Places {
        QString pictures;
        QString gallery;
        QString documents;
        static Places OfUser();
    };

    /// `open` loads the chosen path into the document and throws what goes wrong.
    frmBrowse(Settings& settings, MsgDialog& dialog, std::function<void(const QString& path)> open, QWidget* parent,
              const Places& places = Places::OfUser(), const ThumbnailCache& cache = ThumbnailCache());

    int exec() override;

    // By name, for those who drive the dialog from outside.
    FileViewer* const FileViewer_;
    FolderCombo* const ComboDrive;
    QLabel* const lblLookin;
    const std::array<ToolButton*, 4> cmdFolder;  ///< cmdFolder1 to cmdFolder4
    ToolButton* const cmdBack;
    ToolButton* const CmdUp;
    ToolButton* const cmdIcons;
    QMenu* const mnuFFile;
    std::array<QAction*, 5> mnuViews{};  ///< by FileViewer::ViewKind
    QPushButton* const cmdOK;
    QPushButton* const cmdCancel;

 private:
    void LayOut();
    void Connect();
    void SetUpMe();
    void LoadMySettings();
    void ChangeLanguage(const QString& id);
    void SavePath();

    void ChooseFolder(std::size_t button);
    void SetView(FileViewer::ViewKind view);
    void GoBack();
    void GoTo(const QString& typed);
    void ItemChosen();
    void Ok();

    Settings& settings_;
    MsgDialog& dialog_;
    std::function<void(const QString&)> open_;
    Places places_;
    QString path_;          ///< of the picture last chosen
    bool refused_ = false;  ///< it could not be opened
};

}  // namespace kelu
