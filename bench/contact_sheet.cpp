// Draws what all effects make of a photograph, to be looked at: one sheet at default inputs, and one with each
// slider at its two ends.
//     contact_sheet PHOTOGRAPH TARGET_FOLDER
// The photograph is reduced to a working size first; inputs that are image pixels are meant for about that size.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <vector>

#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/render_onto.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace {

using namespace kelu;

constexpr QSize kWorking{900, 900};
constexpr int kCellWidth = 300;
constexpr int kTextHeight = 22;

struct Cell {
    QString text;
    QImage picture;
};

EffectInputs InputsFor(const Effect& effect, const QImage& photograph) {
    EffectInputs inputs = effect.Defaults();
    inputs.x = photograph.width() / 2;
    inputs.y = photograph.height() / 2;
    return inputs;
}

std::vector<Cell> AtDefaults(const QImage& photograph) {
    std::vector<Cell> cells;
    for (const Effect& effect : Catalogue())
        cells.push_back({QStringLiteral("%1 %2").arg(effect.number).arg(QString::fromLatin1(effect.listText)),
                         RenderOnto(effect, InputsFor(effect, photograph), photograph)});
    return cells;
}

std::vector<Cell> AtSliderEnds(const QImage& photograph) {
    std::vector<Cell> cells;
    for (const Effect& effect : Catalogue())
        for (std::size_t i = 0; i < effect.sliders.size() && effect.sliders[i].label; ++i)
            for (const int value : {effect.sliders[i].min, effect.sliders[i].max}) {
                EffectInputs inputs = InputsFor(effect, photograph);
                inputs.slider[i] = value;
                cells.push_back(
                    {QStringLiteral("%1 %2: %3 %4")
                         .arg(effect.number)
                         .arg(QString::fromLatin1(effect.listText), QString::fromLatin1(effect.sliders[i].label))
                         .arg(value),
                     RenderOnto(effect, inputs, photograph)});
            }
    return cells;
}

QImage Sheet(const std::vector<Cell>& cells, int columns, const QSize& photograph) {
    const QSize cell(kCellWidth, kCellWidth * photograph.height() / photograph.width() + kTextHeight);
    const int count = static_cast<int>(cells.size()), rows = (count + columns - 1) / columns;
    QImage sheet(columns * cell.width(), rows * cell.height(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < count; ++i) {
        const QRect box(QPoint(i % columns * cell.width(), i / columns * cell.height()), cell);
        const QRect picture = box.adjusted(2, 2, -2, -kTextHeight);
        const Cell& shown = cells[static_cast<std::size_t>(i)];
        if (!shown.picture.isNull())
            painter.drawImage(picture.topLeft(),
                              shown.picture.scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        painter.drawText(QRect(box.left() + 4, picture.bottom() + 1, box.width() - 8, kTextHeight - 2),
                         Qt::AlignLeft | Qt::AlignVCenter, shown.text);
    }
    return sheet;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("contact_sheet PHOTOGRAPH TARGET_FOLDER\n", stderr);
        return 2;
    }
    try {
        const QImage photograph = ReadPicture(QString::fromLocal8Bit(argv[1]))
                                      .scaled(kWorking, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                                      .convertToFormat(QImage::Format_RGB32);
        const QDir folder(QString::fromLocal8Bit(argv[2]));
        WritePicture(Sheet(AtDefaults(photograph), 8, photograph.size()), folder.filePath("defaults.png"));
        WritePicture(Sheet(AtSliderEnds(photograph), 8, photograph.size()), folder.filePath("slider_ends.png"));
    } catch (const Error& error) {
        std::fprintf(stderr, "contact_sheet: %s\n", error.what());
        return 1;
    }
    return 0;
}
