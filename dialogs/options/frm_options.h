// The settings dialog: six pages, read when it opens, written on OK only.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "document/settings.h"
#include "document/shared_state.h"
#include "output/mail/account_password.h"
#include "output/output_settings.h"
#include "platform/msg_dialog.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QVBoxLayout;

namespace kelu {

class ToolButton;

class frmOptions : public QDialog {
    Q_OBJECT

 public:
    /// What lies outside the dialog. Cameras: names in the order of their numbers, and opening one, which throws
    /// Error(kNoCamera) when there is none.
    struct Surroundings {
        std::function<QStringList()> cameraNames;
        std::function<void(int device)> connectCamera;
        std::function<void()> loadHelp;
        std::function<void()> showAbout;
    };
    static constexpr int kPages = 6;

    frmOptions(Settings& settings, SharedState& state, MsgDialog& dialog, Surroundings surroundings, QWidget* parent);

    // By name, for those who drive the dialog from outside.
    const std::array<ToolButton*, kPages> pnlMenu;
    QStackedWidget* const pages;  ///< pnl1 to pnl6
    const std::array<QRadioButton*, 3> optEmail;
    QLineEdit* const txtUserName;
    QLineEdit* const txtPassword;
    QCheckBox* const chkMask;
    const std::array<QRadioButton*, 3> optCursor;
    const std::array<ToolButton*, 3> picCursor;  ///< picBrush, picSmudge, picCross
    QCheckBox* const chkReminder;
    QCheckBox* const chkResize;
    QComboBox* const cboDevices;
    QComboBox* const cboCaptureSize;
    QCheckBox* const chkSFXSelector;
    QPushButton* const cmdOK;
    QPushButton* const cmdCancel;
    QPushButton* const cmdHelp;
    QPushButton* const cmdAbout;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void LayOut();
    void LayOutPages();
    void LayOutEmail(QVBoxLayout& rows);
    void LayOutCursors(QVBoxLayout& rows);
    void LayOutResize(QVBoxLayout& rows);
    void LayOutCapture(QVBoxLayout& rows);
    void Connect();
    void SetUpMe();
    void LoadMySettings();
    void SaveMySettings();
    /// Tells when it can't be kept.
    void SavePassword();
    void LoadDevices();
    void LoadVideoSizes();
    void Connect2Camera();
    void ShowPage(int page);
    void ChooseEmail(MailMethod method);
    void ChooseCursor(CursorStyle style);
    bool UsesCamera() const;

    Settings& settings_;
    AccountPassword password_;
    SharedState& state_;
    MsgDialog& dialog_;
    Surroundings surroundings_;
    QWidget* account_ = nullptr;  // of the third way of sending: user name, password and its mask
    // The texts of the settings; an unknown one stays and is written back as it was.
    QString txtEmail_ = QStringLiteral("1");
    QString txtCursor_ = QStringLiteral("1");
};

}  // namespace kelu
