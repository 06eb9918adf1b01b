// The selectors of the effects: the text list lstSFX, the picture toolbar TBSFX in its pager pagerTB1, and all pictures
// side by side over the window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>

#include "document/commands.h"
#include "document/shared_state.h"

class QWidget;

namespace kelu {

class EffectOverview;
class ListEx;
class Pager;
class ToolButton;
class Toolbox;

/// Which of list and toolbar shows, and where, is the window's business. All lead to the same signal; the list is not
/// kept in step with the others.
class EffectSelectors : public QObject {
    Q_OBJECT

 public:
    /// The controls become children of `parent` and are hidden at first.
    EffectSelectors(SharedState& state, QWidget* parent);

    /// Fills the list and selects its first row.
    void SetUpSFXList();
    /// Tips of the picture buttons.
    void LoadTips();
    /// The picture of one effect's buttons; their looks under the pointer and pressed follow from it.
    void ShowPicture(int number, const QImage& picture);
    /// Opens the overview.
    void ShowAll();
    /// Shows what is in the way of a choice; empty: nothing.
    void SetObstacle(const QString& obstacle);

    ToolButton* const cmdAllEffects;  ///< opens the overview; first, as Tab goes
    ListEx* const lstSFX;
    Pager* const pagerTB1;
    Toolbox* const TBSFX;
    EffectOverview* const overview;

 Q_SIGNALS:
    /// The user chose an effect, also when it was chosen before. Never without an open picture, during a
    /// render or while the capture panel runs.
    void EffectChosen(int number);

 private:
    void ListSelected();
    void UnmarkRefusedRow();
    void ToolbarClicked(const QString& key);
    void OverviewPressed(int number);
    bool Refused() const { return !Enabled(Command::ChooseEffect, state_); }

    SharedState& state_;
    // Of the last choice that was not refused; a refused one leaves no mark.
    int marked_ = 0;  ///< button, from 1; 0: none
    int listed_ = 0;  ///< row
};

}  // namespace kelu
