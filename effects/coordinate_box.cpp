// The digits and the clamp of a coordinate box.
// SPDX-License-Identifier: MIT
#include "effects/coordinate_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QValidator>

#include "controls/theme/theme.h"
#include "effects/catalogue/catalogue.h"

namespace kelu {
namespace {

// Mends rather than refuses: pasted and assigned texts lose what is no digit, a fraction and a sign are understood, and
// too large a number becomes the largest, one below 0 becomes 0.
class CoordinateValidator : public QValidator {
 public:
    using QValidator::QValidator;

    State validate(QString& input, int& position) const override {
        const qsizetype length = input.size();
        static const QRegularExpression fraction(QStringLiteral("(?<=\\d)[.,].*"));
        static const QRegularExpression belowZero(QStringLiteral("^\\s*-\\s*\\d.*"));
        input.remove(fraction).replace(belowZero, QStringLiteral("0"));
        input.removeIf([](QChar c) { return c < QLatin1Char('0') || c > QLatin1Char('9'); });
        // A number of any length: what does not even fit an integer is too large.
        bool fits = false;
        if (const int value = input.toInt(&fits); !input.isEmpty() && (!fits || value > kCoordinateMax))
            input = QString::number(kCoordinateMax);
        if (input.size() != length) position = static_cast<int>(input.size());
        return Acceptable;
    }
};

}  // namespace

CoordinateBox::CoordinateBox(QWidget* parent) : QLineEdit(parent) {
    setValidator(new CoordinateValidator(this));
    // A file dropped here is for the window.
    setAcceptDrops(false);
    setAlignment(Qt::AlignCenter);
    setFont(theme::ListFont());
    // The room that the style keeps beside a text is too much for a box of three digits.
    setTextMargins(-4, 0, -4, 0);
    setInputMethodHints(Qt::ImhDigitsOnly);
}

void CoordinateBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    // The press that brought the focus comes after it and would place the cursor.
    selectAfterPress_ = event->reason() == Qt::MouseFocusReason;
}

void CoordinateBox::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    if (selectAfterPress_) selectAll();
    selectAfterPress_ = false;
}

void CoordinateBox::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool digit = text.size() == 1 && text[0] >= u'0' && text[0] <= u'9';
    const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // Dropped before the validator could take a sign or a point for a part of a pasted number.
    if (!command && !digit && !text.isEmpty() && text[0].isPrint()) return;
    QLineEdit::keyPressEvent(event);
}

void CoordinateBox::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    event->ignore();
}

}  // namespace kelu
