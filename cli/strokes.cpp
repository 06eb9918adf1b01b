// SPDX-License-Identifier: MIT
#include "cli/strokes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "canvas/surface.h"
#include "platform/error.h"

namespace kelu::cli {

namespace {

constexpr int kLargestSize = 100;        // as the brush slider
constexpr double kFarthest = 1'000'000;  // image pixels
constexpr int kFullStrength = 255;

[[noreturn]] void Refuse(const QString& what) {
    throw Error(kFileError, QStringLiteral("not a strokes file: ") + what, QStringLiteral("ReadStrokes"));
}

QPoint PointOf(const QJsonValue& value) {
    const QJsonArray pair = value.toArray();
    if (!value.isArray() || pair.size() != 2 || !pair[0].isDouble() || !pair[1].isDouble())
        Refuse(QStringLiteral("a point is a pair of numbers"));
    const double x = pair[0].toDouble();
    const double y = pair[1].toDouble();
    if (!(std::abs(x) <= kFarthest) || !(std::abs(y) <= kFarthest)) Refuse(QStringLiteral("a point lies too far away"));
    return {static_cast<int>(std::nearbyint(x)), static_cast<int>(std::nearbyint(y))};
}

}  // namespace

std::vector<Stroke> ReadStrokes(const QByteArray& json) {
    QJsonParseError fault;
    const QJsonDocument file = QJsonDocument::fromJson(json, &fault);
    if (fault.error != QJsonParseError::NoError) Refuse(fault.errorString());
    const QJsonValue list = file.object()[QStringLiteral("strokes")];
    if (!list.isArray()) Refuse(QStringLiteral("no list of strokes"));

    std::vector<Stroke> strokes;
    for (const QJsonValue& value : list.toArray()) {
        Stroke stroke;
        stroke.size = value[QStringLiteral("size")].toInt();
        if (stroke.size < 1 || stroke.size > kLargestSize) Refuse(QStringLiteral("a size is a number from 1 to 100"));
        if (!value[QStringLiteral("points")].isArray()) Refuse(QStringLiteral("a stroke without points"));
        for (const QJsonValue& point : value[QStringLiteral("points")].toArray())
            stroke.points.push_back(PointOf(point));
        if (stroke.points.empty()) Refuse(QStringLiteral("a stroke without points"));
        strokes.push_back(std::move(stroke));
    }
    return strokes;
}

void PaintStrokes(const std::vector<Stroke>& strokes, const Surface& pen, Surface& canvas) {
    for (const Stroke& stroke : strokes) {
        canvas.SelectBrush(pen.MakeBrush(stroke.size));
        canvas.SetBrushSize(stroke.size);
        canvas.PushUndo();
        QPoint last = stroke.points.front();
        const std::size_t first = stroke.points.size() == 1 ? 0 : 1;
        for (std::size_t i = first; i < stroke.points.size(); ++i) {
            const QPoint point = stroke.points[i];
            canvas.DrawBrushLine(last.x(), last.y(), point.x(), point.y(), kFullStrength);
            last = point;
        }
    }
}

}  // namespace kelu::cli
