// Printing: the page arithmetic as a table computed by hand, and the dialog over a scripted print service.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "controls/list_ex/list_ex.h"
#include "controls/tool_button/tool_button.h"
#include "output/frm_print.h"
#include "output/output_settings.h"
#include "platform/error.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

using testing::HasSubstr;

TEST(PageLayout, PlacesThePictureByHandComputedNumbers) {
    using enum PageSetup::Placement;
    using enum PageSetup::Unit;
    // A sheet of 1100 x 850 pixels at 100 dpi each way; margins of 1 inch leave 900 x 650 at 100, 100.
    const struct {
        const char* what;
        PageSetup setup;
        PictureSize picture;
        PlacedPicture at;
    } rows[] = {
        {"by width, centred down", {Fit, 100, {1, 1, 1, 1}, Inches}, {400, 200, 96, 96}, {100, 200, 900, 450}},
        {"by height, centred across", {Fit, 100, {1, 1, 1, 1}, Inches}, {100, 200, 96, 96}, {387.5, 100, 325, 650}},
        {"small ones grow", {Fit, 100, {1, 1, 1, 1}, Inches}, {2, 1, 96, 96}, {100, 200, 900, 450}},
        {"upper half", {HalfPage, 100, {1, 1, 1, 1}, Inches}, {400, 100, 96, 96}, {100, 150, 900, 225}},
        {"upper half, tall", {HalfPage, 100, {1, 1, 1, 1}, Inches}, {100, 100, 96, 96}, {387.5, 100, 325, 325}},
        {"true size", {Scale, 100, {1, 1, 1, 1}, Inches}, {400, 200, 200, 100}, {450, 325, 200, 200}},
        {"half size", {Scale, 50, {1, 1, 1, 1}, Inches}, {400, 200, 100, 100}, {450, 375, 200, 100}},
        {"beyond the page", {Scale, 400, {1, 1, 1, 1}, Inches}, {400, 200, 100, 100}, {-250, 25, 1600, 800}},
        {"centimetres", {Fit, 100, {2.54, 2.54, 2.54, 2.54}, Centimetres}, {4, 2, 96, 96}, {100, 200, 900, 450}},
        {"millimetres", {Fit, 100, {25.4, 25.4, 25.4, 25.4}, Millimetres}, {4, 2, 96, 96}, {100, 200, 900, 450}},
        {"each side by itself", {Fit, 100, {1, 2, 3, 1}, Inches}, {16, 9, 96, 96}, {100, 300, 800, 450}},
    };
    for (const auto& [what, setup, picture, expected] : rows) {
        const PlacedPicture at = PlacePicture(setup, {1100, 850, 100, 100}, picture);
        EXPECT_NEAR(at.x, expected.x, 1e-4) << what;
        EXPECT_NEAR(at.y, expected.y, 1e-4) << what;
        EXPECT_NEAR(at.width, expected.width, 1e-9) << what;
        EXPECT_NEAR(at.height, expected.height, 1e-9) << what;
    }
    // Axes of different resolution.
    const PlacedPicture at = PlacePicture({Fit, 100, {1, 2, 3, 1}, Inches}, {1000, 2000, 100, 200}, {7, 12, 96, 96});
    EXPECT_EQ(QRectF(at.x, at.y, at.width, at.height), QRectF(100, 600, 700, 1200));
}

class ScriptedPrintService : public PrintService {
 public:
    QStringList printers{"Office", "Photo"};
    int listError = 0;
    std::function<void()> whilePrinting;
    QList<PrintTicket> jobs;

