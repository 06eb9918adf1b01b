// SPDX-License-Identifier: MIT
#include "app/frm_main.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QWindow>

#include "app/about_message.h"
#include "app/interface_language.h"
#include "app/save_menu.h"
#include "capture/capture_panel.h"
#include "controls/note/note_bar.h"
#include "controls/progress_bar/xp_progress_bar.h"
#include "controls/slider/ls_slider.h"
#include "controls/status_bar/status_bar.h"
#include "controls/theme/accessible_role.h"
#include "controls/theme/icons.h"
#include "controls/theme/theme.h"
#include "controls/tool_button/tool_button.h"
#include "dialogs/browse/frm_browse.h"
#include "dialogs/options/frm_options.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"
#include "output/frm_print.h"
#include "platform/error.h"

namespace kelu {

namespace {

constexpr int kSplashTime = 3500;  // ms
constexpr int kSettingsTime = 2;   // ms
constexpr int kSoftStep = 10;      // percent
constexpr int kShutTime = 200;     // ms between two looks at whether the window is free

/// A file or folder that lies beside the executable: data, Gallery, help.
QString BesideProgram(const char* name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(QLatin1String(name));
}

BrushCursors Cursors(qreal ratio) {
    const auto brush = [](theme::CursorPicture cursor) { return BrushCursor{cursor.pixmap, cursor.hotSpot}; };
    return {brush(theme::BrushCursor(ratio)), brush(theme::SmudgeCursor(ratio)), brush(theme::CrossCursor(ratio))};
}

}  // namespace

frmMain::frmMain(SharedState& state, const MainServices& services)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      controls(*this, surfaces, capturePreview, state),
      state_(state),
      services_(services),
      busy_(*controls.pBar1),
      document_(surfaces, *controls.picCanvas, *controls.picOriginal, state, services.Log(),
                [this](const std::function<void()>& run) { busy_.Run(run); }),
      painter_(
          document_, *controls.picCanvas, state, services.settings, *controls.note, Cursors(devicePixelRatioF()),
          [this] { return controls.pnlSettings->sldBrushSize->Value(); }, [this] { openSave_.TellAlreadySaved(); },
          services.Log()),
      history_(surfaces.picCanvas, *controls.picCanvas, state, *controls.note, services.Log()),
      zoomView_(document_, *controls.picCanvas, state),
      pdfExport_(surfaces.picCanvas, services.dialog, services.openDocument, document_.RunsBeside()),
      openSave_(document_, state, services.dialog, services.saveDialog, *controls.note,
                {[this] { ShowBrowse(); }, [this](const QString& path) { return pdfExport_.CreatePDF(path); },
                 [this] { return RenderedEffectName(); }, services.openDocument},
                services.Log()),
      reminder_(services.dialog, services.settings, *controls.note),
      renderWindow_(*this, *controls.pBar1),
      application_(surfaces.picCanvas, surfaces.picPen, PixTwix1_, state, *controls.pnlSettings, renderWindow_,
                   {[this] {
                        painter_.SetUpBrush();
                        controls.pnlSettings->RememberApplied();
                    },
                    [this] { reminder_.PrepareReminder(); },
                    [this] { controls.note->Show({tr("Not enough memory for this effect on this picture")}); }},
                   services.Log()),
      commandLook_(controls, surfaces.picCanvas, state, application_),
      buttonPictures_(this),
      capture_(document_, capturePreview, *controls.picCanvas, *controls.picCapPreview, state,
               {services.camera, services.dialog, services.settings, services.playSound, BesideProgram("data"),
                [this] { startUp_.ShowPlaceholder(); }}),
      mail_(surfaces.picCanvas, state, services.dialog,
            [this, draft = MailDraft()](const QString& attachment) mutable {
                const QString sent = ShowEmailForm(attachment, services_.settings, services_.dialog, draft, this);
                if (!sent.isEmpty()) controls.note->Show({sent});
            }),
      help_(state, services.dialog, BesideProgram("help")),
      helpKey_([this](const QString& page) { help_.ShowPage(page); }),
      splash_(*controls.picCover, state, services.settings, services.dialog, BesideProgram("data")),
      chrome_(*this, state),
      keys_(*this),
      hand_(controls, painter_, keys_, state),
      drops_(*this, [this] { return !Shut() && Enabled(Command::Drop, state_); }),
      startUp_(controls, surfaces.picCanvas, capture_, splash_, state, services.settings, services.dialog,
               BesideProgram("data")) {
    UseAccessibleRole<frmMain, QAccessible::Window>();
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Kelu"));
    setWindowIcon(theme::Icon(QStringLiteral("kelu")));
    setAutoFillBackground(true);
    resize(FirstSize(*this));
    controls.ShowTools(false);
    // The keys that end the splash must press nothing behind it.
    controls.picCover->setFocusPolicy(Qt::StrongFocus);
    controls.picCover->setFocus();
    Connect();
    if (services.journal) ConnectJournal(*services.journal);
}

frmMain::~frmMain() = default;

void frmMain::Connect() {
    for (const CommandRow& row : kCommands)
        connect(&controls.Button(row.command), &ToolButton::clicked, this, [this, row] { Run(row.command); });

    connect(&hand_, &CanvasHand::RenderUsed, this, &frmMain::TellStaleRender);
    // Later: the dialog would keep the release from the canvas. One that was under way may be open by then.
    connect(
        &hand_, &CanvasHand::PictureWanted, this,
        [this] {
            if (ObstacleTo(Command::Print, state_) == Obstacle::NoPicture) Run(Command::Open);
        },
        Qt::QueuedConnection);
    // Later, so that the program the picture came from need not wait for the answer to a question.
    connect(&drops_, &DropTarget::Dropped, this, &frmMain::TakeOffered, Qt::QueuedConnection);
    connect(controls.picCanvas, &ImageX::ZoomWheel, this, [this](int steps) {
        for (; steps > 0; --steps) Run(Command::ZoomIn);
        for (; steps < 0; ++steps) Run(Command::ZoomOut);
    });

    connect(controls.picCanvas, &ImageX::ZoomChanged, &document_, &Document::RefreshStatusText);
    connect(&document_, &Document::StatusTextChanged, controls.sBar1,
            [this](const QString& text) { controls.sBar1->SetPanelText(2, text); });
    connect(controls.sBar1, &StatusBar::PanelClicked, this, [this](int panel) {
        if (panel == 1) ShowAboutMsg(services_.dialog);
    });
    connect(&document_, &Document::Opened, this, [this] {
        IdleMemory::Release();
        controls.picZoomContainer->show();
        painter_.PictureOpened();
        if (services_.rememberRecent && !Document::Passing(document_.OpenedBy()))
            services_.rememberRecent(document_.OpenedPath());
    });
    connect(&history_, &History::OriginalShown, this, [this](bool shown) {
        ImageX& comes = shown ? *controls.picOriginal : *controls.picCanvas;
        ImageX& goes = shown ? *controls.picCanvas : *controls.picOriginal;
        comes.show();
        // The keys stay with the picture, and one that is held does not wander off.
        if (goes.hasFocus()) comes.setFocus();
        goes.hide();
    });
    connect(&keys_, &CommandKeys::LetGo, this, [this] { history_.HoldOriginal(false); });

    connect(controls.selectors, &EffectSelectors::EffectChosen, controls.pnlSettings, &EffectPanel::SetUp);
    connect(controls.pnlSettings->sldBrushSize, &LsSlider::ValueChanged, this, [this] { painter_.SetUpBrush(); });
    connect(controls.pnlSettings->cmdApply, &ToolButton::clicked, this, [this] { Run(Command::Apply); });

    ConnectCapture();
    connect(&buttonPictures_, &EffectPictures::PictureReady, controls.selectors, &EffectSelectors::ShowPicture);
    buttonPictures_.Follow(document_.Canvas(), state_);

    chrome_.AddHandle(*controls.picTitleBar, /*maximises=*/true);
    chrome_.AddHandle(*controls.picCover, /*maximises=*/false);
    connect(&chrome_, &WindowChrome::MaximisedChanged, this, [this](bool maximised) {
        controls.Button(Command::Restore).SetIconName(maximised ? QStringLiteral("restore") : QStringLiteral("max"));
        LoadLanguage(controls, state_);
    });

    controls.picCover->installEventFilter(this);
    tmrSplash_.setSingleShot(true);
    tmrSplash_.setInterval(kSplashTime);
    connect(&tmrSplash_, &QTimer::timeout, this, &frmMain::EndSplash);
    tmrSplash_.start();
    tmrSettings_.setSingleShot(true);
    tmrSettings_.setInterval(kSettingsTime);
    connect(&tmrSettings_, &QTimer::timeout, this, [this] {
        startUp_.LoadMySettings();
        startUp_.PrepareImageResize();
    });
}

void frmMain::TellStaleRender() {
    const bool stale = state_.ImageActive && state_.EffectReady && application_.InputsChanged();
    if (stale && !staleTold_)
        controls.note->Show({tr("The inputs have changed: Apply to paint with them"),
                             {{tr("Apply"), [this] { Run(Command::Apply); }}}});
    staleTold_ = stale;
}

void frmMain::ConnectJournal(Journal& journal) {
    const auto showProgress = [this](int percent) {
        renderWindow_.SetProgressVisible(percent < 100);
        if (percent < 100) renderWindow_.SetProgress(percent);
    };
    const auto mayAsk = [this] {
        return isVisible() && !unloading_ && !state_.CaptureBusy && !controls.pBar1->isVisible() &&
               !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
    };
    sessionReplay_ =
        std::make_unique<SessionReplay>(document_, openSave_, state_, journal, services_.dialog,
                                        SessionReplay::Surroundings{journal.Folder(), &RenderEffectOn, mayAsk,
                                                                    showProgress, [this] { painter_.SetUpBrush(); }});
    new SaveMenu(controls.Button(Command::Save), document_, openSave_, state_, journal, services_.dialog);
    connect(&journal, &Journal::Off, this, [this](const QString& reason) {
        controls.note->Show({tr("What you paint can't be recovered after a crash: %1").arg(reason),
                             {},
                             /*stays=*/false,
                             /*unasked=*/true});
    });
    connect(&journal, &Journal::Left, this, [this](const QString& path, const QString& name) {
        controls.note->Show({tr("The strokes on '%1' were not saved").arg(name),
                             {{tr("Bring back"), [this, path] { sessionReplay_->BringBack(path); }}},
                             /*stays=*/false,
                             /*unasked=*/true});
    });
}

void frmMain::OpenPicture(const QString& path) {
    if (sessionReplay_ && path.endsWith(QStringLiteral(".kelu"), Qt::CaseInsensitive))
        sessionReplay_->PlayRecipe(path);
    else
        openSave_.Drop(path);
}

void frmMain::EndKeepingJournal() {
    unloading_ = true;
    capture_.Unload();
    QCoreApplication::exit(0);
}

void frmMain::ConnectCapture() {
    const CapturePanel& panel = *controls.picCapContainer;
    connect(panel.cmdCapture, &ToolButton::clicked, &capture_, &CameraCapture::CaptureNow);
    connect(panel.cmdCaptureOK, &ToolButton::clicked, &capture_, &CameraCapture::OKClick);
    connect(panel.cmdCaptureCancel, &ToolButton::clicked, &capture_, &CameraCapture::CancelClick);
    connect(&capture_, &CameraCapture::PanelShown, this, [this](bool shown) {
        controls.picCapContainer->setVisible(shown);
        (shown ? controls.picCapContainer->cmdCapture : static_cast<QWidget*>(controls.picCanvas))->setFocus();
        // The live picture shows on the canvas, so the original must not stand before it.
        if (shown) history_.ShowCanvas();
    });
    connect(&capture_, &CameraCapture::PreviewShown, controls.picCapPreview, &QWidget::setVisible);
    connect(&capture_, &CameraCapture::ZoomButtonsShown, controls.picZoomContainer, &QWidget::setVisible);
}

bool frmMain::Start() {
    if (services_.anotherInstanceRuns && services_.anotherInstanceRuns()) return false;
    startUp_.SetMeUp();
    // Not on the screen yet, so this costs nobody a click; once shown, the window keeps the place the user gives it.
    lower();
    return true;
}

void frmMain::EndSplash() {
    tmrSplash_.stop();
    controls.picCover->removeEventFilter(this);
    splash_.End();
    controls.ShowTools(true);
    tmrSettings_.start();
    controls.picLogo->hide();
    controls.picCanvas->setFocus();
    if (sessionReplay_) sessionReplay_->LookForJournals();
}

bool frmMain::Shut() const { return !isEnabled() || busy_.Busy() || QApplication::activeModalWidget(); }

void frmMain::TakePicture(const QString& path) {
    if (Shut())
        QTimer::singleShot(kShutTime, this, [this, path] { TakePicture(path); });
    else
        OpenPicture(path);
}

void frmMain::Run(Command command) {
    switch (command) {
        case Command::Open:
            openSave_.OpenImageNow();
            break;
        case Command::Save:
            openSave_.PerformSave();
            break;
        case Command::Copy:
            openSave_.Copy();
            break;
        case Command::Undo:
            history_.PerformUndo();
            break;
        case Command::Redo:
            history_.PerformRedo();
            break;
        case Command::Original:
            history_.ToggleOriginal();
            break;
        case Command::ZoomIn:
            zoomView_.ZoomIn();
            break;
        case Command::ZoomOut:
            zoomView_.ZoomOut();
            break;
        case Command::ZoomReset:
            zoomView_.Reset();
            break;
        case Command::Minimise:
            chrome_.Minimise();
            break;
        case Command::Restore:
            chrome_.ToggleMaximised();
            break;
        case Command::Close:
            ExitApp();
            break;
        case Command::Print:
            PrintImage();
            break;
        case Command::Settings:
            ShowOptions();
            break;
        case Command::WebCam:
            capture_.WebCamClick();
            break;
        case Command::Email:
            mail_.cmdEmail_Click();
            break;
        case Command::Help:
            help_.LoadCHMFile();
            break;
        case Command::Apply:
            application_.ApplyClick();
            break;
        case Command::PaintAll:
            PaintEverywhere(Painter::Paint::Render);
            break;
        case Command::RestoreAll:
            PaintEverywhere(Painter::Paint::Original);
            break;
        case Command::BrushSmaller:
        case Command::BrushLarger:
            StepBrush(command == Command::BrushLarger ? 1 : -1);
            break;
        case Command::EdgeHarder:
        case Command::EdgeSofter:
            painter_.SetSoftness(painter_.Softness() + (command == Command::EdgeSofter ? kSoftStep : -kSoftStep));
            break;
        case Command::Compare:
            history_.HoldOriginal(true);
            break;
        case Command::AllEffects:
            controls.selectors->ShowAll();
            break;
        case Command::Paste:
            Paste();
            break;
        case Command::ChooseEffect:  // these two need to be told which
        case Command::Drop:
            break;
    }
}

void frmMain::PaintEverywhere(Painter::Paint paint) {
    painter_.PaintEverywhere(paint);
    if (paint == Painter::Paint::Render) TellStaleRender();
}

void frmMain::StepBrush(int direction) {
    LsSlider& slider = *controls.pnlSettings->sldBrushSize;
    slider.SetValue(SteppedBrushSize(slider.Value(), direction));
}

void frmMain::TakeOffered(const OfferedPicture& offered) {
    if (offered.path.isEmpty())
        openSave_.DropPicture(offered);
    else
        OpenPicture(offered.path);
}

void frmMain::Paste() {
    if (!Enabled(Command::Paste, state_)) return;
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data && OffersPicture(*data))
        TakeOffered(kelu::TakeOffered(*data));
    else
        controls.note->Show({tr("There is no picture to paste")});
}

