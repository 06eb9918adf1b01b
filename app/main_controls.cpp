// SPDX-License-Identifier: MIT
#include "app/main_controls.h"

#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QScreen>
#include <QStyle>
#include <cstring>
#include <span>

#include "app/pointed_keys.h"
#include "app/window_layout.h"
#include "capture/capture_panel.h"
#include "controls/list_ex/list_ex.h"
#include "controls/note/note_bar.h"
#include "controls/pager/pager.h"
#include "controls/progress_bar/xp_progress_bar.h"
#include "controls/status_bar/status_bar.h"
#include "controls/theme/icons.h"
#include "controls/theme/tab_order.h"
#include "controls/theme/theme.h"
#include "controls/tool_button/tool_button.h"
#include "controls/toolbox/toolbox.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"
#include "platform/units.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::MainWindow)
};

constexpr int kLogoHeight = 32;     // pixels
constexpr int kPreviewWidth = 184;  // pixels; fills the gap that the layout leaves it, 4:3
constexpr int kPreviewEdge = 3;
// The two buttons beside picSystem are as high as its own, and as far from the line between them on either side.
constexpr TwipsRect kHelpButton{0, 0, 510, 285};
constexpr TwipsRect kSettingsButton{0, 0, 675, 285};
constexpr TwipsRect kPipe{0, 0, 15, 225};

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

/// Moves the widget within its parent, mirrored for a language that is read from the right; a side of 0 keeps the
/// widget's own.
void Place(QWidget& widget, const TwipsRect& at) {
    QRect pixels = TwipsToPixels(QRectF(at.left, at.top, at.width, at.height));
    if (at.width == 0) pixels.setWidth(widget.width());
    if (at.height == 0) pixels.setHeight(widget.height());
    const QWidget& parent = *widget.parentWidget();
    widget.setGeometry(QStyle::visualRect(parent.layoutDirection(), parent.rect(), pixels));
}

QSize InPixels(const WindowSize& twips) { return {TwipsToPixels(twips.width), TwipsToPixels(twips.height)}; }

WindowSize InTwips(const QSize& pixels) { return {PixelsToTwips(pixels.width()), PixelsToTwips(pixels.height())}; }

WindowSize Room(const QWidget& window) { return InTwips(window.screen()->availableSize()); }

}  // namespace

QSize FirstSize(const QWidget& window) { return InPixels(kDesignSize).boundedTo(InPixels(Room(window))); }

QSize LeastSize(const QWidget& window) { return InPixels(LeastSize(Room(window))); }

MainControls::MainControls(QWidget& window, Surfaces& surfaces, Surface& capturePreview, SharedState& state)
    : picTitleBar(Named(new QWidget(&window), "picTitleBar")),
      picSystem(Named(new QWidget(&window), "picSystem")),
      picTB(Named(new QWidget(&window), "picTB")),
      picLogo(Named(new QLabel(&window), "picLogo")),
      picPipe1(Named(new QWidget(&window), "picPipe1")),
      picCanvas(Named(new ImageX(surfaces.picCanvas, &window), "picCanvas")),
      picOriginal(Named(new ImageX(surfaces.picOriginal, &window), "picOriginal")),
      selectors(new EffectSelectors(state, &window)),
      pnlSettings(Named(new EffectPanel(state, &window), "pnlSettings")),
      picZoomContainer(Named(new QWidget(&window), "picZoomContainer")),
      picCapContainer(Named(new CapturePanel(&window), "picCapContainer")),
      picCapPreview(Named(new ImageX(capturePreview, &window), "picCapPreview")),
      sBar1(Named(new StatusBar(&window), "sBar1")),
      pBar1(Named(new XP_ProgressBar(sBar1), "pBar1")),
      note(new NoteBar(&window)),
      picCover(Named(new QLabel(&window), "picCover")),
      window_(window) {
    // Tab goes round as the eye does: strip, picture, effects, panel, zoom, status. What is made later comes later.
    sBar1->SetPanelWidths({220, 400});
    sBar1->SetPanelClickable(1, true);
    MakeButtons(window);
    SetTabOrder(
        {pnlSettings->cmdApply, &Button(Command::ZoomIn), &Button(Command::ZoomOut), &Button(Command::ZoomReset)});
    note->ComeAfter(*picOriginal);
    picOriginal->hide();
    picZoomContainer->hide();
    picCapContainer->hide();
    picCapPreview->hide();
    picCapPreview->resize(kPreviewWidth, kPreviewWidth * 3 / 4);
    // Parts the snapshot from the live picture that it lies on.
    auto* const previewEdge = new QFrame(picCapPreview);
    previewEdge->setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
    previewEdge->setLineWidth(kPreviewEdge);
    previewEdge->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette edge = previewEdge->palette();
    edge.setColor(QPalette::WindowText, theme::kGround);
    previewEdge->setPalette(edge);
    previewEdge->resize(picCapPreview->size());
    pBar1->hide();
    picCanvas->setAccessibleName(Texts::tr("Picture"));
    picOriginal->setAccessibleName(Texts::tr("Original picture"));
    picCapPreview->setAccessibleName(Texts::tr("Captured picture"));

    picLogo->setPixmap(theme::LogoPixmap(kLogoHeight, window.devicePixelRatioF()));
    picLogo->adjustSize();
    picPipe1->setAutoFillBackground(true);
    QPalette line = picPipe1->palette();
    line.setColor(QPalette::Window, theme::kLine);
    picPipe1->setPalette(line);

    pBar1->SetBackColor(ToColorRef(theme::kSunken));
    pBar1->raise();  // over the second panel, which was made later
    picCover->raise();
    picLogo->raise();
    new PointedKeys(window, *selectors, *pnlSettings);
}

