// The property page.
// SPDX-License-Identifier: MIT
#include "controls/scroller/move_controls_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "controls/scroller/scroller.h"

namespace kelu {
namespace {

const char* const kHowTo =
    "Use this Buttons to Scroll the Area at Design Time and insert the new Controls in the exact position. Once the "
    "program starts the control will automatically resizes to fit the controls you have inserted.";
const char* const kReminder =
    "Remember: To scroll the control up and down you can double click the MoveUp or MoveDown properties in the "
    "Property Window!!";

QLabel* MakeText(const char* text) {
    QLabel* label = new QLabel(QString::fromLatin1(text));
    label->setWordWrap(true);
    return label;
}

}  // namespace

MoveControlsPage::MoveControlsPage(QWidget* parent)
    : QWidget(parent),
      cmdDown_(new QPushButton(QStringLiteral("Move Down"))),
      CmdUp_(new QPushButton(QStringLiteral("Move Up"))) {
    cmdDown_->setObjectName(QStringLiteral("cmdDown"));
    CmdUp_->setObjectName(QStringLiteral("CmdUp"));
    setWindowTitle(QStringLiteral("MoveControls"));

    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addWidget(cmdDown_);
    buttons->addWidget(CmdUp_);
    buttons->addStretch();
    QVBoxLayout* page = new QVBoxLayout(this);
    page->addWidget(MakeText(kHowTo));
    page->addLayout(buttons);
    page->addWidget(MakeText(kReminder));
    page->addStretch();

    connect(cmdDown_, &QPushButton::clicked, this, [this] { MovePage(Scroller::kDesignStep); });
    connect(CmdUp_, &QPushButton::clicked, this, [this] { MovePage(-Scroller::kDesignStep); });
    SetSelected({});
}

void MoveControlsPage::SetSelected(const QList<Scroller*>& selected) {
    first_ = selected.isEmpty() ? nullptr : selected.first();
    cmdDown_->setEnabled(!first_.isNull());
    CmdUp_->setEnabled(!first_.isNull());
}

void MoveControlsPage::MovePage(int twips) {
    if (first_) first_->MoveControls(twips);
}

}  // namespace kelu
