// The popup's parts and how they stay in step; see color_popup.h.
// SPDX-License-Identifier: MIT
#include "controls/color_picker/color_popup.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>

#include "controls/color_picker/hue_field.h"
#include "controls/color_picker/value_bar.h"
#include "controls/theme/theme.h"
#include "controls/toolbox/toolbox.h"

namespace kelu {

namespace {

constexpr int kColumns = 8;
constexpr int kSwatch = 24;
constexpr int kGap = 4;
constexpr int kChannelWidth = 44;
constexpr int kWidth = kColumns * kSwatch + (kColumns - 1) * kGap;

/// Greys, full colours, light and dark ones, each row by hue.
constexpr QRgb kSwatches[] = {
    0xff000000, 0xff262626, 0xff4d4d4d, 0xff737373, 0xff999999, 0xffbfbfbf, 0xffe0e0e0, 0xffffffff,  //
    0xffff0000, 0xffff8000, 0xffffe000, 0xff00c000, 0xff00c8c8, 0xff0060ff, 0xff8000ff, 0xffff00a0,  //
    0xffffa8a0, 0xffffcf9e, 0xfffff2a6, 0xffb4e6a8, 0xffa4e4e4, 0xffa6c8ff, 0xffcdb0ff, 0xffffb0dc,  //
    0xff801414, 0xff8a4500, 0xff857000, 0xff1d6b1d, 0xff0f6a6a, 0xff12397e, 0xff4a1a82, 0xff821455,
};

QPixmap Patch(const QColor& color) {
    QPixmap patch(8, 8);
    patch.fill(color);
    return patch;
}

}  // namespace

ColorPopup::ColorPopup(const QColor& color, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      first_(color),
      color_(color.toHsv()),
      swatches_(new Toolbox),
      field_(new HueField),
      bar_(new ValueBar),
      hex_(new QLineEdit) {
    setAccessibleName(tr("Colors"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(10);

    swatches_->SetColumns(kColumns);
    swatches_->SetButtonSize({kSwatch, kSwatch});
    swatches_->SetMargin(0);
    swatches_->SetGap(kGap);
    for (const QRgb rgb : kSwatches) {
        const QString name = QColor(rgb).name();
        swatches_->SetTip(swatches_->AddButton(name, Patch(QColor(rgb))), name);
    }
    connect(swatches_, &Toolbox::ButtonClicked, this,
            [this](int, const QString& key) { Take(QColor(key), swatches_); });
    column->addWidget(swatches_);

    field_->setFixedSize(kWidth, 120);
    bar_->setFixedSize(kWidth, 16);
    connect(field_, &HueField::Changed, this,
            [this](int hue, int saturation) { Take(QColor::fromHsv(hue, saturation, color_.value()), field_); });
    connect(bar_, &ValueBar::Changed, this,
            [this](int value) { Take(QColor::fromHsv(color_.hsvHue(), color_.hsvSaturation(), value), bar_); });
    column->addWidget(field_);
    column->addWidget(bar_);

    auto* entries = new QHBoxLayout;
    entries->setSpacing(6);
    hex_->setMaxLength(7);
    hex_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("#?[0-9a-fA-F]{0,6}")), hex_));
    hex_->setAccessibleName(tr("Hexadecimal color"));
    connect(hex_, &QLineEdit::textEdited, this, [this](QString text) {
        if (text.startsWith(QLatin1Char('#'))) text.remove(0, 1);
        if (text.size() == 6) Take(QColor(QLatin1Char('#') + text), hex_);
    });
    hex_->setFixedWidth(kWidth - 3 * (kChannelWidth + 6));
    entries->addWidget(hex_);
    const QString names[] = {tr("Red"), tr("Green"), tr("Blue")};
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        auto* channel = new QSpinBox;
        channel->setRange(0, 255);
        channel->setButtonSymbols(QAbstractSpinBox::NoButtons);
        channel->setAlignment(Qt::AlignCenter);
        channel->setAccessibleName(names[i]);
        channel->setToolTip(names[i]);
        connect(channel, &QSpinBox::valueChanged, this, [this, channel] {
            Take(QColor(channels_[0]->value(), channels_[1]->value(), channels_[2]->value()), channel);
        });
        channels_[i] = channel;
        channel->setFixedWidth(kChannelWidth);
        entries->addWidget(channel);
    }
    column->addLayout(entries);
    Show(nullptr);
    setFixedSize(sizeHint());
}

void ColorPopup::Take(const QColor& color, const QObject* source) {
    if (following_ || !color.isValid()) return;
    const bool changed = color.rgb() != color_.rgb();
    const int hue = color_.hsvHue();
    color_ = color.toHsv();
    // A grey has no hue of its own: keep the one the field shows.
    if (color_.hsvHue() < 0) color_ = QColor::fromHsv(qMax(0, hue), color_.hsvSaturation(), color_.value());
    Show(source);
    if (changed) Q_EMIT ColorChanged(QColor(color_.rgb()));
}

void ColorPopup::Show(const QObject* source) {
    following_ = true;
    const int hue = qMax(0, color_.hsvHue());
    field_->SetPoint(hue, color_.hsvSaturation());
    bar_->SetColor(hue, color_.hsvSaturation(), color_.value());
    // What the user types in stays as typed.
    if (source != hex_) hex_->setText(color_.name());
    const int parts[] = {color_.red(), color_.green(), color_.blue()};
    for (std::size_t i = 0; i < channels_.size(); ++i) channels_[i]->setValue(parts[i]);
    int current = 0;
    for (int index = 1; index <= swatches_->Count(); ++index)
        if (swatches_->Key(index) == color_.name()) current = index;
    swatches_->SetCurrent(current);
    following_ = false;
}

void ColorPopup::ShowAt(const QRect& anchor) {
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    constexpr int kAway = 4;
    QPoint corner(anchor.left(), anchor.bottom() + kAway);
    if (corner.y() + height() > room.bottom()) corner.setY(anchor.top() - height() - kAway);
    corner.setX(qBound(room.left(), corner.x(), qMax(room.left(), room.right() - width())));
    corner.setY(qBound(room.top(), corner.y(), qMax(room.top(), room.bottom() - height())));
    move(corner);
    show();
    field_->setFocus(Qt::PopupFocusReason);
}

void ColorPopup::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            Take(first_, nullptr);
            close();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            close();
            return;
        default:
            QFrame::keyPressEvent(event);
    }
}

void ColorPopup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::kOutlinePopup);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), theme::kPopup);
}

}  // namespace kelu