    QStringList Printers() override {
        if (listError) throw Error(listError, "no list");
        return printers;
    }
    QString DefaultPrinter() override { return "Photo"; }
    void Print(const PrintTicket& ticket, Work& work) override {
        if (whilePrinting) whilePrinting();
        if (work.cancelled) throw WorkCancelled();
        jobs << ticket;
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

TEST_F(PrintDialogTest, PrintsAsChosenAndKeepsThePrinterByItsName) {
    {
        frmPrint form(picture, service, settings, dialog, nullptr);
        EXPECT_EQ(form.lstPrinters->ListIndex(), 0) << "the setting's default stands above the system's";
        form.lstPrinters->SetListIndex(1);
        form.picPort->click();
        form.picPort->click();
        EXPECT_EQ(form.surface.Picture().pixel(0, 39), 0xff00ff00) << "a quarter turn to the left, once";
        form.Option2->click();
        EXPECT_EQ(form.surface.Picture(), picture);
        form.Option1->click();
        form.cmdOK->click();
        ASSERT_EQ(service.jobs.size(), 1);
        EXPECT_EQ(service.jobs[0].printer, "Photo");
        EXPECT_TRUE(service.jobs[0].portrait);
        EXPECT_EQ(service.jobs[0].picture.size(), QSize(20, 40));
        EXPECT_EQ(form.result(), QDialog::Accepted);
        EXPECT_EQ(settings.Read(settings::kPrinter), 1);
    }
    service.printers.prepend("Another");  // a queue that came since
    EXPECT_EQ(frmPrint(picture, service, settings, dialog, nullptr).lstPrinters->ListIndex(), 2);
    EXPECT_TRUE(dialog.shown.empty());
    service.printers = {"Another", "Office"};
    EXPECT_EQ(frmPrint(picture, service, settings, dialog, nullptr).lstPrinters->ListIndex(), -1);
    settings.Write(settings::kPrinterName, "");
    settings.Write(settings::kPrinter, 7);
    const frmPrint form(picture, service, settings, dialog, nullptr);
    ASSERT_EQ(dialog.shown.size(), 2u);
    EXPECT_TRUE(dialog.shown[0].text.contains("The printer \"Photo\" is not there any more"));
    EXPECT_TRUE(dialog.shown[1].text.contains("The printer that was chosen last is not there any more"));
}

TEST_F(PrintDialogTest, FailuresKeepTheDialogAndTheSetting) {
    frmPrint form(picture, service, settings, dialog, nullptr);
    form.show();
    service.whilePrinting = [&] {
        EXPECT_EQ(form.lblWaiting->text(), "Handing the page to \"Photo\"");
        EXPECT_TRUE(form.lblWaiting->isVisible());
        EXPECT_FALSE(form.cmdOK->isEnabled() || form.lstPrinters->isEnabled());
        throw Error(kFileError, "out of paper");
    };
    form.lstPrinters->SetListIndex(1);
    form.cmdOK->click();
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_TRUE(dialog.shown[0].text.contains("out of paper"));
    EXPECT_TRUE(form.isVisible() && form.cmdOK->isEnabled());

    service.whilePrinting = [&] { QTest::keyClick(&form, Qt::Key_Escape); };
    form.cmdOK->click();
    EXPECT_TRUE(service.jobs.isEmpty());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(settings.Read(settings::kPrinter), 0);
    EXPECT_EQ(dialog.shown.size(), 1u) << "a cancel is told as an error";

    service.listError = PrintService::kNoPrinterInformation;
    frmPrint without(picture, service, settings, dialog, nullptr);
    EXPECT_FALSE(without.lstPrinters->isEnabled());
    without.cmdOK->click();
    EXPECT_EQ(dialog.shown.size(), 2u) << "told when one tries to print";
}

TEST_F(PrintDialogTest, SpeaksTheLanguageOfTheSetting) {
    const char* const rows[][3] = {{"2", "Imprimir", "Horizontal"},
                                   {"3", "Imprimer", "Paysage"},
                                   {"de", "Drucken", "Querformat"},
                                   {"0", "Print", "Landscape"},
                                   {"7", "Print", "Landscape"}};
    for (const auto& [id, window, landscape] : rows) {
        settings.Write(settings::kLanguage, id);
        const frmPrint form(picture, service, settings, dialog, nullptr);
        EXPECT_EQ(form.windowTitle(), window);
        EXPECT_EQ(form.Option2->text(), landscape);
    }
}

}  // namespace
}  // namespace kelu
