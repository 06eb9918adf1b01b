// A picture that is opened, rendered, painted and saved by the program's own objects, without a window, and a hand that
// does all this at random.
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <random>

#include "document/history.h"
#include "document/open_save.h"
#include "document/painter.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/pix_twix.h"
#include "effects/effect_application.h"
#include "effects/effect_controls.h"
#include "effects/render_window.h"
#include "tests/support/kept_notes.h"
#include "tests/support/memory_settings.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/scripted_save_dialog.h"

namespace kelu {

class PaintingSession : private EffectControls, private RenderWindow {
 public:
    PaintingSession(SessionLog& log, unsigned seed)
        : random(seed),
          document(surfaces, view, view, state, log),
          painter(
              document, view, state, settings, notes, {}, [this] { return brushSize; },
              [this] { openSave.TellAlreadySaved(); }, log),
          history(surfaces.picCanvas, view, state, notes, log),
          openSave(document, state, dialog, saveDialog, notes, {[] {}, [](const QString&) { return false; }}, log),
          application(surfaces.picCanvas, surfaces.picPen, engine, state, *this, *this,
                      {[this] { painter.SetUpBrush(); }, [] {}, [] {}}, log) {
        state.ResizeOnOpen = 1;
        const std::pair<const char*, QSize> files[] = {
            {"plain.png", {150, 110}}, {"glass.png", {90, 130}}, {"photo.jpg", {2100, 40}}};
        for (const auto& [name, size] : files) {
            QImage image(size, qstrcmp(name, "glass.png") == 0 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
            for (int y = 0; y < size.height(); ++y)
                for (int x = 0; x < size.width(); ++x)
                    image.setPixel(x, y, qRgba(x * 7 % 256, y * 5 % 256, (x * y) % 256, (x + y) % 256));
            image.setText("Comment", name);
            EXPECT_TRUE(image.save(folder.filePath(name)));
        }
    }

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    QPoint Somewhere() { return {Below(surfaces.picCanvas.ImageWidth() + 40) - 20, Below(150) - 20}; }

    void Open() {
        const char* const names[] = {"plain.png", "glass.png", "photo.jpg"};
        const QString path = folder.filePath(names[Below(3)]);
        if (state.ImageDirty) dialog.answers = {MsgAnswer::No};
        if (Below(2) || state.ImageDirty)
            openSave.Drop(path);  // leaves the brush armed with what it has
        else
            document.Open(path, Below(8) ? Document::Source::Browse : Document::Source::Capture);
    }
    void Apply(int effect = 0) {
        if (effect == 0) effect = 1 + Below(static_cast<int>(Catalogue().size()));
        const Effect& row = *FindEffect(effect);
        state.CurrentSFX = static_cast<std::int16_t>(row.number);
        for (std::size_t i = 0; i < 3; ++i)
            sliders[i] = row.sliders[i].min + Below(row.sliders[i].max - row.sliders[i].min + 1);
        const int choices = static_cast<int>(row.choice.names.size());
        // Now and then a number that the effect refuses.
        if (choices) state.*row.choice.variable = static_cast<std::int16_t>(Below(choices + 1));
        point = Somewhere();
        color = Below(0x1000000);
        application.ApplyClick();
    }
    void Brush(int size) {
        brushSize = size;
        painter.SetUpBrush();
    }
    void Stroke() {
        const Qt::KeyboardModifiers keys[] = {Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
        const Qt::KeyboardModifiers held = keys[Below(4)];
        painter.Press(Qt::LeftButton, held, Somewhere());
        const int moves = Below(12);
        for (int i = 0; i < moves; ++i) {
            const int how = Below(20);
            painter.Move(how == 0   ? Qt::MouseButtons(Qt::NoButton)
                         : how == 1 ? Qt::LeftButton | Qt::RightButton
                                    : Qt::MouseButtons(Qt::LeftButton),
                         held, Somewhere());
            if (how == 2) history.PerformUndo();
            if (how == 3) Brush(1 + Below(100));
            if (how == 4) painter.SetSoftness(Below(101));
        }
    }
    void Save() {
        // Over the opened file, and under another name.
        saveDialog.names = {folder.filePath(Below(2) ? state.CurrentFileName : QStringLiteral("saved.png"))};
        if (state.ImageDirty) openSave.SaveImageNow();
        saveDialog.names.clear();
        state.ImageActive = true;  // as if opened again: the hand would otherwise be done
    }
    void DoSomething() {
        static const std::function<void(PaintingSession&)> kTricks[] = {
            [](auto& s) { s.Apply(); },
            [](auto& s) { s.Apply(); },
            [](auto& s) { s.Stroke(); },
            [](auto& s) { s.Stroke(); },
            [](auto& s) { s.Stroke(); },
            [](auto& s) { s.Stroke(); },
            [](auto& s) { s.history.PerformUndo(); },
            [](auto& s) { s.history.PerformUndo(); },
            [](auto& s) { s.history.PerformRedo(); },
            [](auto& s) { s.Brush(1 + s.Below(100)); },
            [](auto& s) { s.painter.SetSoftness(s.Below(101)); },
            [](auto& s) { s.painter.PaintEverywhere(s.Below(2) ? Painter::Paint::Render : Painter::Paint::Original); },
            [](auto& s) {
                if (s.Below(3) == 0) s.Save();
            },
            [](auto& s) {
                if (s.Below(4) == 0) s.Open();
            },
            [](auto& s) {
                // "4" is a cursor style that leaves the brush as it is.
                s.settings.WriteText(settings::kCursorStyle.key,
                                     s.Below(4) ? QStringLiteral("1") : QStringLiteral("4"));
            },
        };
        kTricks[Below(static_cast<int>(std::size(kTricks)))](*this);
    }

    QTemporaryDir folder;
    std::mt19937 random;
    SharedState state;
    Surfaces surfaces;
    NullView view;
    MemorySettings settings;
    ScriptedDialog dialog;
    ScriptedSaveDialog saveDialog;
    KeptNotes notes;
    int brushSize = 20;
    Document document;
    Painter painter;
    History history;
    OpenSave openSave;
    PixTwix engine;
    EffectApplication application;

 private:
    int XCoordinate() const override { return point.x(); }
    int YCoordinate() const override { return point.y(); }
    qint32 PickerValue(int picker) const override { return picker == 1 ? color : color ^ 0x00ff00; }
    int SliderValue(int slider) const override { return sliders[static_cast<std::size_t>(slider - 1)]; }
    void SetFormEnabled(bool) override {}
    void SetProgressVisible(bool) override {}
    void SetProgress(int) override {}
    void RunEventLoopOnce() override {}

    std::array<int, 3> sliders{};
    QPoint point;
    qint32 color = 0;
};

/// The same size, the same format, the same bytes.
inline bool SameBytes(const QImage& a, const QImage& b) {
    if (a.size() != b.size() || a.format() != b.format()) return false;
    for (int y = 0; y < a.height(); ++y)
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), static_cast<std::size_t>(a.width()) * 4) != 0)
            return false;
    return true;
}

}  // namespace kelu
