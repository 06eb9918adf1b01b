// The print dialog: printers, preview, orientation. It prints a copy of the canvas as one page.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include "canvas/surface.h"
#include "document/settings.h"
#include "output/pdf/page_layout.h"
#include "output/print_service.h"
#include "platform/msg_dialog.h"
#include "view/image_x.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace kelu {

class XP_ProgressBar;

class ListEx;
class ToolButton;

class frmPrint : public QDialog {
    Q_OBJECT

 public:
    frmPrint(const QImage& picture, PrintService& service, Settings& settings, MsgDialog& dialog, QWidget* parent);

    // By name, for those who drive the dialog from outside.
    Surface surface;  ///< the picture to print, turned for portrait
    ImageX* const picPrint;
    ListEx* const lstPrinters;
    QRadioButton* const Option1;  ///< portrait
    QRadioButton* const Option2;  ///< landscape
    ToolButton* const picPort;
    ToolButton* const picLand;
    QPushButton* const cmdOK;
    QPushButton* const cmdCancel;
    QLabel* const lblAvPrinters;
    QLabel* const lblOrietation;
    QLabel* const lblWaiting;  ///< while a page is on its way, as the next
    XP_ProgressBar* const pBar1;

    /// Fixed at its start values as long as no control shows it.
    PageSetup setup;

    /// Escape and the close button; while a page is on its way it ends that first.
    void reject() override;

 private:
    void LayOut();
    void GetPrinters();
    void LoadMySettings();
    void SaveMySettings();
    void ChangeLanguage(const QString& id);
    void ChooseStoredPrinter();
    void RotateLeft();
    void RotateRight();
    void Turn(int orientation);
    void SetPrinting(Work* work);
    void PrintNow();

    PrintService& service_;
    Settings& settings_;
    MsgDialog& dialog_;
    bool rotated_ = false;
    Work* printing_ = nullptr;  ///< the page on its way
};

}  // namespace kelu
