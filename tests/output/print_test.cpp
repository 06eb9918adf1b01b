// Printing: the page arithmetic as a table computed by hand, and the dialog over a scripted print service.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "controls/list_ex/list_ex.h"
#include "controls/tool_button/tool_button.h"
#include "output/frm_print.h"
#include "output/pdf/page_layout.h"
#include "platform/error.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

using Placement = PageSetup::Placement;
using Unit = PageSetup::Unit;

TEST(PageLayout, PlacesThePictureByHandComputedNumbers) {
    // A sheet of 1100 x 850 pixels at 100 dpi each way; margins of 1 inch leave 900 x 650 at 100, 100.
    struct Row {
        const char* what;
        Placement placement;
        double scale;
        Unit unit;
        double margin;
        PictureSize picture;
        PlacedPicture at;
    };
    const Row rows[] = {
        {"wider: by width, centred down",
         Placement::Fit,
         100,
         Unit::Inches,
         1,
         {400, 200, 96, 96},
         {100, 200, 900, 450}},
        {"taller: by height, centred across",
         Placement::Fit,
         100,
         Unit::Inches,
         1,
         {100, 200, 96, 96},
         {387.5, 100, 325, 650}},
        {"same proportions", Placement::Fit, 100, Unit::Inches, 1, {18, 13, 96, 96}, {100, 100, 900, 650}},
        {"small pictures are enlarged", Placement::Fit, 100, Unit::Inches, 1, {2, 1, 96, 96}, {100, 200, 900, 450}},
        {"upper half", Placement::HalfPage, 100, Unit::Inches, 1, {400, 100, 96, 96}, {100, 150, 900, 225}},
        {"upper half, taller", Placement::HalfPage, 100, Unit::Inches, 1, {100, 100, 96, 96}, {387.5, 100, 325, 325}},
        {"true size", Placement::Scale, 100, Unit::Inches, 1, {400, 200, 200, 100}, {450, 325, 200, 200}},
        {"half size", Placement::Scale, 50, Unit::Inches, 1, {400, 200, 100, 100}, {450, 375, 200, 100}},
        {"beyond the page", Placement::Scale, 400, Unit::Inches, 1, {400, 200, 100, 100}, {-250, 25, 1600, 800}},
        {"centimetres", Placement::Fit, 100, Unit::Centimetres, 2.54, {400, 200, 96, 96}, {100, 200, 900, 450}},
        {"millimetres", Placement::Fit, 100, Unit::Millimetres, 25.4, {400, 200, 96, 96}, {100, 200, 900, 450}},
    };
    for (const Row& row : rows) {
        PageSetup setup;
        setup.placement = row.placement;
        setup.scalePercent = row.scale;
        setup.unit = row.unit;
        setup.margins.fill(row.margin);
        const PlacedPicture at = PlacePicture(setup, {1100, 850, 100, 100}, row.picture);
        EXPECT_NEAR(at.x, row.at.x, 1e-4) << row.what;
        EXPECT_NEAR(at.y, row.at.y, 1e-4) << row.what;
        EXPECT_NEAR(at.width, row.at.width, 1e-9) << row.what;
        EXPECT_NEAR(at.height, row.at.height, 1e-9) << row.what;
    }
    // Margins of their own on each side, and axes of different resolution.
    PageSetup uneven;
    uneven.unit = Unit::Inches;
    uneven.margins = {1, 2, 3, 1};
    const PlacedPicture at = PlacePicture(uneven, {1000, 2000, 100, 200}, {7, 12, 96, 96});
    EXPECT_DOUBLE_EQ(at.x, 100);
    EXPECT_DOUBLE_EQ(at.width, 700);
    EXPECT_DOUBLE_EQ(at.height, 1200);
    EXPECT_DOUBLE_EQ(at.y, 600);
}

class ScriptedPrintService : public PrintService {
 public:
    QStringList printers{"Office", "Photo"};
    QString standard = "Photo";
    int listError = 0;
    bool fails = false;
    QStringList jobs;
    QSize printed;
    PlacedPicture at;

