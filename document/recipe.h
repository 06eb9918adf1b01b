// What was done to a picture, as text: the file, each Apply with its inputs, each stroke, undo and redo. The journal of
// a running program and the recipe that a user keeps are this one text; docs/recipes.md tells the format.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPoint>
#include <QSize>
#include <QString>
#include <vector>

#include "document/session_log.h"

namespace kelu {

inline constexpr int kRecipeFormat = 1;

struct Recipe {
    enum class Kind : std::uint8_t {
        Apply,  ///< `number` is a row of `renders`
        Brush,  ///< later strokes have this one, `number` is its diameter; 0: none
        Soft,   ///< the brush's softness is `number`
        Press,  ///< opens an undo level
        Line,   ///< one segment
        All,    ///< the paint over the whole picture, as one undo level
        Undo,
        Redo,
    };
    struct Step {
        Kind kind;
        BrushSource source{};
        std::uint8_t softness = 0;  ///< of a brush, 0 to 100
        int number = 0;
        QPoint from{}, to{};  ///< image pixels
    };
    struct Render {
        int effect = 0;
        EffectInputs inputs;
        bool done = true;  ///< false: it was refused, and the pen became a copy of the canvas
    };

    QString folder;  ///< where the pictures lie that lie beside it
    bool isJournal = false;
    int effects = 0;  ///< version of the effects' definitions that it was made with
    QString file;     ///< of the picture, as written
    qint64 fileBytes = -1;
    QByteArray fileSum;  ///< SHA-1 of the file, empty: not told
    struct KeptPicture {
        QString name;           ///< of a file in `folder`; empty: none
        bool hasAlpha = false;  ///< Format_ARGB32, even if all of it is opaque
    };
    KeptPicture kept;  ///< a copy of the opened picture
    struct KeptBrush {
        KeptPicture paint;
        int size = 0;  ///< a diameter
        int softness = 0;
    };
    KeptBrush brush;      ///< the first one, where it was still that of the picture before
    QSize size;           ///< of the picture in the document
    bool shrunk = false;  ///< the file was larger and the rule of opening was used
    std::vector<Render> renders;
    std::vector<Step> steps;

    bool unsaved = false;        ///< something was done after the last save
    QString fault;               ///< why reading ended before the text did; empty: it did not
    qsizetype certainBytes = 0;  ///< length of what was read without a fault
    std::uint32_t check = 0;     ///< of a journal, up to there
};

/// Reads as far as all is certain; what is wrong then stands in `fault`. Never throws for bad text. Hostile text ends
/// at bounds on counts and numbers, not in memory.
Recipe ReadRecipeText(const QByteArray& text);
/// The text of a file. Throws Error(kFileError): not to be opened, or too large to be a recipe.
QByteArray ReadRecipeBytes(const QString& path);
Recipe ReadRecipeFile(const QString& path);
/// Throws Error(kFileError) when the recipe has a fault.
void CheckWhole(const Recipe& recipe);

/// The picture that a recipe in the file `recipePath` names; paths are relative to its folder.
QString PictureOfRecipe(const Recipe& recipe, const QString& recipePath);
/// Writes it to a file; the brush's paint that lies in its folder is copied beside that. Throws Error(kFileError).
void WriteRecipe(Recipe recipe, const QString& path);
/// It as lines again, as a journal keeps them.
QByteArray LinesOf(const Recipe& recipe);

/// The lines of the text, each with its line end.
QByteArray HeaderLine(bool isJournal);
QByteArray FileLine(const QString& path);
QByteArray OpenLine(const QSize& size, bool shrunk);
QByteArray BrushLine(const Recipe::Step& brush);
QByteArray ApplyLine(const Recipe::Render& render);
/// Empty without a paint.
QByteArray PaintLine(const Recipe::KeptBrush& brush);

/// The check of a journal's line, which goes on from the one of the line before it (0 at first), and the line with it.
std::uint32_t NextCheck(std::uint32_t check, QByteArrayView line);
QByteArray WithChecks(const QByteArray& lines, std::uint32_t& check);

}  // namespace kelu
