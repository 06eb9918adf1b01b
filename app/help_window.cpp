// Buttons, keys and layout of the help window.
// SPDX-License-Identifier: MIT
#include "app/help_window.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSizeGrip>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "app/help_browser.h"
#include "controls/theme/accessible_role.h"
#include "controls/theme/icons.h"
#include "controls/theme/tab_order.h"
#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"
#include "controls/tool_button/tool_button.h"

namespace kelu {
namespace {

constexpr QSize kFirstSize(804, 720);  // pixels
constexpr int kButtonSize = 30;
constexpr int kSearchWidth = 220;
constexpr int kSearchEnds = 60;  // round the hint: edges and the button that clears the field

ToolButton* MakeButton(const QString& icon, const QString& tip, QWidget* parent) {
    auto* button = new ToolButton(icon, parent);
    button->SetTip(tip);
    button->setFixedSize(kButtonSize, kButtonSize);
    return button;
}

}  // namespace

HelpWindow::HelpWindow(const QString& folder)
    : QWidget(nullptr, Qt::Window),
      browser_(new HelpBrowser(folder, this)),
      back_(MakeButton(QStringLiteral("back"), tr("Back (Alt+Left)"), this)),
      forward_(MakeButton(QStringLiteral("forward"), tr("Forward (Alt+Right)"), this)),
      index_(MakeButton(QStringLiteral("home"), tr("All effects (Alt+Home)"), this)),
      search_(new QLineEdit(this)) {
    UseAccessibleRole<HelpWindow, QAccessible::Window>();
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(tr("Kelu Help"));
    setWindowIcon(theme::Icon(QStringLiteral("kelu")));
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(kFirstSize.boundedTo(screen()->availableSize()));

    QVBoxLayout* column = MakeWindowFrame(*this);
    column->addWidget(MakeToolRow());
    column->addWidget(browser_);
    auto* grip = new QSizeGrip(this);
    grip->setToolTip(tr("Drag to change the size"));
    column->addWidget(grip, 0, Qt::AlignRight);

    back_->setEnabled(false);
    forward_->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);
    connect(back_, &ToolButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward_, &ToolButton::clicked, browser_, &QTextBrowser::forward);
    connect(index_, &ToolButton::clicked, this, [this] { browser_->setSource(browser_->Home()); });
    connect(search_, &QLineEdit::returnPressed, this, [this] {
        if (!search_->text().trimmed().isEmpty()) browser_->Search(search_->text());
    });
    connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = browser_->documentTitle();
        setWindowTitle(title.isEmpty() ? tr("Kelu Help") : tr("Kelu Help - ") + title);
    });
    AddKeys();
    SetTabOrder({back_, forward_, index_, search_, browser_});
}

QWidget* HelpWindow::MakeToolRow() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(theme::kSpacing, theme::kSpacing / 2, theme::kMargin, theme::kSpacing / 2);
    layout->setSpacing(theme::kSpacing / 2);
    for (ToolButton* button : {back_, forward_, index_}) layout->addWidget(button);
    layout->addStretch();
    search_->setPlaceholderText(tr("Search all pages"));
    search_->setAccessibleName(tr("Search all pages"));
    search_->setClearButtonEnabled(true);
    search_->setFixedWidth(
        std::max(kSearchWidth, search_->fontMetrics().horizontalAdvance(search_->placeholderText()) + kSearchEnds));
    layout->addWidget(search_);
    return row;
}

void HelpWindow::AddKeys() {
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(Qt::ALT | Qt::Key_Left, [this] { browser_->backward(); });
    add(Qt::ALT | Qt::Key_Right, [this] { browser_->forward(); });
    add(Qt::ALT | Qt::Key_Home, [this] { browser_->setSource(browser_->Home()); });
    add(QKeySequence::Find, [this] { search_->setFocus(), search_->selectAll(); });
}

void HelpWindow::ShowPage(const QString& page) { browser_->ShowPage(page); }

void HelpWindow::Raise() {
    // A modal dialog blocks every window but those that belong to it. It is told when a window is shown, so one that
    // is on the screen already must go and come back.
    create();
    QWidget* modal = QApplication::activeModalWidget();
    QWindow* owner = modal ? modal->windowHandle() : nullptr;
    if (windowHandle()->transientParent() != owner) {
        if (owner) hide();
        windowHandle()->setTransientParent(owner);
    }
    if (isMinimized()) showNormal();
    show();
    raise();
    activateWindow();
    browser_->setFocus();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace kelu
