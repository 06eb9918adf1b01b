// Rendering of the drawings in the resource; see icons.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/icons.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

#include "controls/theme/theme.h"
#include "platform/units.h"

// At namespace level outside ours, as the resource compiler wants it: the linker drops resources of static libraries
// that nobody names.
static void NameResources() { Q_INIT_RESOURCE(theme); }

namespace kelu::theme {

namespace {

const QString kFolder = QStringLiteral(":/kelu/icons/");

/// The drawing's text, or empty when there is none. Read once.
QByteArray Drawing(const QString& name) {
    static QHash<QString, QByteArray> drawings;
    const auto known = drawings.constFind(name);
    if (known != drawings.constEnd()) return *known;
    NameResources();
    QByteArray text;
    if (QFile file(kFolder + name + QStringLiteral(".svg")); file.open(QIODevice::ReadOnly)) text = file.readAll();
    drawings.insert(name, text);
    return text;
}

/// The tint for the state of a button or row.
QColor StateTint(QIcon::Mode mode, QIcon::State state) {
    if (mode == QIcon::Disabled) return kDisabledText;
    if (state == QIcon::On) return kAccent;
    return mode == QIcon::Normal ? kText : kBrightText;
}

class DrawingEngine : public QIconEngine {
 public:
    explicit DrawingEngine(const QString& name) : name_(name) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        PaintIcon(*painter, name_, rect, qMin(rect.width(), rect.height()), StateTint(mode, state));
    }
    // `size` is in device pixels here: QIcon has multiplied it by the ratio already.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return IconPixmap(name_, qMin(size.width(), size.height()), 1.0, StateTint(mode, state));
    }
    QIconEngine* clone() const override { return new DrawingEngine(*this); }
    QString key() const override { return QStringLiteral("kelu"); }
    QString iconName() override { return name_; }

 private:
    QString name_;
};

}  // namespace

QIcon Icon(const QString& name) {
    if (Drawing(name).isEmpty()) return {};
    return QIcon(new DrawingEngine(name));
}

QPixmap IconPixmap(const QString& name, int size, qreal ratio, const QColor& tint) {
    const int pixels = qMax(1, RoundToEven(size * ratio));
    const QString key = QStringLiteral("kelu/%1/%2/%3").arg(name).arg(pixels).arg(tint.rgba(), 0, 16);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(pixels, pixels);
        pixmap.fill(Qt::transparent);
        QByteArray drawing = Drawing(name);
        if (!drawing.isEmpty()) {
            drawing.replace("currentColor", tint.name().toLatin1());
            QSvgRenderer renderer(drawing);
            QPainter painter(&pixmap);
            painter.setRenderHint(QPainter::Antialiasing);
            renderer.render(&painter, QRectF(0, 0, pixels, pixels));
        }
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

void PaintIcon(QPainter& painter, const QString& name, const QRect& box, int size, const QColor& tint) {
    if (size < 1) return;
    const qreal ratio = painter.device()->devicePixelRatioF();
    const auto snapped = [ratio](qreal length) { return std::floor(length * ratio) / ratio; };
    const QPointF corner(box.left() + snapped((box.width() - size) / 2.0),
                         box.top() + snapped((box.height() - size) / 2.0));
    painter.drawPixmap(corner, IconPixmap(name, size, ratio, tint));
}

QPixmap LogoPixmap(int height, qreal ratio) {
    QSvgRenderer renderer(Drawing(QStringLiteral("logo")));
    const QSizeF size = QSizeF(renderer.defaultSize()).scaled(1e6, height, Qt::KeepAspectRatio) * ratio;
    QPixmap pixmap(size.toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QStringList IconNames() {
    NameResources();
    QStringList names;
    for (const QString& file : QDir(kFolder).entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name))
        names.append(file.chopped(4));
    return names;
}

namespace {

CursorPicture Cursor(const char* name, const QPoint& hotSpot, qreal ratio) {
    return {IconPixmap(QString::fromLatin1(name), 32, ratio, kBrightText), hotSpot};
}

}  // namespace

CursorPicture BrushCursor(qreal ratio) { return Cursor("cursor_brush", {3, 28}, ratio); }
CursorPicture SmudgeCursor(qreal ratio) { return Cursor("cursor_smudge", {5, 27}, ratio); }
CursorPicture CrossCursor(qreal ratio) { return Cursor("cursor_cross", {15, 15}, ratio); }

}  // namespace kelu::theme
