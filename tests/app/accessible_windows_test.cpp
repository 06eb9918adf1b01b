// Every window as a screen reader meets it: each control that can be used has a name and a fitting role, and Tab walks
// the controls in the order in which they are seen.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTextBrowser>

#include "app/about_message.h"
#include "app/help_window.h"
#include "capture/capture_panel.h"
#include "controls/color_picker/color_picker.h"
#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "dialogs/browse/frm_browse.h"
#include "dialogs/options/frm_options.h"
#include "effects/catalogue/catalogue.h"
#include "output/frm_print.h"
#include "output/mail/frm_email.h"
#include "tests/app/main_window_fixture.h"
#include "tests/support/dialog_script.h"

namespace kelu {
namespace {

using Roles = std::vector<QAccessible::Role>;

/// The roles that fit a control of this kind; empty for what is no control.
Roles FittingRoles(const QWidget& widget) {
    if (qobject_cast<const QRadioButton*>(&widget)) return {QAccessible::RadioButton};
    if (qobject_cast<const QCheckBox*>(&widget)) return {QAccessible::CheckBox};
    if (qobject_cast<const ColorPicker*>(&widget)) return {QAccessible::Button, QAccessible::ButtonMenu};
    if (widget.inherits("kelu::StatusPanel")) return {QAccessible::Button, QAccessible::StaticText};
    if (widget.inherits("kelu::SliderNumber")) return {QAccessible::SpinBox};
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->isCheckable()
                   ? Roles{QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::PageTab, QAccessible::Button}
                   : Roles{QAccessible::Button, QAccessible::PushButton, QAccessible::ButtonMenu};
    if (qobject_cast<const QComboBox*>(&widget)) return {QAccessible::ComboBox};
    if (qobject_cast<const QLineEdit*>(&widget)) return {QAccessible::EditableText};
    if (qobject_cast<const QSpinBox*>(&widget)) return {QAccessible::SpinBox};
    if (qobject_cast<const QPlainTextEdit*>(&widget)) return {QAccessible::EditableText};
    if (qobject_cast<const QTextBrowser*>(&widget) || qobject_cast<const QLabel*>(&widget))
        return {QAccessible::StaticText};
    if (qobject_cast<const QHeaderView*>(&widget)) return {};  // its list speaks for it
    if (qobject_cast<const QAbstractItemView*>(&widget))
        return {QAccessible::List, QAccessible::Tree, QAccessible::Table};
    if (widget.inherits("kelu::HueField")) return {QAccessible::Canvas};
    if (qobject_cast<const LsSlider*>(&widget) || widget.inherits("kelu::ValueBar")) return {QAccessible::Slider};
    if (qobject_cast<const ImageX*>(&widget)) return {QAccessible::Canvas};
    if (qobject_cast<const QScrollArea*>(&widget)) return {QAccessible::Client};  // it can be scrolled, no more
    return {};
}

bool Interactive(const QWidget& widget) {
    const bool isText = qobject_cast<const QLabel*>(&widget);
    return widget.focusPolicy() != Qt::NoFocus || (!isText && !FittingRoles(widget).empty());
}

QString Called(const QWidget& widget) {
    const QString parent = widget.parentWidget() ? widget.parentWidget()->objectName() : QString();
    return QStringLiteral("%1 %2 in %3")
        .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(), parent);
}

void ExpectNamesAndRoles(QWidget& window) {
    int seen = 0;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        // Parts of the toolkit's own controls speak through these.
        if (!widget->isVisible() || widget->objectName().startsWith("qt_") || widget->focusProxy()) continue;
        if (qobject_cast<QComboBox*>(widget->parentWidget()) || qobject_cast<QLineEdit*>(widget->parentWidget()))
            continue;
        if (!Interactive(*widget)) continue;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        ASSERT_TRUE(spoken) << Called(*widget).toStdString();
        EXPECT_FALSE(spoken->text(QAccessible::Name).trimmed().isEmpty())
            << "no name: " << Called(*widget).toStdString();
        const Roles roles = FittingRoles(*widget);
        EXPECT_TRUE(std::find(roles.begin(), roles.end(), spoken->role()) != roles.end())
            << "role " << spoken->role() << ": " << Called(*widget).toStdString();
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

/// The controls in the order of Tab, from the first in the window; a nameless one by its caption.
QString TabOrder(QWidget& window) {
    QStringList order;
    QWidget* widget = &window;
    while ((widget = widget->nextInFocusChain()) && widget != &window) {
        const bool stops = widget->isVisible() && widget->isEnabled() && !widget->focusProxy() &&
                           (widget->focusPolicy() & Qt::TabFocus) && widget->window() == &window;
        if (!stops) continue;
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        QString name = widget->objectName();
        if (name.isEmpty() && button) name = QString(button->text()).remove('&');
        if (name.isEmpty()) name = widget->accessibleName();
        order << name;
    }
    return order.join(", ");
}

struct AccessibleWindows : MainWindowFixture {
    AccessibleWindows() { QAccessible::setActive(true); }
};

TEST_F(AccessibleWindows, MainWindow) {
    OpenPhoto();
    for (int effect = 1; FindEffect(effect); ++effect) {
        Choose(effect);
        ExpectNamesAndRoles(window);
    }
    Choose(kGrayscale);
    const QString panelAndZoom = "sldBrushSizeNumber, OptGS1, OptGS2, cmdApply, cmdZoomin, cmdZoomOut, cmdZoomReset, ";
    const QString statusAndStrip = window.controls.sBar1->PanelText(1).trimmed() +
                                   ", cmdOpen, cmdSave, cmdEmail, cmdPrint, cmdCopy, cmdUndo, cmdRedo, cmdWebCam, "
                                   "cmdOriginal, cmdSettings, cmdHelp, cmdMin, cmdRestore, cmdX";
    EXPECT_EQ(TabOrder(window), "picCanvas, cmdAllEffects, Grayscale, " + panelAndZoom + statusAndStrip);

    window.controls.selectors->pagerTB1->hide();
    window.controls.selectors->lstSFX->show();
    Key(Qt::Key_F8, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.controls.picCapContainer->isVisible(); }));
    ExpectNamesAndRoles(window);
    EXPECT_EQ(TabOrder(window), "picCanvas, cmdAllEffects, lstSFX, " + panelAndZoom +
                                    "cmdCapture, cmdCaptureOK, cmdCaptureCancel, " + statusAndStrip);
}

