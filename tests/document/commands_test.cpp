// What may be used when, and the keys.
// SPDX-License-Identifier: MIT
#include "document/commands.h"

#include <gtest/gtest.h>

#include <set>

namespace kelu {
namespace {

using enum Command;
using enum Obstacle;

TEST(Commands, WhatIsInTheWay) {
    struct Row {
        const char* when;
        SharedState state;
        std::map<Command, Obstacle> refused;  // all others may be used
    };
    const auto state = [](bool active, bool dirty, const char* name, int effect, bool capture) {
        SharedState made;
        made.ImageActive = active;
        made.ImageDirty = dirty;
        made.CurrentFileName = QString::fromLatin1(name);
        made.CurrentSFX = static_cast<std::int16_t>(effect);
        made.CaptureBusy = capture;
        return made;
    };
    const auto all = [](std::initializer_list<Command> commands, Obstacle obstacle) {
        std::map<Command, Obstacle> refused;
        for (const Command command : commands) refused[command] = obstacle;
        return refused;
    };
    const auto onPicture = {Save,   Email,   Print,     Copy,         Original, Apply,
                            ZoomIn, ZoomOut, ZoomReset, ChooseEffect, Compare};
    const auto without = [](std::map<Command, Obstacle> refused, std::initializer_list<Command> commands) {
        for (const Command command : commands) refused.erase(command);
        return refused;
    };
    auto capturing =
        all({Open, Save, Email, Print, Undo, Redo, Original, ChooseEffect, Drop, Paste, PaintAll, RestoreAll, Compare},
            Capture);
    auto opened = all({Save, Original, Compare}, NoChanges);
    opened[Apply] = NoEffect;
    const Row rows[] = {
        {"nothing open", state(false, false, "", 0, false), all(onPicture, NoPicture)},
        {"opened", state(true, false, "a.png", 0, false), opened},
        {"after the help of the settings", state(true, false, "a.png", kSettingsTopic, false), opened},
        {"painted", state(true, true, "a.png", 1, false), {}},
        {"saved", state(false, false, "a.png", 48, false), all(onPicture, Saved)},
        {"saved and painted on", state(false, true, "a.png", 48, false),
         without(all(onPicture, Saved), {Save, Original, Compare})},
        {"capturing", state(true, true, "a.png", 1, true), capturing},
    };
    for (const Row& row : rows)
        for (int each = 0; each <= static_cast<int>(Drop); ++each) {
            const auto command = static_cast<Command>(each);
            const auto refused = row.refused.find(command);
            const Obstacle expected = refused == row.refused.end() ? None : refused->second;
            EXPECT_EQ(ObstacleTo(command, row.state), expected) << row.when << ", command " << each;
            EXPECT_EQ(ObstacleText(expected).isEmpty(), expected == None);
        }
}

TEST(Commands, AKeyActsUnderItsOwnModifiersOnly) {
    constexpr Qt::KeyboardModifiers kNone, kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier,
                                           kAlt = Qt::AltModifier, kPad = Qt::KeypadModifier;
    const std::set<Qt::KeyboardModifiers::Int> all{
        kNone, kShift, kCtrl, kAlt, Qt::MetaModifier, kCtrl | kShift, kCtrl | kAlt, kAlt | kShift, kCtrl | kPad};
    const std::set<Qt::KeyboardModifiers::Int> ctrl{kCtrl, kCtrl | kPad};
    const struct {
        Qt::Key key;
        Command command;
        std::set<Qt::KeyboardModifiers::Int> under;
    } rows[] = {{Qt::Key_O, Open, ctrl},
                {Qt::Key_S, Save, ctrl},
                {Qt::Key_P, Print, ctrl},
                {Qt::Key_C, Copy, ctrl},
                {Qt::Key_Z, Undo, ctrl},
                {Qt::Key_Y, Redo, ctrl},
                {Qt::Key_A, PaintAll, ctrl},
                {Qt::Key_F8, WebCam, all},
                {Qt::Key_F1, Help, all},
                {Qt::Key_F4, Close, {kAlt}},
                {Qt::Key_A, RestoreAll, {kCtrl | kShift}}};
    for (const auto& row : rows)
        for (const auto modifiers : all)
            EXPECT_EQ(CommandOfKey(row.key, Qt::KeyboardModifiers::fromInt(modifiers)) == row.command,
                      row.under.contains(modifiers))
                << "key " << row.key << " under " << modifiers;
    EXPECT_EQ(CommandOfKey(Qt::Key_A, kCtrl, KeyActs::AtRelease, /*used=*/true), std::nullopt) << "a text field's own";
}

TEST(Commands, NoTwoShareAKey) {
    std::set<std::pair<int, int>> keys;
    const auto add = [&keys](const CommandKey& key, Command command) {
        if (key.key == Qt::Key_unknown) return;
        EXPECT_TRUE(keys.emplace(key.key, key.modifiers.value_or(Qt::NoModifier)).second)
            << "command " << static_cast<int>(command);
    };
    for (const CommandRow& row : kCommands) add(row.key, row.command);
    for (const OtherCommandRow& row : kOtherCommands)
        for (const CommandKey& key : row.keys) add(key, row.command);
    EXPECT_EQ(CommandOfKey(Qt::Key_unknown, Qt::NoModifier), std::nullopt) << "media keys and the like";
}

}  // namespace
}  // namespace kelu
