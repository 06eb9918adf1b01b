// The commands of the main window in one table: button, tip, icon, key. What a command does stands in frmMain.
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>
#include <optional>

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
};

struct CommandRow {
    Command command;
    const char* name;  ///< name of the button
    const char* tip;   ///< tip and accessible name
    const char* icon;  ///< name of the theme's drawing
};

inline constexpr CommandRow kCommands[] = {
    {Command::Open, "cmdOpen", "Open", "open"},
    {Command::Save, "cmdSave", "Save", "save"},
    {Command::Email, "cmdEmail", "E-mail", "email"},
    {Command::Print, "cmdPrint", "Print", "print"},
    {Command::Copy, "cmdCopy", "Copy", "copy"},
    {Command::Undo, "cmdUndo", "Undo", "undo"},
    {Command::Redo, "cmdRedo", "Redo", "redo"},
    {Command::WebCam, "cmdWebCam", "Capture Image (F8)", "webcam"},
    {Command::Original, "cmdOriginal", "Show Original Image", "original"},
    {Command::ZoomIn, "cmdZoomin", "Zoom In", "zoom_in"},
    {Command::ZoomOut, "cmdZoomOut", "Zoom Out", "zoom_out"},
    {Command::ZoomReset, "cmdZoomReset", "Reset Zoom", "zoom_reset"},
    {Command::Settings, "cmdSettings", "Settings", "settings"},
    {Command::Help, "cmdHelp", "Help", "help"},
    {Command::Minimise, "cmdMin", "Minimize", "min"},
    {Command::Restore, "cmdRestore", "Maximize", "max"},
    {Command::Close, "cmdX", "Close", "close"},
};

/// The command of a key that was released: with Ctrl only under exactly Ctrl, Alt+F4 only under exactly Alt, F1 and F8
/// under any state.
std::optional<Command> CommandOfKey(int key, Qt::KeyboardModifiers modifiers);

}  // namespace kelu
