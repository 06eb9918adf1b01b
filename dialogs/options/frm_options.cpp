// SPDX-License-Identifier: MIT
#include "dialogs/options/frm_options.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "capture/capture_settings.h"
#include "controls/theme/tab_order.h"
#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"
#include "controls/tool_button/tool_button.h"
#include "effects/effect_settings.h"
#include "platform/error.h"

namespace kelu {

namespace {

constexpr int kLeastMenuWidth = 168;  // device-independent pixels, as the next five
constexpr int kMenuButtonHeight = 40;
constexpr QSize kLeastPageSize(440, 260);
constexpr int kFieldWidth = 220;
constexpr int kCursorButton = 56;
constexpr int kCursorIcon = 32;

struct Page {
    const char* key;
    const char* icon;
    const char* caption;
    const char* frameName;
    const char* frame;
};
constexpr Page kPageTexts[frmOptions::kPages] = {
    {"keyEmail", "email", QT_TRANSLATE_NOOP("kelu::frmOptions", "E-mail"), "FrameEmail",
     QT_TRANSLATE_NOOP("kelu::frmOptions", "E-Mail")},
    {"keyCursor", "apply", QT_TRANSLATE_NOOP("kelu::frmOptions", "Cursor"), "FrameCursor",
     QT_TRANSLATE_NOOP("kelu::frmOptions", "Cursor")},
    {"keyWarning", "warning", QT_TRANSLATE_NOOP("kelu::frmOptions", "Warnings"), "FrameWarning",
     QT_TRANSLATE_NOOP("kelu::frmOptions", "Warnings && Reminders")},
    {"keyResize", "resize", QT_TRANSLATE_NOOP("kelu::frmOptions", "Resize"), "FrameResize",
     QT_TRANSLATE_NOOP("kelu::frmOptions", "Image Resizing")},
    {"keyCapture", "webcam", QT_TRANSLATE_NOOP("kelu::frmOptions", "Capture Devices"), "FrameCamera",
     QT_TRANSLATE_NOOP("kelu::frmOptions", "Capture Devices")},
    {"keySFX", "views", QT_TRANSLATE_NOOP("kelu::frmOptions", "SFX Selector"), "FrameSFX",
     QT_TRANSLATE_NOOP("kelu::frmOptions", "Special Effects Selector")},
};
constexpr const char* kEmailTexts[] = {
    QT_TRANSLATE_NOOP("kelu::frmOptions", "Use Kelu Internal E-Mail"),
    QT_TRANSLATE_NOOP("kelu::frmOptions", "Use Default E-mail Client (E.g. Outlook®, Outlook Express®)"),
    QT_TRANSLATE_NOOP("kelu::frmOptions", "Use Google Mail (tm)")};
constexpr const char* kCursorTexts[] = {QT_TRANSLATE_NOOP("kelu::frmOptions", "Brush"),
                                        QT_TRANSLATE_NOOP("kelu::frmOptions", "Smudge"),
                                        QT_TRANSLATE_NOOP("kelu::frmOptions", "Cross")};
constexpr const char* kCursorIcons[] = {"cursor_brush", "cursor_smudge", "cursor_cross"};

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QRadioButton* Option(const char* name, const char* text) { return Named(new QRadioButton(frmOptions::tr(text)), name); }

QCheckBox* Box(const char* name, const QString& text) {
    QCheckBox* box = Named(new QCheckBox(text), name);
    box->setChecked(true);
    return box;
}

ToolButton* Icon(const char* name, const char* icon) { return Named(new ToolButton(QString::fromLatin1(icon)), name); }

/// Chooses a row; one that is not there raises the error of a list.
void SetListIndex(QComboBox& list, int row) {
    if (row < -1 || row >= list.count())
        throw Error(kInvalidProperty, QStringLiteral("Invalid property value"), list.objectName());
    list.setCurrentIndex(row);
}

}  // namespace

frmOptions::frmOptions(Settings& settings, SharedState& state, MsgDialog& dialog, Surroundings surroundings,
                       QWidget* parent)
    : QDialog(parent),
      pnlMenu{Icon(kPageTexts[0].key, kPageTexts[0].icon), Icon(kPageTexts[1].key, kPageTexts[1].icon),
              Icon(kPageTexts[2].key, kPageTexts[2].icon), Icon(kPageTexts[3].key, kPageTexts[3].icon),
              Icon(kPageTexts[4].key, kPageTexts[4].icon), Icon(kPageTexts[5].key, kPageTexts[5].icon)},
      pages(new QStackedWidget(this)),
      optEmail{Option("optEmail1", kEmailTexts[0]), Option("optEmail2", kEmailTexts[1]),
               Option("optEmail3", kEmailTexts[2])},
      txtUserName(Named(new QLineEdit, "txtUserName")),
      txtPassword(Named(new QLineEdit, "txtPassword")),
      chkMask(Box("chkMask", tr("Mask Password"))),
      optCursor{Option("optCursor1", kCursorTexts[0]), Option("optCursor2", kCursorTexts[1]),
                Option("optCursor3", kCursorTexts[2])},
      picCursor{Icon("picBrush", kCursorIcons[0]), Icon("picSmudge", kCursorIcons[1]),
                Icon("picCross", kCursorIcons[2])},
      chkReminder(Box("chkReminder", tr("Show Reminders"))),
      chkResize(Box("chkResize", tr("Resize very large images (Recommended)"))),
      cboDevices(Named(new QComboBox, "cboDevices")),
      cboCaptureSize(Named(new QComboBox, "cboCaptureSize")),
      chkSFXSelector(Box("chkSFXSelector", tr("Use Visual Special Effects Selector"))),
      cmdOK(Named(new QPushButton(tr("OK"), this), "cmdOK")),
      cmdCancel(Named(new QPushButton(tr("Cancel"), this), "cmdCancel")),
      cmdHelp(Named(new QPushButton(tr("Help"), this), "cmdHelp")),
      cmdAbout(Named(new QPushButton(tr("About..."), this), "cmdAbout")),
      settings_(settings),
      password_(settings),
      state_(state),
      dialog_(dialog),
      surroundings_(std::move(surroundings)) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(tr("Settings"));
    optEmail[0]->setChecked(true);
    optCursor[0]->setChecked(true);
    txtPassword->setEchoMode(QLineEdit::Password);
    LayOut();
    SetTabOrder({pnlMenu[0],     pnlMenu[1],     pnlMenu[2],   pnlMenu[3],  pnlMenu[4],  pnlMenu[5],
                 optEmail[0],    optEmail[1],    optEmail[2],  txtUserName, txtPassword, chkMask,
                 optCursor[0],   optCursor[1],   optCursor[2], chkReminder, chkResize,   cboDevices,
                 cboCaptureSize, chkSFXSelector, cmdHelp,      cmdAbout,    cmdOK,       cmdCancel});
    account_->setEnabled(false);
    Connect();
    SetUpMe();
}

