// The desktop's store of secrets, where there is one: unlocked with the user's session, or by a question of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <optional>

class QObject;

namespace kelu {

/// Hands the secret of this name over later, on the caller's thread, unless `receiver` is gone by then; nothing when
/// there is no such secret, no store, or none that answers.
void ReadSecret(const QString& name, QObject* receiver, const std::function<void(const std::optional<QString>&)>& take);

/// These two run events until the store has answered, a minute at most.
std::optional<QString> ReadSecret(const QString& name);
/// False when it is not kept.
bool WriteSecret(const QString& name, const QString& secret);

/// Forgets the secret, some time later.
void DropSecret(const QString& name);

}  // namespace kelu
