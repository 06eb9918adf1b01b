// The commands of the program in one table: button, tip, icon, key, and what must hold before each may be used. What a
// command does stands in frmMain.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <optional>

#include "document/shared_state.h"

namespace kelu {

enum class Command {
    Open,
    Save,
    Email,
    Print,
    Copy,
    Undo,
    Redo,
    WebCam,
    Original,
    ZoomIn,
    ZoomOut,
    ZoomReset,
    Settings,
    Help,
    Minimise,
    Restore,
    Close,
    // Without a button among those of the window's strips.
    Apply,
    ChooseEffect,
    AllEffects,  ///< shows them side by side
    PaintAll,    ///< the whole render on the picture
    RestoreAll,  ///< the whole original
    BrushSmaller,
    BrushLarger,
    EdgeHarder,
    EdgeSofter,
    Compare,  ///< the original, as long as the key is held
    Paste,
    Drop,
};

/// When a key does its work.
enum class KeyActs : std::uint8_t {
    AtRelease,
    AtPress,    ///< and again while it repeats
    WhileHeld,  ///< from the press to the release
};

/// A key under exactly these modifiers; without modifiers named, under any.
struct CommandKey {
    Qt::Key key = Qt::Key_unknown;
    std::optional<Qt::KeyboardModifiers> modifiers = {};
    KeyActs acts = KeyActs::AtRelease;
};

/// What must hold before a command may be used; several joined by |.
enum Needs : unsigned {
    kNothing = 0,
    kNoCapture = 1,  ///< the capture panel does not run
    kPicture = 2,    ///< a picture is open and no render runs
    kChanges = 4,    ///< the canvas has changes that were not saved
    kEffect = 8,     ///< an effect is chosen
};

struct CommandRow {
    Command command;
    const char* name;  ///< of the button
    const char* tip;   ///< tip and accessible name
    const char* icon;  ///< name of the theme's drawing
    CommandKey key;
    unsigned needs;
};

inline constexpr CommandRow kCommands[] = {
    {Command::Open, "cmdOpen", "Open", "open", {Qt::Key_O, Qt::ControlModifier}, kNoCapture},
    {Command::Save, "cmdSave", "Save", "save", {Qt::Key_S, Qt::ControlModifier}, kNoCapture | kChanges},
    {Command::Email, "cmdEmail", "E-mail", "email", {}, kNoCapture | kPicture},
    {Command::Print, "cmdPrint", "Print", "print", {Qt::Key_P, Qt::ControlModifier}, kNoCapture | kPicture},
    {Command::Copy, "cmdCopy", "Copy", "copy", {Qt::Key_C, Qt::ControlModifier}, kPicture},
    {Command::Undo, "cmdUndo", "Undo", "undo", {Qt::Key_Z, Qt::ControlModifier}, kNoCapture},
    {Command::Redo, "cmdRedo", "Redo", "redo", {Qt::Key_Y, Qt::ControlModifier}, kNoCapture},
    {Command::WebCam, "cmdWebCam", "Capture Image (F8)", "webcam", {Qt::Key_F8}, kNothing},
    {Command::Original, "cmdOriginal", "Show Original Image", "original", {}, kNoCapture | kChanges},
    {Command::ZoomIn, "cmdZoomin", "Zoom In", "zoom_in", {}, kPicture},
    {Command::ZoomOut, "cmdZoomOut", "Zoom Out", "zoom_out", {}, kPicture},
    {Command::ZoomReset, "cmdZoomReset", "Reset Zoom", "zoom_reset", {}, kPicture},
    {Command::Settings, "cmdSettings", "Settings", "settings", {}, kNothing},
    {Command::Help, "cmdHelp", "Help", "help", {Qt::Key_F1}, kNothing},
    {Command::Minimise, "cmdMin", "Minimize", "min", {}, kNothing},
    {Command::Restore, "cmdRestore", "Maximize", "max", {}, kNothing},
    {Command::Close, "cmdX", "Close", "close", {Qt::Key_F4, Qt::AltModifier}, kNothing},
};

/// A command without such a button. Its keys are heard where no control has a use of its own for them.
struct OtherCommandRow {
    Command command;
    unsigned needs;
    std::array<CommandKey, 2> keys;
};

inline constexpr OtherCommandRow kOtherCommands[] = {
    {Command::Apply, kPicture | kEffect, {}},
    {Command::ChooseEffect, kNoCapture | kPicture, {}},
    {Command::AllEffects, kNothing, {{{Qt::Key_E, Qt::ControlModifier}}}},
    {Command::PaintAll, kNoCapture, {{{Qt::Key_A, Qt::ControlModifier}}}},
    {Command::RestoreAll, kNoCapture, {{{Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier}}}},
    {Command::BrushSmaller, kNothing, {{{Qt::Key_BracketLeft, Qt::NoModifier, KeyActs::AtPress}}}},
    {Command::BrushLarger, kNothing, {{{Qt::Key_BracketRight, Qt::NoModifier, KeyActs::AtPress}}}},
    // With Shift most keyboards give a brace.
    {Command::EdgeHarder,
     kNothing,
     {{{Qt::Key_BraceLeft, {}, KeyActs::AtPress}, {Qt::Key_BracketLeft, Qt::ShiftModifier, KeyActs::AtPress}}}},
    {Command::EdgeSofter,
     kNothing,
     {{{Qt::Key_BraceRight, {}, KeyActs::AtPress}, {Qt::Key_BracketRight, Qt::ShiftModifier, KeyActs::AtPress}}}},
    {Command::Compare,
     kNoCapture | kChanges,
     {{{Qt::Key_Backslash, {}, KeyActs::WhileHeld}, {Qt::Key_O, Qt::NoModifier, KeyActs::WhileHeld}}}},
    {Command::Paste, kNoCapture, {{{Qt::Key_V, Qt::ControlModifier}}}},
    {Command::Drop, kNoCapture, {}},
};

/// The tip in the language in use.
QString CommandTip(const CommandRow& row);
/// "Ctrl+S", as the desktop writes it; empty without a key.
QString KeyText(const CommandKey& key);
/// The first key of a command; unknown where it has none.
CommandKey KeyOf(Command command);
/// The command of a key that does its work so. `used`: a control had a use of its own for the press.
std::optional<Command> CommandOfKey(int key, Qt::KeyboardModifiers modifiers, KeyActs acts = KeyActs::AtRelease,
                                    bool used = false);

/// Why a command may not be used now.
enum class Obstacle {
    None,
    Capture,    ///< the camera has the canvas
    NoPicture,  ///< none was opened, or a render runs
    Saved,      ///< the picture on the canvas was saved
    NoChanges,
    NoEffect,
};
Obstacle ObstacleTo(Command command, const SharedState& state);
/// Whether the command may be used now. One that may not does nothing when called.
inline bool Enabled(Command command, const SharedState& state) { return ObstacleTo(command, state) == Obstacle::None; }
/// One line for the user that says what is in the way; empty for None.
QString ObstacleText(Obstacle obstacle);

}  // namespace kelu