TEST_F(AccessibleWindows, ColorPopup) {
    OpenPhoto();
    Choose(17);
    QTest::mouseClick(panel.CPicker[0], Qt::LeftButton);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    ExpectNamesAndRoles(*popup);
    popup->close();
}

TEST_F(AccessibleWindows, Browse) {
    settings.Write(settings::kLastFolder, folder.path());
    MakePhoto();
    frmBrowse form(
        settings, dialog, [](const QString&) {}, &window);
    form.show();
    for (const auto view : {FileViewer::ViewKind::Details, FileViewer::ViewKind::Thumbnails}) {
        form.FileViewer_->SetView(view);
        ExpectNamesAndRoles(form);
        const bool chosen = view == FileViewer::ViewKind::Details;
        form.cmdOK->setEnabled(chosen);
        EXPECT_EQ(
            TabOrder(form),
            QStringLiteral("ComboDrive, cmdBack, CmdUp, cmdIcons, cmdFolder1, cmdFolder2, cmdFolder3, cmdFolder4, "
                           "Files, %1cmdCancel")
                .arg(chosen ? "cmdOK, " : ""));
    }
    for (const QAction* action : form.mnuFFile->actions()) EXPECT_FALSE(action->text().isEmpty());
}

TEST_F(AccessibleWindows, Options) {
    frmOptions form(settings, state, dialog, {[] { return QStringList("Camera"); }, [](int) {}, [] {}, [] {}}, &window);
    form.show();
    form.optEmail[2]->click();
    const char* const pages[] = {"optEmail1, optEmail2, optEmail3, txtUserName, txtPassword, chkMask",
                                 "optCursor1, optCursor2, optCursor3",
                                 "chkReminder",
                                 "chkResize",
                                 "cboDevices, cboCaptureSize",
                                 "chkSFXSelector"};
    for (std::size_t page = 0; page < std::size(pages); ++page) {
        form.pnlMenu[page]->click();
        ExpectNamesAndRoles(form);
        // A round: the lower row is read Help, About, OK, Cancel.
        EXPECT_EQ(TabOrder(form),
                  QStringLiteral("cmdOK, cmdCancel, keyEmail, keyCursor, keyWarning, keyResize, keyCapture, "
                                 "keySFX, %1, cmdHelp, cmdAbout")
                      .arg(pages[page]));
    }
}

TEST_F(AccessibleWindows, Print) {
    frmPrint form(QImage(40, 30, QImage::Format_RGB32), printing, settings, dialog, &window);
    form.show();
    ExpectNamesAndRoles(form);
    EXPECT_EQ(TabOrder(form), "lstPrinters, Option1, Option2, cmdOK, cmdCancel");
}

TEST_F(AccessibleWindows, Email) {
    const std::pair<MailMethod, const char*> ways[] = {
        {MailMethod::OwnDelivery, "txtFrom1, txtTo1, txtSubject1, txtText1, Send, Cancel"},
        {MailMethod::Account, "txtFrom2, txtTo2, txtCC2, txtSubject2, txtText2, Send, Cancel"}};
    for (const auto& [way, order] : ways) {
        settings.Write(settings::kMailMethod, way);
        SmtpSender smtp;
        DesktopMailClient client;
        MailDraft draft;
        frmEmail form(smtp, client, dialog, settings, MakePhoto(), draft, MailPorts(), &window);
        form.show();
        ExpectNamesAndRoles(form);
        EXPECT_EQ(TabOrder(form), order);
    }
}

TEST_F(AccessibleWindows, Help) {
    HelpWindow help(folder.path());
    help.show();
    ExpectNamesAndRoles(help);
    // A round again: buttons, search, page.
    EXPECT_EQ(TabOrder(help), "Help page, All effects (Alt+Home), Search all pages");
}

TEST_F(AccessibleWindows, Messages) {
    DialogScript script;
    const auto look = [&script](const char* order) {
        script.Then([order](QWidget& message) {
            ExpectNamesAndRoles(message);
            EXPECT_FALSE(message.accessibleDescription().isEmpty());
            EXPECT_EQ(TabOrder(message), order);
            message.close();
        });
    };
    look("Yes, No, Cancel");
    realDialog.ShowMessage({"Heading", "Text", MsgIcon::Exclamation, MsgButtons::YesNoCancel});
    look("Don't Show This Again, OK");
    realDialog.ShowMessage({"Heading", "Text", MsgIcon::Information, MsgButtons::Ok, "Don't Show This Again"});
    look("About Kelu..., OK");
    ShowAboutMsg(realDialog);
}

}  // namespace
}  // namespace kelu
