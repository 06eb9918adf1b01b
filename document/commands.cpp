// SPDX-License-Identifier: MIT
#include "document/commands.h"

namespace kelu {

std::optional<Command> CommandOfKey(int key, Qt::KeyboardModifiers modifiers) {
    // Keys of the number pad carry a flag of their own that is no shift state.
    const Qt::KeyboardModifiers state = modifiers & ~Qt::KeypadModifier;
    if (key == Qt::Key_F1) return Command::Help;
    if (key == Qt::Key_F8) return Command::WebCam;
    if (key == Qt::Key_F4 && state == Qt::AltModifier) return Command::Close;
    if (state != Qt::ControlModifier) return std::nullopt;
    switch (key) {
        case Qt::Key_Z:
            return Command::Undo;
        case Qt::Key_Y:
            return Command::Redo;
        case Qt::Key_O:
            return Command::Open;
        case Qt::Key_S:
            return Command::Save;
        case Qt::Key_C:
            return Command::Copy;
        case Qt::Key_P:
            return Command::Print;
        default:
            return std::nullopt;
    }
}

}  // namespace kelu
