// The quiet note: a plate with one line of text and at most two small buttons over the lower edge of a picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "platform/notes.h"

class QHBoxLayout;
class QLabel;

namespace kelu {

class Announcer;

/// Never in the way: the mouse goes through the plate to what lies below, but for the buttons, which are a widget of
/// their own beside it. Takes no focus; Tab reaches the buttons. Assistive technology is told each note as it comes.
class NoteBar : public QWidget, public Notes {
    Q_OBJECT

 public:
    static constexpr int kShownFor = 7000;  ///< ms
    static constexpr int kOfferedFor =
        12000;  ///< with buttons, which take a decision; the pointer or the focus on them holds it

    explicit NoteBar(QWidget* parent);
    ~NoteBar() override;

    /// The note lies in the middle of the lower edge of this rectangle of the parent.
    void SetPlace(const QRect& picture);
    /// Tab goes on to the buttons from here.
    void ComeAfter(QWidget& control) { before_ = &control; }

    void Show(const Note& note) override;
    void Clear() override;
    void Tell(const QString& text) override;

    /// While something covers the picture: what comes meanwhile shows when it is uncovered.
    void SetCovered(bool covered);

    /// The line that is shown; empty when none is.
    QString Text() const;

 protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void Display(const Note& note);
    void StartTime();
    void Hide();
    /// The passing note goes; one that tells of a state stands below it.
    void Pass();
    void Arrange();
    void Run(std::size_t button);
    bool HasFocusWithin() const;

    QLabel* text_;
    QWidget* buttonBox_;  ///< a sibling: the plate lets the mouse through
    QHBoxLayout* buttonRow_;
    Announcer* announcer_;
    QWidget* before_ = nullptr;
    QPointer<QWidget> left_;  ///< had the focus before a button took it
    QTimer goes_;
    QRect place_;
    Note note_;      ///< what is shown
    Note standing_;  ///< the last one that stays; no text: none
    Note waiting_;   ///< for the picture to be uncovered; no text: none
    bool covered_ = false;
};

}  // namespace kelu