namespace {

void MakeStrip(QWidget& strip, const TwipsRect& at, std::span<const FixedPlace> places,
               const std::map<Command, ToolButton*>& buttons) {
    // Buttons of one strip lie at different heights; their icons stand on the line of the first one's.
    const auto middle = [](const TwipsRect& place) { return (place.top + place.height / 2.0) / kTwipsPerPixel; };
    Place(strip, at);
    for (const FixedPlace& fixed : places)
        for (const CommandRow& row : kCommands)
            if (std::strcmp(row.name, fixed.name) == 0) {
                ToolButton* button = buttons.at(row.command);
                button->setParent(&strip);
                Place(*button, fixed.place);
                button->SetIconShift(RoundToEven(middle(places.front().place) - middle(fixed.place)));
            }
}

}  // namespace

void MainControls::MakeButtons(QWidget& window) {
    for (const CommandRow& row : kCommands)
        buttons_[row.command] = Named(new ToolButton(QString::fromLatin1(row.icon), &window), row.name);
    const WindowLayout at = LayOut(kDesignSize);
    MakeStrip(*picTB, at.picTB, kToolStripButtons, buttons_);
    MakeStrip(*picSystem, at.picSystem, kSystemButtons, buttons_);
    MakeStrip(*picZoomContainer, at.picZoomContainer, kZoomButtons, buttons_);
    Place(Button(Command::Help), kHelpButton);
    Place(Button(Command::Settings), kSettingsButton);
    Place(*picPipe1, kPipe);
}

void MainControls::ApplyLayout() {
    if (window_.isMinimized()) return;
    const WindowSize now = InTwips(window_.size()), allowed = AllowedSize(now, Room(window_));
    if (allowed != now && InPixels(allowed) != window_.size()) return window_.resize(InPixels(allowed));
    const WindowLayout at = LayOut(now);
    Place(*picTitleBar, at.picTitleBar);
    Place(*picLogo, at.picLogo);
    Place(*picSystem, at.picSystem);
    Place(*picTB, at.picTB);
    Place(*picCover, at.picCover);
    Place(Button(Command::Help), at.cmdHelp);
    Place(*picPipe1, at.picPipe1);
    Place(Button(Command::Settings), at.cmdSettings);
    Place(*picCanvas, at.picCanvas);
    Place(*picOriginal, at.picOriginal);
    Place(*selectors->pagerTB1, at.pagerTB1);
    selectors->pagerTB1->SetChild(selectors->TBSFX);
    Place(*selectors->cmdAllEffects, at.cmdAllEffects);
    Place(*pnlSettings, at.pnlSettings);
    Place(*picZoomContainer, at.picZoomContainer);
    Place(*picCapContainer, at.picCapContainer);
    Place(*picCapPreview, at.picCapPreview);
    // The list has no size of its own: it stands in the pager's place, as wide as the panel below.
    TwipsRect list = at.lstSFX;
    list.width = at.pnlSettings.width;
    list.height = at.pagerTB1.height;
    Place(*selectors->lstSFX, list);
    Place(*sBar1, at.sBar1);
    Place(*pBar1, at.pBar1);
    note->SetPlace(picCanvas->geometry());
}

void MainControls::ShowTools(bool shown) {
    for (QWidget* tool :
         {picTB, picPipe1, static_cast<QWidget*>(picCanvas), static_cast<QWidget*>(pnlSettings),
          static_cast<QWidget*>(selectors->pagerTB1), static_cast<QWidget*>(selectors->cmdAllEffects),
          static_cast<QWidget*>(&Button(Command::Settings)), static_cast<QWidget*>(&Button(Command::Help))})
        tool->setVisible(shown);
    note->SetCovered(!shown);
}

}  // namespace kelu
