// The operations of PixTwix: name, parameters, and the engine's kernel with what it is given; they are declared and
// defined from this list. Coordinates and radii are image pixels, colours bytes; the last Boolean of most has no
// meaning.
// SPDX-License-Identifier: MIT
#pragma once

// clang-format off
#define KELU_OPERATIONS(X) \
    X(FxGrayscale, (int mode, bool), (engine::Grayscale, mode)) \
    X(FxSepia, (int strength, bool), (engine::Sepia, strength)) \
    X(FxBlackWhite, (int threshold, bool), (engine::BlackWhite, threshold)) \
    X(FxBlackWhiteDither, (int hardness, bool), (engine::BlackWhiteDither, hardness)) \
    X(FxNoise, (int amount, bool eachChannel, bool), (engine::Noise, amount, eachChannel)) \
    X(FxAntialias, (bool), (engine::Antialias)) \
    X(FxBlobs, (int radius, int spacing, bool), (engine::Blobs, radius, spacing)) \
    X(FxBlur1, (int radius, bool), (engine::Blur1, radius)) \
    X(FxBlur2, (int x, int y, int length, bool), (engine::Blur2, engine::Point{x, y}, length)) \
    X(FxBlur3, (int x, int y, int angle, bool), (engine::Blur3, engine::Point{x, y}, angle)) \
    X(FxBrightness1, (int brightness, bool), (engine::Brightness1, brightness)) \
    /* x counts in steps of four pixels */ \
    X(FxBrightness2, (int x, int y, int brightness, bool), \
       (engine::Brightness2, engine::Point{4 * x, y}, brightness)) \
    X(FxContrast, (int contrast, bool), (engine::Contrast, contrast)) \
    X(FxColorGradient, (int x, int y, int strength, bool), (engine::ColorGradient, engine::Point{x, y}, strength)) \
    X(FxColorCorrection, (int red1, int green1, int blue1, int red2, int green2, int blue2, bool), \
       (engine::ColorCorrection, engine::Color{red1, green1, blue1}, engine::Color{red2, green2, blue2})) \
    X(FxColorEmboss, (int direction, bool), (engine::ColorEmboss, direction)) \
    X(FxColorize, (int red, int green, int blue, bool), (engine::Colorize, engine::Color{red, green, blue})) \
    /* the second colour as red, blue, green */ \
    X(FxFalseColor, (int red1, int green1, int blue1, int red2, int blue2, int green2, bool), \
       (engine::FalseColor, engine::Color{red1, green1, blue1}, engine::Color{red2, green2, blue2})) \
    X(FxEnhanceEdges, (bool), (engine::EnhanceEdges)) \
    X(FxEmboss, (int direction, int intensity, int grayLevel, bool, bool), \
       (engine::Emboss, direction, intensity, grayLevel)) \
    X(FxErodeBorder, (int depth, int red, int green, int blue), \
       (engine::ErodeBorder, depth, engine::Color{red, green, blue})) \
    X(FxExplode, (int x, int y, int amount), (engine::Explode, engine::Point{x, y}, amount)) \
    X(FxFadeBorders, (int width, int red, int green, int blue), \
       (engine::FadeBorders, width, engine::Color{red, green, blue})) \
    X(FxFishEye, (int red, int green, int blue), (engine::FishEye, engine::Color{red, green, blue})) \
    X(FxHighPass, (int kernel, bool), (engine::HighPass, kernel)) \
    X(FxImplode, (int x, int y, int amount, int red, int green, int blue), \
       (engine::Implode, engine::Point{x, y}, amount, engine::Color{red, green, blue})) \
    X(FxIrregularBorders, (int width, int red, int green, int blue), \
       (engine::IrregularBorders, width, engine::Color{red, green, blue})) \
    X(FxMaximum, (int window, int radius, bool), (engine::Maximum, window, radius)) \
    X(FxMinimum, (int window, int radius, bool), (engine::Minimum, window, radius)) \
    X(FxMelt, (bool), (engine::Melt)) \
    X(FxMosaic, (int blockWidth, int blockHeight, bool), (engine::Mosaic, blockWidth, blockHeight)) \
    X(FxNegative, (bool red, bool green, bool blue, bool), (engine::Negative, red, green, blue)) \
    X(FxOilPainting, (int radius, bool), (engine::OilPainting, radius)) \
    X(FxPosterize, (int redBits, int greenBits, int blueBits, bool), \
       (engine::Posterize, redBits, greenBits, blueBits)) \
    X(FxReverse, (), (engine::Reverse)) \
    X(FxSaturation1, (int saturation, bool), (engine::Saturation1, saturation)) \
    X(FxSaturation2, (int x, int y, int saturation, bool), (engine::Saturation2, engine::Point{x, y}, saturation)) \
    X(FxScramble, (int side, int percentMoved), (engine::Scramble, side, percentMoved)) \
    X(FxSolarize, (int red, int green, int blue, bool invertAbove, bool), \
       (engine::Solarize, red, green, blue, invertAbove)) \
    X(FxSpecialFilter, (int kernel, int offset, bool), (engine::SpecialFilter, kernel, offset)) \
    X(FxSketch, (), (engine::Sketch)) \
    X(FxSpray, (int radius, bool), (engine::Spray, radius)) \
    X(FxSwapColors, (int pair, bool), (engine::SwapColors, pair)) \
    X(FxTile, (int side, int displacement), (engine::Tile, side, displacement)) \
    X(FxTint, (int red, int green, int blue, bool), (engine::Tint, engine::Color{red, green, blue})) \
    /* weights row by row, their divisor, an offset */ \
    X(FxFreeze, (float w1, float w2, float w3, float w4, float w5, float w6, float w7, float w8, \
                 float w9, float divisor, int offset, bool), \
       (engine::Freeze, engine::Weights3x3{w1, w2, w3, w4, w5, w6, w7, w8, w9}, divisor, offset)) \
    X(FxWind, (int x, float y, bool), (engine::Wind, x, RoundToEven(y)))
// clang-format on