void frmOptions::LayOut() {
    LayOutPages();

    auto* menu = new QVBoxLayout;
    menu->setSpacing(theme::kSpacing / 2);
    // A group of their own: auto-exclusive buttons would be one with the options on the pages.
    auto* strip = new QButtonGroup(this);
    int menuWidth = kLeastMenuWidth;
    for (std::size_t i = 0; i < pnlMenu.size(); ++i) {
        pnlMenu[i]->SetCaption(tr(kPageTexts[i].caption));
        pnlMenu[i]->setAccessibleName(tr(kPageTexts[i].caption));
        pnlMenu[i]->SetAlignment(ToolButton::Alignment::Left);
        pnlMenu[i]->setCheckable(true);
        pnlMenu[i]->SetPageTab();
        strip->addButton(pnlMenu[i]);
        menuWidth = std::max(menuWidth, pnlMenu[i]->sizeHint().width());
        menu->addWidget(pnlMenu[i]);
    }
    for (ToolButton* button : pnlMenu) button->setFixedSize(menuWidth, kMenuButtonHeight);
    menu->addStretch();

    auto* middle = new QHBoxLayout;
    middle->setSpacing(theme::kMargin);
    middle->addLayout(menu);
    middle->addWidget(pages);

    cmdOK->setDefault(true);

    QVBoxLayout* content = MakeDialogFrame(*this);
    content->addLayout(middle);
    content->addLayout(ButtonRow({cmdHelp, cmdAbout}, {cmdOK, cmdCancel}));
}

void frmOptions::LayOutPages() {
    const auto addPage = [this](int page, const std::function<void(QVBoxLayout&)>& fill) {
        const auto at = static_cast<std::size_t>(page);
        auto* frame = Named(new QGroupBox(tr(kPageTexts[at].frame)), kPageTexts[at].frameName);
        auto* rows = new QVBoxLayout(frame);
        rows->setSpacing(theme::kSpacing);
        auto* panel = Named(new QWidget, qPrintable(QStringLiteral("pnl%1").arg(page + 1)));
        auto* inside = new QVBoxLayout(panel);
        inside->setContentsMargins(0, 0, 0, 0);
        inside->addWidget(frame);
        fill(*rows);
        rows->addStretch();
        pages->addWidget(panel);
    };
    addPage(0, [this](QVBoxLayout& rows) { LayOutEmail(rows); });
    addPage(1, [this](QVBoxLayout& rows) { LayOutCursors(rows); });
    addPage(2, [this](QVBoxLayout& rows) { rows.addWidget(chkReminder); });
    addPage(3, [this](QVBoxLayout& rows) { LayOutResize(rows); });
    addPage(4, [this](QVBoxLayout& rows) { LayOutCapture(rows); });
    addPage(5, [this](QVBoxLayout& rows) { rows.addWidget(chkSFXSelector); });
    pages->setFixedSize(pages->sizeHint().expandedTo(kLeastPageSize));
}

