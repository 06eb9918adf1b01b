// The main window: makes the controls and the objects that know the jobs, and passes each event on to the one it
// concerns.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "app/busy_window.h"
#include "app/canvas_hand.h"
#include "app/command_keys.h"
#include "app/command_look.h"
#include "app/drop_target.h"
#include "app/help_key.h"
#include "app/help_topics.h"
#include "app/idle_memory.h"
#include "app/main_controls.h"
#include "app/paint_reminder.h"
#include "app/splash.h"
#include "app/start_up.h"
#include "app/window_chrome.h"
#include "capture/camera_capture.h"
#include "document/commands.h"
#include "document/document.h"
#include "document/history.h"
#include "document/journal.h"
#include "document/open_save.h"
#include "document/painter.h"
#include "document/session_replay.h"
#include "document/settings.h"
#include "document/shared_state.h"
#include "document/zoom_view.h"
#include "effects/catalogue/pix_twix.h"
#include "effects/effect_application.h"
#include "effects/effect_pictures.h"
#include "effects/form_render_window.h"
#include "output/mail/mail_image.h"
#include "output/pdf/pdf_export.h"
#include "output/print_service.h"

namespace kelu {

/// What the main window is given; all must outlive it.
struct MainServices {
    Settings& settings;
    MsgDialog& dialog;
    SaveDialog& saveDialog;
    PrintService& printing;
    VideoCapX& camera;         ///< VCX1
    VideoCapX& optionsCamera;  ///< VCX1 of the options
    std::function<bool(const QString& path)> openDocument;
    std::function<bool()> anotherInstanceRuns;
    std::function<void(const QString& path)> playSound;
    std::function<void(const QString& path)> rememberRecent = {};  ///< a picture was opened from this file
    Journal* journal = nullptr;                                    ///< null: nobody records what is done

    SessionLog& Log() const { return journal ? *journal : SessionLog::None(); }
};

class frmMain : public QWidget {
    Q_OBJECT

 public:
    frmMain(SharedState& state, const MainServices& services);
    ~frmMain() override;

    /// The start-up steps. False when the window is not to be shown, since another instance runs.
    bool Start();
    /// The close command: asks when there are unsaved changes.
    void ExitApp();
    /// The same for a picture that another start gave; it waits while a dialog or a render shuts the window.
    void TakePicture(const QString& path);
    /// Opens a picture, or plays a recipe, as if it had been dropped on the canvas.
    void OpenPicture(const QString& path);
    /// Ends the program without a question; what is not saved stays in the journal.
    void EndKeepingJournal();

    void Run(Command command);
    /// Uncovers the tools; runs by itself 3.5 s after the window was made, or at a click, Escape, Space or Enter.
    void EndSplash();

    // For those who drive the window from outside: dialogs and tests.
    Surfaces surfaces;
    Surface capturePreview;
    MainControls controls;

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

 private:
    void Connect();
    void ConnectJournal(Journal& journal);
    void ConnectCapture();
    /// Once for each change: the brush still paints what was rendered before it.
    void TellStaleRender();

    void PaintEverywhere(Painter::Paint paint);
    void StepBrush(int direction);
    /// By a render, long work or a dialog.
    bool Shut() const;
    void TakeOffered(const OfferedPicture& offered);
    void Paste();
    void ShowBrowse();
    void ShowOptions();
    void PrintImage();
    QString RenderedEffectName() const;

    /// Closes the window, and with it the program.
    void Unload();

    SharedState& state_;
    MainServices services_;
    BusyWindow busy_;
    Document document_;
    Painter painter_;
    History history_;
    ZoomView zoomView_;
    PdfExport pdfExport_;
    OpenSave openSave_;
    PixTwix PixTwix1_;
    PaintReminder reminder_;
    FormRenderWindow renderWindow_;
    EffectApplication application_;
    CommandLook commandLook_;
    EffectPictures buttonPictures_;
    CameraCapture capture_;
    MailImage mail_;
    HelpTopics help_;
    HelpKey helpKey_;
    Splash splash_;
    WindowChrome chrome_;
    CommandKeys keys_;
    CanvasHand hand_;
    DropTarget drops_;
    StartUp startUp_;
    IdleMemory idleMemory_;
    std::unique_ptr<SessionReplay> sessionReplay_;  ///< null without a journal
    QTimer tmrSplash_;
    QTimer tmrSettings_;
    bool staleTold_ = false;
    QPoint coverPress_;  // on the screen
    bool unloading_ = false;
};

}  // namespace kelu
