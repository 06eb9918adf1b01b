// SPDX-License-Identifier: MIT
#include "document/commands.h"

#include <QCoreApplication>
#include <QKeySequence>

namespace kelu {

namespace {

unsigned NeedsOf(Command command) {
    for (const CommandRow& row : kCommands)
        if (row.command == command) return row.needs;
    for (const OtherCommandRow& row : kOtherCommands)
        if (row.command == command) return row.needs;
    return kNothing;
}

}  // namespace

QString CommandTip(const CommandRow& row) { return QCoreApplication::translate("Commands", row.tip); }

QString KeyText(const CommandKey& key) {
    if (key.key == Qt::Key_unknown) return {};
    return QKeySequence(key.modifiers.value_or(Qt::NoModifier) | key.key).toString(QKeySequence::NativeText);
}

CommandKey KeyOf(Command command) {
    for (const CommandRow& row : kCommands)
        if (row.command == command) return row.key;
    for (const OtherCommandRow& row : kOtherCommands)
        if (row.command == command) return row.keys[0];
    return {};
}

std::optional<Command> CommandOfKey(int key, Qt::KeyboardModifiers modifiers, KeyActs acts, bool used) {
    // Keys of the number pad carry a flag of their own that is no shift state.
    const Qt::KeyboardModifiers held = modifiers & ~Qt::KeypadModifier;
    const auto is = [&](const CommandKey& row) {
        return key != Qt::Key_unknown && row.key == key && row.acts == acts && held == row.modifiers.value_or(held);
    };
    for (const CommandRow& row : kCommands)
        if (is(row.key)) return row.command;
    for (const OtherCommandRow& row : kOtherCommands)
        if (!used && (is(row.keys[0]) || is(row.keys[1]))) return row.command;
    return std::nullopt;
}

Obstacle ObstacleTo(Command command, const SharedState& state) {
    const unsigned needs = NeedsOf(command);
    if ((needs & kNoCapture) && state.CaptureBusy) return Obstacle::Capture;
    const bool missesPicture = (needs & kPicture) && !state.ImageActive;
    // Another picture may have been opened while the original shows.
    const bool wayBack = command == Command::Original && state.ShowingOriginal && state.ImageActive;
    const bool missesChanges = (needs & kChanges) && !state.ImageDirty && !wayBack;
    if (missesPicture || (missesChanges && !state.ImageActive))
        return state.CurrentFileName.isEmpty() ? Obstacle::NoPicture : Obstacle::Saved;
    if (missesChanges) return Obstacle::NoChanges;
    if ((needs & kEffect) && (state.CurrentSFX < 1 || state.CurrentSFX == kSettingsTopic)) return Obstacle::NoEffect;
    return Obstacle::None;
}

QString ObstacleText(Obstacle obstacle) {
    switch (obstacle) {
        case Obstacle::None:
            break;
        case Obstacle::Capture:
            return QCoreApplication::translate("Commands", "Finish the capture first");
        case Obstacle::NoPicture:
            return QCoreApplication::translate("Commands", "Open a picture first");
        case Obstacle::Saved:
            return QCoreApplication::translate("Commands", "This picture is saved: open it again to go on");
        case Obstacle::NoChanges:
            return QCoreApplication::translate("Commands", "Nothing is painted yet");
        case Obstacle::NoEffect:
            return QCoreApplication::translate("Commands", "Choose an effect first");
    }
    return {};
}

}  // namespace kelu
