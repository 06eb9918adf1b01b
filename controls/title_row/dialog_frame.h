// The frame of the program's own windows: outline, title row, and one rhythm of margins below it.
// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

class QHBoxLayout;
class QLabel;
class QString;
class QVBoxLayout;
class QWidget;

namespace kelu {

/// Takes the system's frame off `window` and gives it outline and title row. What the window shows goes into the column
/// that is returned, which has neither margins nor spacing. Before the window is shown, once.
QVBoxLayout* MakeWindowFrame(QWidget& window);

/// The same for a dialog as large as its contents: the column has the theme's margins and spacing.
QVBoxLayout* MakeDialogFrame(QWidget& dialog);

/// The buttons below a dialog's contents.
QHBoxLayout* ButtonRow(std::initializer_list<QWidget*> atLeft, std::initializer_list<QWidget*> atRight);

/// Puts the frame round a window that already has a layout of its own.
void AddWindowFrame(QWidget& window);

/// A label of `field`, to its left, in line with the text of its first row.
QLabel* FieldLabel(const QString& text, QWidget& field);

}  // namespace kelu