void frmMain::ShowBrowse() {
    frmBrowse(
        services_.settings, services_.dialog,
        [this](const QString& path) { document_.Open(path, Document::Source::Browse); }, this)
        .exec();
    openSave_.TellMadeSmaller();
}

QString frmMain::RenderedEffectName() const {
    const Effect* effect = FindEffect(application_.RenderedEffect());
    return effect ? QString::fromLatin1(effect->listText) : QString();
}

void frmMain::ShowOptions() {
    VideoCapX& camera = services_.optionsCamera;
    const frmOptions::Surroundings surroundings{
        [&camera] { return DeviceNames(camera); }, [&camera](int device) { ConnectDevice(camera, device); },
        [this] { help_.LoadCHMFile(); }, [this] { ShowAboutMsg(services_.dialog); }};
    frmOptions options(services_.settings, state_, services_.dialog, surroundings, this);
    if (options.exec() == QDialog::Accepted) tmrSettings_.start();
}

void frmMain::PrintImage() {
    if (!Enabled(Command::Print, state_)) return;
    RunShowingErrors(services_.dialog, [this] {
        frmPrint(surfaces.picCanvas.Picture(), services_.printing, services_.settings, services_.dialog, this).exec();
    });
}

void frmMain::resizeEvent(QResizeEvent*) { controls.ApplyLayout(); }

