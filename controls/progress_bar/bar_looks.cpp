// The ten looks. Each brings its ground, chrome and fill; text is the same for all, in two colours for two of them.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/bar_looks.h"

#include <QFontMetrics>
#include <algorithm>

#include "controls/progress_bar/bar_strokes.h"
#include "controls/progress_bar/hatch.h"
#include "controls/system_look/draw_edge.h"
#include "platform/units.h"

namespace kelu::bar {
namespace {

constexpr ColorRef kWhite = 0xFFFFFF;
constexpr ColorRef kBlackInk = 0x000000;
constexpr ColorRef kFrameGrey = 0x686868;

/// What a look draws with: the painter, the client area from (0, 0), and the state.
struct Canvas {
    QPainter& painter;
    Box client;
    const State& state;

    /// Chunked looks are full a little before 100 percent.
    double Fraction() const { return state.percent / 98.0; }

    /// Client area less `inset` pixels on each side, cut at the position `percent` / `whole` along the bar: from the
    /// left, or from the bottom of a vertical bar.
    Box Filled(int inset, int whole) const {
        Box box{inset, inset, client.right - inset, client.bottom - inset};
        if (state.vertical) {
            box.top = std::max(box.top, client.bottom - PartOf(client.Height(), state.percent, whole));
        } else {
            box.right = std::min(box.right, PartOf(client.Width(), state.percent, whole));
        }
        return box;
    }
};

/// The shade that lies on the ground as `onWhite` does on white.
ColorRef Shade(const Canvas& canvas, ColorRef onWhite) {
    const ColorRef ground = canvas.state.ground;
    ColorRef shade = 0;
    for (const int shift : {0, 8, 16}) shade |= (ground >> shift & 0xFF) * (onWhite >> shift & 0xFF) / 255 << shift;
    return shade;
}

/// A box filled by a blend across the bar: from top to bottom, or from left to right of a vertical bar.
void BlendAcross(const Canvas& canvas, const Box& box, ColorRef first, ColorRef second) {
    if (box.Width() <= 0 || box.Height() <= 0) return;
    if (canvas.state.vertical) {
        DrawGradient(canvas.painter, first, second, box.left, box.top, box.Width() - 1, box.bottom,
                     GradientLines::kVertical);
    } else {
        DrawGradient(canvas.painter, first, second, box.left, box.top, box.right, box.Height() - 1,
                     GradientLines::kHorizontal);
    }
}

/// A box filled by a blend along the bar, in the direction in which it grows.
void BlendAlong(const Canvas& canvas, const Box& box, ColorRef first, ColorRef second) {
    if (box.Width() <= 0 || box.Height() <= 0) return;
    if (canvas.state.vertical) {
        DrawGradient(canvas.painter, second, first, box.left, box.top, box.right, box.Height() - 1,
                     GradientLines::kHorizontal);
    } else {
        DrawGradient(canvas.painter, first, second, box.left, box.top, box.Width() - 1, box.bottom,
                     GradientLines::kVertical);
    }
}

/// Frame, inner shades and rounded corners of the looks 0 to 2.
void PaintThemeChrome(const Canvas& canvas) {
    QPainter& painter = canvas.painter;
    const int right = canvas.client.right - 1;
    const int bottom = canvas.client.bottom - 1;
    const ColorRef outerShade = Shade(canvas, 0xBEBEBE);
    const ColorRef innerShade = Shade(canvas, 0xEFEFEF);
    DrawLine(painter, 2, 2, right, 2, innerShade);
    DrawLine(painter, 2, 2, 2, bottom, innerShade);
    DrawLine(painter, right - 1, 2, right - 1, bottom, innerShade);
    DrawLine(painter, 2, bottom - 1, right, bottom - 1, innerShade);
    DrawLine(painter, 1, 1, right, 1, outerShade);
    DrawLine(painter, 1, 1, 1, bottom, outerShade);
    FrameBox(painter, canvas.client, kFrameGrey);

    struct Pixel {
        int x, y;
        ColorRef color;
    };
    // From the outside in: three that round the frame, then those on the ground, the brightest innermost.
    const Pixel corner[] = {{0, 0, 0x777777},
                            {1, 0, 0x7D7E7F},
                            {0, 1, 0x7D7E7F},
                            {1, 1, Shade(canvas, 0xA6ABAC)},
                            {2, 1, Shade(canvas, 0xA7ABAC)},
                            {1, 2, Shade(canvas, 0xA7ABAC)},
                            {2, 2, outerShade},
                            {3, 3, canvas.state.ground}};
    for (const Pixel& pixel : corner) {
        for (const int x : {pixel.x, right - pixel.x}) {
            for (const int y : {pixel.y, bottom - pixel.y}) FillBox(painter, {x, y, x + 1, y + 1}, pixel.color);
        }
    }
}

void FillChunksHorizontal(const Canvas& canvas, const Box& bar) {
    const ColorRef color = canvas.state.color;
    const ColorRef light = Lighten(color, 150);
    const int end = FillEnd(bar, canvas.client);
    const int bottom = canvas.client.bottom - 8;
    DrawGradient(canvas.painter, light, color, 4, 3, end, 6, GradientLines::kHorizontal);
    FillBox(canvas.painter, {4, 8, end, bottom}, color);
    DrawGradient(canvas.painter, color, light, 4, bottom - 2, end, 6, GradientLines::kHorizontal);
}

void FillChunksVertical(const Canvas& canvas, const Box& bar) {
    const ColorRef color = canvas.state.color;
    const ColorRef light = Lighten(color, 150);
    const Box& client = canvas.client;
    DrawGradient(canvas.painter, light, color, 4, bar.top, 4, client.bottom, GradientLines::kVertical);
    FillBox(canvas.painter, {9, bar.top, client.right - 8, client.bottom}, color);
    DrawGradient(canvas.painter, color, light, client.right - 8, bar.top, 4, client.bottom, GradientLines::kVertical);
}

/// Three chunks, the last one darkest, that run from one end of the bar to the other as the percent grows.
void PaintSearchGroup(const Canvas& canvas) {
    constexpr int kChunk = 10;
    constexpr int kStep = kChunk + 2;
    constexpr int kGroup = 3 * kStep - 2;
    const Box inside{kChunkInset, kChunkInset, canvas.client.right - kChunkInset, canvas.client.bottom - kChunkInset};
    const int length = canvas.state.vertical ? inside.Height() : inside.Width();
    const int start = PartOf(std::max(0, length - kGroup), canvas.state.percent, 100);
    for (int i = 0; i < 3; ++i) {
        Box chunk = inside;
        if (canvas.state.vertical) {
            chunk.bottom = inside.bottom - start - i * kStep;
            chunk.top = std::max(inside.top, chunk.bottom - kChunk);
        } else {
            chunk.left = inside.left + start + i * kStep;
            chunk.right = std::min(inside.right, chunk.left + kChunk);
        }
        BlendAcross(canvas, chunk, Lighten(canvas.state.color, 220 - 40 * i),
                    Lighten(canvas.state.color, 200 - 40 * i));
    }
}

void PaintTheme(const Canvas& canvas) {
    Box client = canvas.client;
    client.left += kChunkInset;
    const Chunks chunks{canvas.state.look == kChunked ? 6 : 2, 2};
    if (canvas.state.look == kSearching) {
        PaintSearchGroup(canvas);
    } else if (canvas.state.vertical) {
        const Box bar = VerticalBar(client, canvas.Fraction(), chunks);
        FillChunksVertical(canvas, bar);
        if (canvas.state.look == kChunked) {
            for (const Box& gap : VerticalGaps(client, bar, chunks)) FillBox(canvas.painter, gap, canvas.state.ground);
        }
    } else {
        const Box bar = ShownBar(HorizontalBar(client, canvas.Fraction(), chunks));
        FillChunksHorizontal(canvas, bar);
        if (canvas.state.look == kChunked) {
            for (const Box& gap : HorizontalGaps(client, bar, chunks))
                FillBox(canvas.painter, gap, canvas.state.ground);
        }
    }
    PaintThemeChrome(canvas);
}

void PaintFlat(const Canvas& canvas) {
    FrameBox(canvas.painter, canvas.client, Lighten(canvas.state.color, 100));
    FillBox(canvas.painter, canvas.Filled(1, 100), Lighten(canvas.state.color, 180));
}

void PaintSunken(const Canvas& canvas) {
    DrawEdge(canvas.painter, canvas.client.ToRect(), kEdgeEtched);
    BlendAlong(canvas, canvas.Filled(2, 100), Lighten(canvas.state.color, 200), Lighten(canvas.state.color, 140));
}

void PaintGlow(const Canvas& canvas) {
    const ColorRef color = canvas.state.color;
    const Box& client = canvas.client;
    FrameBox(canvas.painter, client, Lighten(color, 10));
    BlendAcross(canvas, {2, 2, client.right - 2, client.bottom - 2}, Lighten(color, 100), color);
    const Box filled = canvas.Filled(3, 101);
    BlendAcross(canvas, filled, Lighten(color, 250), color);
    if (canvas.state.vertical) {
        DrawLine(canvas.painter, 3, filled.top, client.right - 3, filled.top, Lighten(color, 25));
    } else if (filled.right > filled.left) {
        DrawLine(canvas.painter, filled.right, 3, filled.right, client.bottom - 3, Lighten(color, 25));
    }
}

void PaintBlack(const Canvas& canvas) {
    const ColorRef color = canvas.state.color;
    const Box& client = canvas.client;
    FrameBox(canvas.painter, client, Blend(color, kBlackInk, 200));
    const Box inside{2, 2, client.right - 3, client.bottom - 2};
    BlendAcross(canvas, inside, Blend(color, kBlackInk, 190), Blend(color, kBlackInk, 240));

    const Chunks chunks;
    Box bar = canvas.state.vertical ? VerticalBar(inside, canvas.Fraction(), chunks)
                                    : HorizontalBar(inside, canvas.Fraction(), chunks);
    bar.right = std::min(bar.right, inside.right);
    bar.top = std::max(bar.top, inside.top);
    BlendAcross(canvas, bar, color, Blend(color, kBlackInk, 140));
    for (const Box& gap :
         canvas.state.vertical ? VerticalGaps(inside, bar, chunks) : HorizontalGaps(inside, bar, chunks)) {
        FillBox(canvas.painter, gap, kBlackInk);
    }
}

void PaintHatched(const Canvas& canvas) {
    DrawEdge(canvas.painter, canvas.client.ToRect(), kEdgeBump);
    const Box filled = canvas.Filled(2, 101);
    FillBox(canvas.painter, filled, Lighten(canvas.state.color, 140));
    FillHatched(canvas.painter, filled.ToRect(), canvas.state.brushStyle, TranslateColor(canvas.state.color));
}

void PaintPattern(const Canvas& canvas) {
    DrawEdge(canvas.painter, canvas.client.ToRect(), kSunkenOuter);
    const QRect filled = canvas.Filled(2, 101).ToRect();
    // The pattern hangs on the client area's corner, so it stands still while the bar grows.
    if (!canvas.state.image.isNull() && !filled.isEmpty()) {
        canvas.painter.drawTiledPixmap(filled, canvas.state.image, filled.topLeft());
    }
}

/// A bar of glass: brighter upper half, an edge of shade in the middle.
void PaintGlass(const Canvas& canvas) {
    const ColorRef color = canvas.state.color;
    FrameBox(canvas.painter, canvas.client, Blend(color, kBlackInk, 200));
    Box upper = canvas.Filled(2, 100);
    Box lower = upper;
    if (canvas.state.vertical) {
        lower.left = upper.right = (upper.left + upper.right) / 2;
    } else {
        lower.top = upper.bottom = (upper.top + upper.bottom) / 2;
    }
    BlendAcross(canvas, upper, Lighten(color, 120), Lighten(color, 50));
    BlendAcross(canvas, lower, color, Lighten(color, 60));
}

void PaintTextIn(const Canvas& canvas, const Box& part, const Box& textBox, const QString& text, ColorRef color) {
    const QRect visible = part.ToRect() & textBox.ToRect();
    if (visible.isEmpty()) return;
    canvas.painter.save();
    canvas.painter.setClipRect(visible);
    canvas.painter.setPen(TranslateColor(color));
    canvas.painter.drawText(QPoint(textBox.left, textBox.top + QFontMetrics(canvas.state.font).ascent()), text);
    canvas.painter.restore();
}

void PaintText(const Canvas& canvas) {
    const int look = canvas.state.look;
    const QString text = look == kSearching ? QStringLiteral("Searching..")
                                            : QString::number(canvas.state.percent) + QStringLiteral(" %");
    const QFontMetrics metrics(canvas.state.font);
    const Box& client = canvas.client;
    const Box textBox = TextBox({client.right, client.bottom}, {metrics.horizontalAdvance(text), metrics.height()});
    canvas.painter.setFont(canvas.state.font);

    const bool split = look == kBlack || look == kGlass;
    Box ahead = client;
    Box covered{0, 0, 0, 0};
    if (split) {
        covered = ahead;
        if (canvas.state.vertical) {
            covered.top = ahead.bottom = client.bottom - PartOf(client.Height(), canvas.state.percent, 100);
        } else {
            covered.right = ahead.left = PartOf(client.Width(), canvas.state.percent, 100);
        }
    }
    PaintTextIn(canvas, ahead, textBox, text, look == kBlack ? 0xC0C0C0 : kBlackInk);
    if (split) PaintTextIn(canvas, covered, textBox, text, look == kBlack ? Lighten(canvas.state.color, 80) : kWhite);
}

}  // namespace

void Paint(QPainter& painter, const QSize& size, const State& state) {
    const Canvas canvas{painter, {0, 0, size.width(), size.height()}, state};
    FillBox(painter, canvas.client, state.look == kBlack ? kBlackInk : state.ground);
    switch (state.look) {
        case kChunked:
        case kSmooth:
        case kSearching:
            PaintTheme(canvas);
            break;
        case kFlat:
            PaintFlat(canvas);
            break;
        case kSunken:
            PaintSunken(canvas);
            break;
        case kGlow:
            PaintGlow(canvas);
            break;
        case kBlack:
            PaintBlack(canvas);
            break;
        case kHatched:
            PaintHatched(canvas);
            break;
        case kPattern:
            PaintPattern(canvas);
            break;
        case kGlass:
            PaintGlass(canvas);
            break;
        default:
            break;
    }
    if (state.showText) PaintText(canvas);
}

}  // namespace kelu::bar
