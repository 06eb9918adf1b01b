// kelu-cli replay: does what a recipe tells on its own picture or on others, bit for bit; or makes a film of it.
// SPDX-License-Identifier: MIT
#include <QFileInfo>

#include "cli/batch.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "document/film.h"
#include "document/recipe.h"
#include "document/replay.h"
#include "effects/catalogue/render_onto.h"
#include "pictures/picture_file.h"
#include "platform/atomic_file.h"
#include "platform/error.h"

namespace kelu::cli {

namespace {

bool MakeFilmFile(const Recipe& recipe, const QString& in, const QString& out, bool fit, bool force) {
    const auto mayWrite = [&] {
        if (!force && QFileInfo::exists(out))
            throw Error(kFileError, QStringLiteral("is there already; --force replaces it"));
    };
    if (!RunForFile(out, mayWrite)) return false;
    QByteArray film;
    const bool made = RunForFile(in, [&] {
        film = MakeFilm(recipe, ReadPicture(in), &RenderEffectOn, fit, [&in](int percent) {
            ShowProgress(in, percent);
            return true;
        });
    });
    return made && RunForFile(out, [&] { WriteFile(out, film); });
}

}  // namespace

int ReplayCommand(const QStringList& words) {
    const Arguments arguments =
        Parse(words, Batch::Options() + QStringList{"film"}, Batch::Flags() + QStringList{"fit"});
    if (arguments.words.isEmpty())
        throw UsageError(QStringLiteral("replay takes a recipe, pictures, and a name for the result or --out-dir"));
    const QString recipePath = arguments.words[0];
    QStringList files = arguments.words.mid(1);
    const bool fit = arguments.Has("fit");

    QByteArray text;
    Recipe recipe;
    const auto read = [&] {
        text = ReadRecipeBytes(recipePath);
        recipe = ReadRecipeText(text);
        recipe.folder = QFileInfo(recipePath).path();
        CheckWhole(recipe);
    };
    if (!RunForFile(recipePath, read)) return kFailed;
    if (recipe.effects != kEffectDefinitions)
        PrintError(
            QStringLiteral("%1: made with other versions of the effects; the result may differ").arg(recipePath));

    // Without a picture named, the one that the recipe was made on.
    const bool hasFilm = arguments.Has("film");
    const qsizetype results = hasFilm || arguments.Has("out-dir") ? 0 : 1;
    if (files.size() == results && !arguments.Has("list")) files.prepend(PictureOfRecipe(recipe, recipePath));
    if (hasFilm) {
        if (files.size() != 1) throw UsageError(QStringLiteral("--film takes one picture and makes no other result"));
        return MakeFilmFile(recipe, files[0], arguments.options["film"], fit, arguments.Has("force")) ? kDone : kFailed;
    }
    Batch batch(arguments, files);
    return batch.Run((fit ? "replay --fit " : "replay ") + text, [&](const QString& in, Surfaces& made) {
        Replay replay(recipe, made, &RenderEffectOn);
        replay.Open(ReadPhotograph(in), fit);
        replay.DoAll([&in](int percent) {
            ShowProgress(in, percent);
            return true;
        });
    });
}

}  // namespace kelu::cli
