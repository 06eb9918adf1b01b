// Draws the program's icon in the sizes that desktops ask for: kelu_make_icons ICON.svg FOLDER writes FOLDER/SIZE.png.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QSvgRenderer icon(argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (!icon.isValid() || !QDir().mkpath(QString::fromLocal8Bit(argv[2]))) {
        std::fputs("usage: kelu_make_icons ICON.svg FOLDER\n", stderr);
        return 2;
    }
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        icon.render(&painter);
        painter.end();
        if (!picture.save(QDir(QString::fromLocal8Bit(argv[2])).filePath(QString::number(size) + ".png"))) return 1;
    }
    return 0;
}
