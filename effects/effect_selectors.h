// The two selectors of the effects: the text list lstSFX and the picture toolbar TBSFX in its pager pagerTB1.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>

#include "document/commands.h"
#include "document/shared_state.h"

class QWidget;

namespace kelu {

class ListEx;
class Pager;
class Toolbox;

/// Which of the two shows, and where, is the window's business; both lead to the same signal and are not kept in step.
class EffectSelectors : public QObject {
    Q_OBJECT

 public:
    /// The controls become children of `parent` and are hidden at first.
    EffectSelectors(SharedState& state, QWidget* parent);

    /// Fills the list and selects its first row.
    void SetUpSFXList();
    /// Tips of the toolbar's buttons.
    void LoadTips();
    /// The picture of one toolbar button; its looks under the pointer and pressed follow from it.
    void ShowPicture(int number, const QImage& picture);
    /// Shows what is in the way of a choice; empty: nothing.
    void SetObstacle(const QString& obstacle);

    ListEx* const lstSFX;
    Pager* const pagerTB1;
    Toolbox* const TBSFX;

 Q_SIGNALS:
    /// The user chose an effect, also when it was chosen before. Never without an open picture, during a
    /// render or while the capture panel runs.
    void EffectChosen(int number);

 private:
    void ListSelected();
    void UnmarkRefusedRow();
    void ToolbarClicked(const QString& key);
    bool Refused() const { return !Enabled(Command::ChooseEffect, state_); }

    SharedState& state_;
    // Of the last choice that was not refused; a refused one leaves no mark.
    int marked_ = 0;  ///< button, from 1; 0: none
    int listed_ = 0;  ///< row
};

}  // namespace kelu
