// Does again what a recipe tells, with the same surfaces and in the same order, and so gives the same bytes.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <functional>

#include "document/document.h"
#include "document/recipe.h"

namespace kelu {

/// The effect rendered over the whole picture. Throws Error when there is no such effect, when it doesn't take these
/// inputs, and when memory is short.
using EffectRenderer = std::function<QImage(const QImage& picture, int effect, const EffectInputs& inputs)>;

/// The recipe for a picture of another size: points move with it, brushes and lengths follow its mean scale.
Recipe FittedRecipe(Recipe recipe, const QSize& size);

class Replay {
 public:
    /// Both must outlive the replay. Nothing is done yet.
    Replay(const Recipe& recipe, Surfaces& surfaces, EffectRenderer render)
        : recipe_(recipe), surfaces_(surfaces), render_(std::move(render)) {}

    /// Puts in the picture, shrunk where the recipe says so, as every open does. Throws Error(kInvalidPicture) when it
    /// has another size than the recipe's, or with `fit` makes the recipe fit.
    void Open(const Photograph& photograph, bool fit = false);
    const std::vector<Recipe::Step>& Steps() const { return recipe_.steps; }
    bool AtEnd() const { return next_ == recipe_.steps.size(); }
    /// The next step. Throws Error; what was done so far stands.
    void DoNext();
    /// All that is left; `progress` gets percent and answers whether to go on. False: it was told to stop.
    bool DoAll(const std::function<bool(int percent)>& progress = {});

    /// The recipe as it is played: fitted, if it had to be.
    const Recipe& What() const { return recipe_; }
    /// An effect was rendered, so the brush is armed.
    bool EffectReady() const { return effectReady_; }
    /// What the first brush painted with, where that was of the picture before.
    const BrushHandle& FirstBrush() const { return firstBrush_; }

 private:
    Recipe recipe_;
    Surfaces& surfaces_;
    EffectRenderer render_;
    BrushHandle firstBrush_;
    BrushHandle lastRender_;  ///< the brush last made of the pen
    std::size_t next_ = 0;
    bool effectReady_ = false;
};

/// The picture that a journal began with: the copy beside it, or the file if it is still the same. Throws
/// Error that says what is amiss.
Photograph ReadJournalPicture(const Recipe& recipe);

}  // namespace kelu