    QStringList Printers() override {
        if (listError) throw Error(listError, "no list");
        return printers;
    }
    QString DefaultPrinter() override { return standard; }
    void Print(const QString& printer, bool portrait, const QImage& picture, const Place& place) override {
        if (fails) throw Error(kFileError, "out of paper");
        jobs << printer + (portrait ? " portrait" : " landscape");
        printed = picture.size();
        at = place({1000, 800, 100, 100});
    }
};

struct PrintDialogTest : testing::Test {
    ScriptedPrintService service;
    MemorySettings settings;
    ScriptedDialog dialog;
    QImage picture = QImage(40, 20, QImage::Format_RGB32);
    void SetUp() override {
        picture.fill(Qt::red);
        picture.setPixel(0, 0, 0xff00ff00);
    }
};

TEST_F(PrintDialogTest, PrintsAsChosenAndKeepsThePrinter) {
    frmPrint form(picture, service, settings, dialog, nullptr);
    EXPECT_EQ(form.lstPrinters->Count(), 2);
    EXPECT_EQ(form.lstPrinters->ListIndex(), 0) << "the setting's default stands above the system's";
    EXPECT_TRUE(form.Option2->isChecked());
    form.lstPrinters->SetListIndex(1);
    form.cmdOK->click();
    EXPECT_EQ(service.jobs, QStringList{"Photo landscape"});
    EXPECT_EQ(service.printed, QSize(40, 20));
    EXPECT_NEAR(service.at.x, 39.3700787, 1e-4) << "1 cm";
    EXPECT_EQ(settings.Read(settings::kPrinter), "1");
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(PrintDialogTest, PortraitTurnsOnceAndBack) {
    frmPrint form(picture, service, settings, dialog, nullptr);
    form.picPort->click();
    form.picPort->click();
    EXPECT_TRUE(form.Option1->isChecked());
    EXPECT_EQ(form.surface.Picture().size(), QSize(20, 40));
    EXPECT_EQ(form.surface.Picture().pixel(0, 39), 0xff00ff00) << "a quarter turn to the left";
    form.Option2->click();
    EXPECT_EQ(form.surface.Picture(), picture);
    form.Option1->click();
    form.cmdOK->click();
    EXPECT_EQ(service.jobs, QStringList{"Photo portrait"}.replaceInStrings("Photo", "Office"));
    EXPECT_EQ(service.printed, QSize(20, 40));
}

TEST_F(PrintDialogTest, FailuresKeepTheDialogAndTheSetting) {
    frmPrint form(picture, service, settings, dialog, nullptr);
    form.show();
    service.fails = true;
    form.lstPrinters->SetListIndex(1);
    form.cmdOK->click();
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(dialog.shown[0].text.contains("out of paper"));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(settings.Read(settings::kPrinter), "0");

    dialog.shown.clear();
    service.listError = PrintService::kNoPrinterInformation;
    frmPrint without(picture, service, settings, dialog, nullptr);
    EXPECT_FALSE(without.lstPrinters->isEnabled());
    without.cmdOK->click();
    EXPECT_EQ(dialog.shown.size(), 1u) << "told when one tries to print";
}

TEST_F(PrintDialogTest, SpeaksFourLanguages) {
    struct Row {
        const char* id;
        const char* window;
        const char* cancel;
        const char* landscape;
    };
    for (const Row& row : {Row{"0", "Print", "Cancel ", "Landscape"}, Row{"1", "Print", "Cancel ", "Landscape"},
                           Row{"2", "Imprimir", "Cancelar ", "Horizontal"}, Row{"3", "Imprimer", "Annuler ", "Paysage"},
                           Row{"7", "Print", "Cancel ", "Landscape"}}) {
        settings.Write(settings::kLanguage, row.id);
        frmPrint form(picture, service, settings, dialog, nullptr);
        EXPECT_EQ(form.windowTitle(), row.window);
        EXPECT_EQ(form.cmdCancel->text(), row.cancel);
        EXPECT_EQ(form.Option2->text(), row.landscape);
    }
}

}  // namespace
}  // namespace kelu
