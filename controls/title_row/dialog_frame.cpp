// Layouts of the frame; see dialog_frame.h.
// SPDX-License-Identifier: MIT
#include "controls/title_row/dialog_frame.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "controls/theme/theme.h"
#include "controls/title_row/title_row.h"

namespace kelu {

QVBoxLayout* MakeWindowFrame(QWidget& window) {
    TitleRow::MakeFrameless(window);
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new TitleRow(&window));
    return column;
}

QVBoxLayout* MakeDialogFrame(QWidget& dialog) {
    QVBoxLayout* whole = MakeWindowFrame(dialog);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    auto* content = new QVBoxLayout;
    content->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    content->setSpacing(theme::kMargin);
    whole->addLayout(content);
    return content;
}

QHBoxLayout* ButtonRow(std::initializer_list<QWidget*> atLeft, std::initializer_list<QWidget*> atRight) {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kSpacing);
    for (QWidget* button : atLeft) row->addWidget(button);
    row->addStretch();
    for (QWidget* button : atRight) row->addWidget(button);
    return row;
}

void AddWindowFrame(QWidget& window) {
    TitleRow::MakeFrameless(window);
    // The one place of a layout that lies above its contents and outside its margins.
    window.layout()->setMenuBar(new TitleRow(&window));
}

QLabel* FieldLabel(const QString& text, QWidget& field) {
    auto* label = new QLabel(text);
    label->setBuddy(&field);
    label->setFixedHeight(QLineEdit().sizeHint().height());
    return label;
}

}  // namespace kelu