void frmOptions::LayOutEmail(QVBoxLayout& rows) {
    for (QRadioButton* option : optEmail) rows.addWidget(option);
    account_ = new QWidget;
    auto* account = new QFormLayout(account_);
    account->setContentsMargins(theme::kMargin + theme::kSpacing, 0, 0, 0);
    account->setSpacing(theme::kSpacing);
    account->setHorizontalSpacing(theme::kMargin);
    account->addRow(FieldLabel(tr("User Name"), *txtUserName), txtUserName);
    account->addRow(FieldLabel(tr("Password"), *txtPassword), txtPassword);
    account->addRow(QString(), chkMask);
    rows.addWidget(account_);
}

void frmOptions::LayOutCursors(QVBoxLayout& rows) {
    auto* cursors = new QGridLayout;
    cursors->setSpacing(theme::kSpacing);
    for (std::size_t i = 0; i < optCursor.size(); ++i) {
        const int at = static_cast<int>(i);
        picCursor[i]->setFixedSize(kCursorButton, kCursorButton);
        picCursor[i]->SetIconSize(kCursorIcon);
        picCursor[i]->SetTip(tr(kCursorTexts[i]));
        picCursor[i]->setFocusPolicy(Qt::NoFocus);  // the option beside it does the same
        cursors->addWidget(picCursor[i], at, 0);
        cursors->addWidget(optCursor[i], at, 1);
    }
    cursors->setColumnStretch(1, 1);
    rows.addLayout(cursors);
}

void frmOptions::LayOutResize(QVBoxLayout& rows) {
    rows.addWidget(chkResize);
    auto* resizeNote =
        new QLabel(tr("Pictures wider than 2048 pixels open 800 wide, portraits higher than 1536 open 600 wide. "
                      "Without it pictures keep their full size."));
    resizeNote->setWordWrap(true);
    // Below the text of the box that it explains.
    resizeNote->setIndent(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                          style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
    QPalette quiet = resizeNote->palette();
    quiet.setColor(QPalette::WindowText, theme::kMutedText);
    resizeNote->setPalette(quiet);
    rows.addWidget(resizeNote);
}

void frmOptions::LayOutCapture(QVBoxLayout& rows) {
    auto* capture = new QFormLayout;
    capture->setSpacing(theme::kSpacing);
    capture->setHorizontalSpacing(theme::kMargin);
    capture->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    cboDevices->setMinimumWidth(kFieldWidth);
    cboDevices->setPlaceholderText(tr("No device found"));
    capture->addRow(FieldLabel(tr("Available Devices"), *cboDevices), cboDevices);
    capture->addRow(FieldLabel(tr("Capture Size (Pixels)"), *cboCaptureSize), cboCaptureSize);
    rows.addLayout(capture);
}

void frmOptions::Connect() {
    for (int page = 0; page < kPages; ++page)
        connect(pnlMenu[static_cast<std::size_t>(page)], &ToolButton::clicked, this, [this, page] { ShowPage(page); });
    for (int i = 0; i < 3; ++i) {
        const auto at = static_cast<std::size_t>(i);
        connect(optEmail[at], &QRadioButton::clicked, this, [this, i] { ChooseEmail(static_cast<MailMethod>(i + 1)); });
        connect(optCursor[at], &QRadioButton::clicked, this,
                [this, i] { ChooseCursor(static_cast<CursorStyle>(i + 1)); });
        connect(picCursor[at], &ToolButton::clicked, this,
                [this, i] { ChooseCursor(static_cast<CursorStyle>(i + 1)); });
    }
    connect(chkMask, &QCheckBox::toggled, this,
            [this](bool masked) { txtPassword->setEchoMode(masked ? QLineEdit::Password : QLineEdit::Normal); });
    txtUserName->installEventFilter(this);
    txtPassword->installEventFilter(this);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        SaveMySettings();
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        state_.CurrentSFX = kSettingsTopic;
        surroundings_.loadHelp();
    });
    connect(cmdAbout, &QPushButton::clicked, this, [this] { surroundings_.showAbout(); });
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event) {
    // After the field's own handling, which would take a mouse click as the end of the selection.
    if (event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, watched, [field = static_cast<QLineEdit*>(watched)] { field->selectAll(); });
    return false;
}

void frmOptions::SetUpMe() {
    ShowPage(0);
    LoadMySettings();
}

