// Where the invitation stands on the placeholder; see placeholder.h.
// SPDX-License-Identifier: MIT
#include "app/placeholder.h"

#include <QApplication>
#include <QPainter>

#include "controls/theme/theme.h"
#include "document/commands.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::MainWindow)
};

// In units of the drawing, which is so wide; data/make/small_data.cpp leaves this room free.
constexpr double kDrawingWidth = 1000;
constexpr QRectF kHeading(60, 466, 880, 64), kHint(60, 536, 880, 48);

void Write(QPainter& painter, const QRectF& box, int letters, QFont::Weight weight, const QColor& color,
           const QString& text) {
    QFont font = QApplication::font();
    font.setPixelSize(letters);
    font.setWeight(weight);
    painter.setFont(theme::Narrowed(font, text, box.width()));
    painter.setPen(color);
    painter.drawText(box, Qt::AlignCenter, text);
}

}  // namespace

QImage WithInvitation(QImage placeholder) {
    QPainter painter(&placeholder);
    const double scale = placeholder.width() / kDrawingWidth;
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    Write(painter, kHeading, 44, QFont::Bold, theme::kBrightText, Texts::tr("Open a picture"));
    Write(painter, kHint, 27, QFont::Normal, theme::kMutedText,
          Texts::tr("Press %1, or drop a photo here").arg(KeyText(KeyOf(Command::Open))));
    return placeholder;
}

}  // namespace kelu
