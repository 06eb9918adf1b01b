// SPDX-License-Identifier: MIT
#include "output/frm_print.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include "controls/list_ex/list_ex.h"
#include "controls/progress_bar/work_bar.h"
#include "controls/progress_bar/xp_progress_bar.h"
#include "controls/theme/icons.h"
#include "controls/theme/tab_order.h"
#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"
#include "controls/tool_button/tool_button.h"
#include "output/output_settings.h"
#include "pictures/picture.h"
#include "platform/error.h"
#include "platform/language.h"
#include "platform/run_beside.h"

namespace kelu {

namespace {

constexpr QSize kPreviewSize(380, 300);  // device-independent pixels, as the next five
constexpr int kListWidth = 220;
constexpr int kWaitingWidth = 250;
constexpr int kLeastListHeight = 90;
constexpr int kOrientationButton = 40;
constexpr int kOrientationIcon = 26;

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

}  // namespace

frmPrint::frmPrint(const QImage& picture, PrintService& service, Settings& settings, MsgDialog& dialog, QWidget* parent)
    : QDialog(parent),
      picPrint(Named(new ImageX(surface, this), "picPrint")),
      lstPrinters(Named(new ListEx(this), "lstPrinters")),
      Option1(Named(new QRadioButton(this), "Option1")),
      Option2(Named(new QRadioButton(this), "Option2")),
      picPort(Named(new ToolButton(QStringLiteral("portrait"), this), "picPort")),
      picLand(Named(new ToolButton(QStringLiteral("landscape"), this), "picLand")),
      cmdOK(Named(new QPushButton(this), "cmdOK")),
      cmdCancel(Named(new QPushButton(this), "cmdCancel")),
      lblAvPrinters(Named(new QLabel(this), "lblAvPrinters")),
      lblOrietation(Named(new QLabel(this), "lblOrietation")),
      lblWaiting(Named(new QLabel(this), "lblWaiting")),
      pBar1(Named(new XP_ProgressBar(this), "pBar1")),
      service_(service),
      settings_(settings),
      dialog_(dialog) {
    setObjectName(QStringLiteral("frmPrint"));
    surface.SetPicture(picture);
    picPrint->SetFittedView();
    picPrint->setFocusPolicy(Qt::NoFocus);  // nothing to scroll
    LayOut();
    SetTabOrder({lstPrinters, Option1, Option2, cmdOK, cmdCancel});

    Option2->setChecked(true);
    connect(Option1, &QRadioButton::toggled, this, [this](bool portrait) { portrait ? RotateLeft() : RotateRight(); });
    connect(picPort, &ToolButton::clicked, Option1, [this] { Option1->setChecked(true); });
    connect(picLand, &ToolButton::clicked, Option2, [this] { Option2->setChecked(true); });
    connect(cmdOK, &QPushButton::clicked, this, &frmPrint::PrintNow);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    GetPrinters();
    LoadMySettings();
    picPrint->SetBackgroundHatch(QBrush(theme::kHatch, Qt::DiagCrossPattern));
}

void frmPrint::LayOut() {
    picPrint->setFixedSize(kPreviewSize);
    // As high as the preview leaves it, so that both columns end on one line.
    lstPrinters->setFixedWidth(qRound(kListWidth * theme::TextScale()));
    lstPrinters->setMinimumHeight(kLeastListHeight);
    lstPrinters->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    lstPrinters->SetRowPicture(theme::Icon(QStringLiteral("print")));
    lblAvPrinters->setBuddy(lstPrinters);
    for (ToolButton* button : {picPort, picLand}) {
        button->setFixedSize(kOrientationButton, kOrientationButton);
        button->SetIconSize(kOrientationIcon);
        button->setFocusPolicy(Qt::NoFocus);  // the option beside it does the same
    }
    cmdOK->setDefault(true);

    auto* orientation = new QGridLayout;
    orientation->setHorizontalSpacing(theme::kSpacing);
    orientation->addWidget(picPort, 0, 0);
    orientation->addWidget(Option1, 0, 1);
    orientation->addWidget(picLand, 1, 0);
    orientation->addWidget(Option2, 1, 1);
    orientation->setColumnStretch(2, 1);

    auto* choices = new QVBoxLayout;
    choices->setSpacing(theme::kSpacing);
    choices->addWidget(lblAvPrinters);
    choices->addWidget(lstPrinters, 1);
    choices->addSpacing(theme::kSpacing);
    choices->addWidget(lblOrietation);
    choices->addLayout(orientation);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(theme::kMargin);
    middle->addLayout(choices);
    middle->addWidget(picPrint, 0, Qt::AlignTop);

    QVBoxLayout* content = MakeDialogFrame(*this);
    content->addLayout(middle);
    content->addLayout(ButtonRow({lblWaiting, pBar1}, {cmdOK, cmdCancel}));
    pBar1->SetBackColor(ToColorRef(theme::kSunken));
    lblWaiting->hide();
    pBar1->hide();
}

void frmPrint::GetPrinters() {
    lstPrinters->Clear();
    try {
        for (const QString& name : service_.Printers()) lstPrinters->AddItem(name);
        const QString standard = service_.DefaultPrinter();
        for (int row = 0; row < lstPrinters->Count(); ++row)
            if (lstPrinters->Text(row) == standard) lstPrinters->SetListIndex(row);
    } catch (const Error& error) {
        if (error.Number() == PrintService::kNoPrinterInformation) lstPrinters->setEnabled(false);
    }
}

void frmPrint::LoadMySettings() {
    RunShowingErrors(dialog_, [this] {
        // Before the row is set, which fails where there is no printer at all.
        const QString language = settings_.Read(settings::kLanguage);
        ChangeLanguage(language);
        if (lstPrinters->Count() > 0) ChooseStoredPrinter();
    });
}

/// By its name where one is stored: a queue that came or went since has shifted the rows.
void frmPrint::ChooseStoredPrinter() {
    const QString name = settings_.Read(settings::kPrinterName);
    int row = settings_.Read(settings::kPrinter);
    if (!name.isEmpty())
        for (row = 0; row < lstPrinters->Count() && lstPrinters->Text(row) != name;) ++row;
    if (row >= 0 && row < lstPrinters->Count()) return lstPrinters->SetListIndex(row);
    throw Error(kInvalidProperty, name.isEmpty() ? tr("The printer that was chosen last is not there any more")
                                                 : tr("The printer \"%1\" is not there any more").arg(name));
}

void frmPrint::SaveMySettings() {
    RunShowingErrors(dialog_, [this] {
        const int row = lstPrinters->ListIndex();
        settings_.Write(settings::kPrinter, row);
        settings_.Write(settings::kPrinterName, lstPrinters->Text(row));
    });
}

void frmPrint::ChangeLanguage(const QString& id) {
    UseLanguage(id);
    setWindowTitle(tr("Print"));
    cmdOK->setText(tr("Print "));
    cmdCancel->setText(tr("Cancel "));
    lblAvPrinters->setText(tr("Available Printers"));
    lstPrinters->setAccessibleName(lblAvPrinters->text());
    lblOrietation->setText(tr("Orietation"));
    Option1->setText(tr("Portrait"));
    Option2->setText(tr("Landscape"));
    lstPrinters->SetEmptyText(tr("No printer found"));
    picPrint->setAccessibleName(tr("Preview"));
    picPort->SetTip(Option1->text());
    picLand->SetTip(Option2->text());
}

void frmPrint::RotateLeft() {
    if (rotated_) return;
    constexpr int kQuarterTurnLeft = 8;  // of the EXIF orientations
    Turn(kQuarterTurnLeft);
    rotated_ = true;
}

void frmPrint::RotateRight() {
    if (!rotated_) return;
    constexpr int kQuarterTurnRight = 6;
    Turn(kQuarterTurnRight);
    rotated_ = false;
}

void frmPrint::Turn(int orientation) {
    const QImage picture = surface.Picture();
    QImage turned;
    RunBeside([&] { turned = Orient(picture, orientation); });
    surface.SetPicture(turned);
    picPrint->SetFittedView();
}

/// Meanwhile only cmdCancel can be used. Null: no more.
void frmPrint::SetPrinting(Work* work) {
    printing_ = work;
    const bool printing = work != nullptr;
    lblWaiting->setVisible(printing);
    for (QWidget* widget : std::initializer_list<QWidget*>{lstPrinters, Option1, Option2, picPort, picLand, cmdOK})
        widget->setEnabled(!printing);
    if (printing) return setCursor(Qt::BusyCursor);
    unsetCursor();
    cmdOK->setFocus();  // where it was before it was dimmed
}

void frmPrint::PrintNow() {
    if (printing_) return;
    Work work;
    const bool printed = RunShowingErrors(dialog_, [&] {
        if (lstPrinters->ListIndex() < 0) throw Error(PrintService::kNoPrinterInformation, tr("No printer is chosen"));
        const QString printer = lstPrinters->Text(lstPrinters->ListIndex());
        lblWaiting->setText(lblWaiting->fontMetrics().elidedText(tr("Handing the page to \"%1\"").arg(printer),
                                                                 Qt::ElideRight, kWaitingWidth));
        SetPrinting(&work);
        const auto end = qScopeGuard([this] { SetPrinting(nullptr); });
        const WorkBar shown(*pBar1, work);
        service_.Print({printer, Option1->isChecked(), surface.Picture(), setup}, work);
    });
    if (!printed && work.cancelled) return QDialog::reject();
    if (!printed) return;
    SaveMySettings();
    accept();
}

void frmPrint::reject() {
    if (printing_)
        printing_->cancelled = true;
    else
        QDialog::reject();
}

}  // namespace kelu