void frmOptions::ShowPage(int page) {
    pages->setCurrentIndex(page);
    pnlMenu[static_cast<std::size_t>(page)]->setChecked(true);
}

void frmOptions::ChooseEmail(MailMethod method) {
    txtEmail_ = settings::kMailMethod.Text(method);
    optEmail[static_cast<std::size_t>(method) - 1]->setChecked(true);
    account_->setEnabled(method == MailMethod::Account);
}

bool frmOptions::UsesCamera() const { return !state_.CameraMissing && cboDevices->currentIndex() >= 0; }

void frmOptions::ChooseCursor(CursorStyle style) {
    txtCursor_ = settings::kCursorStyle.Text(style);
    optCursor[static_cast<std::size_t>(style) - 1]->setChecked(true);
}

void frmOptions::LoadMySettings() {
    // A list that can't take the stored row means that there is no such camera; the next step runs.
    const auto choose = [this](QComboBox& list, int row) {
        try {
            SetListIndex(list, row);
        } catch (const Error& error) {
            if (error.Number() != kInvalidProperty) throw;
            state_.CameraMissing = true;
        }
    };
    RunShowingErrors(dialog_, [&] {
        const auto tick = [this](QCheckBox& box, const FlagSetting& setting) {
            if (const std::optional<bool> on = settings_.Read(setting)) box.setChecked(*on);
        };
        tick(*chkSFXSelector, settings::kSelector);
        tick(*chkReminder, settings::kReminder);
        if (const auto method = settings_.Read(settings::kMailMethod)) ChooseEmail(*method);
        txtEmail_ = settings_.ReadText(settings::kMailMethod);
        txtUserName->setText(settings_.Read(settings::kAccountUser));
        txtPassword->setText(password_.FromSettings());
        if (password_.InStore())
            password_.FromStore(this, [this](const QString& secret) {
                if (!txtPassword->isModified()) txtPassword->setText(secret);
            });
        if (const auto style = settings_.Read(settings::kCursorStyle)) ChooseCursor(*style);
        txtCursor_ = settings_.ReadText(settings::kCursorStyle);
        LoadDevices();
        if (cboDevices->count() > 0) state_.CameraMissing = false;  // it may have been plugged in since the last look
        choose(*cboDevices, settings_.Read(settings::kDevice));
        LoadVideoSizes();
        const auto size = settings_.Read(settings::kCaptureSize);
        choose(*cboCaptureSize, size ? static_cast<int>(*size) : cboCaptureSize->count());
        chkResize->setChecked(settings_.Read(settings::kResize) != 0);
        Connect2Camera();
    });
}

void frmOptions::LoadDevices() {
    RunShowingErrors(dialog_, [this] { cboDevices->addItems(surroundings_.cameraNames()); });
}

void frmOptions::LoadVideoSizes() {
    cboCaptureSize->clear();
    cboCaptureSize->addItems({QStringLiteral("160 x 120"), QStringLiteral("320 x 240"), QStringLiteral("640 x 480")});
    cboCaptureSize->setCurrentIndex(0);
}

void frmOptions::Connect2Camera() {
    try {
        surroundings_.connectCamera(cboDevices->currentIndex());
    } catch (const Error& error) {
        if (error.Number() != kNoCamera) ShowStandardError(dialog_, error);
    }
}

void frmOptions::SavePassword() {
    {
        setEnabled(false);  // the store may take its time, with events running
        const auto again = qScopeGuard([this] { setEnabled(true); });
        if (password_.Save(txtPassword->text())) return;
    }
    dialog_.ShowMessage(
        {tr("Password"),
         tr("This password can't be kept here: it has more than 9 characters, or characters such as ` ~ \u00fc, "
            "and this desktop has no store of secrets for it.\r\n"),
         MsgIcon::Exclamation});
}

void frmOptions::SaveMySettings() {
    RunShowingErrors(dialog_, [this] {
        settings_.Keep(settings::kReminder, chkReminder->isChecked());
        settings_.KeepText(settings::kMailMethod.key, txtEmail_);
        settings_.Keep(settings::kAccountUser, txtUserName->text());
        settings_.Keep(settings::kSelector, chkSFXSelector->isChecked());
        settings_.Keep(settings::kResize, chkResize->isChecked());
        SavePassword();
        settings_.KeepText(settings::kCursorStyle.key, txtCursor_);
        if (state_.CameraMissing) {
            settings_.Keep(settings::kDevice, 0);
            return;
        }
        settings_.Keep(settings::kCaptureSize, static_cast<CaptureSize>(cboCaptureSize->currentIndex()));
        if (UsesCamera()) settings_.Keep(settings::kDevice, cboDevices->currentIndex());
    });
}

}  // namespace kelu