void frmMain::changeEvent(QEvent* event) {
    // The new size may have come before the word that the window is no longer minimised.
    if (event->type() == QEvent::WindowStateChange) controls.ApplyLayout();
}

void frmMain::showEvent(QShowEvent* event) {
    // For the window manager alone: what it asks for all the same is answered by the window itself.
    windowHandle()->setMinimumSize(LeastSize(*this));
    if (event->spontaneous()) return;
    // Behind the splash, once the window itself has been painted, and anew for another screen.
    const auto draw = [this] {
        buttonPictures_.Start(BesideProgram("Gallery/cat.jpg"), devicePixelRatioF());
        controls.pnlSettings->DrawSliders(devicePixelRatioF());
    };
    QTimer::singleShot(0, this, draw);
    connect(windowHandle(), &QWindow::screenChanged, this, draw, Qt::QueuedConnection);
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool ends = key == Qt::Key_Escape || key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (ends && tmrSplash_.isActive())
        EndSplash();
    else if (const std::optional<Command> command = keys_.Pressed(*event))
        Run(*command);
    else
        QWidget::keyPressEvent(event);
}

bool frmMain::eventFilter(QObject*, QEvent* event) {
    // The cover is a handle to drag the window by: a click is a press that went nowhere.
    if (event->type() == QEvent::MouseButtonPress)
        coverPress_ = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    if (event->type() == QEvent::MouseButtonRelease) {
        const QPoint way = static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - coverPress_;
        if (way.manhattanLength() < QApplication::startDragDistance()) EndSplash();
    }
    return false;
}

void frmMain::keyReleaseEvent(QKeyEvent* event) {
    if (const std::optional<Command> command = keys_.Released(*event))
        Run(*command);
    else
        event->ignore();
}

void frmMain::closeEvent(QCloseEvent* event) {
    // The window system's own close request, Alt+F4 among its causes: ask as the close button does. A close() made
    // while this event is under way does nothing by itself, so the event carries the answer.
    if (!unloading_) ExitApp();
    event->setAccepted(unloading_);
}

void frmMain::ExitApp() {
    if (openSave_.SettleBeforeExit()) Unload();
}

void frmMain::Unload() {
    unloading_ = true;
    capture_.Unload();
    close();
}

}  // namespace kelu
