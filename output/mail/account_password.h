// Where the mail account's password is kept: scrambled in the settings, and where it would not read back from there,
// in the desktop's store of secrets, too.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "document/settings.h"

class QObject;

namespace kelu {

class AccountPassword {
 public:
    explicit AccountPassword(Settings& settings) : settings_(settings) {}

    /// What the settings tell. Not the password when InStore().
    QString FromSettings() const;
    /// Whether the store keeps the password.
    bool InStore() const;
    /// Hands the password from the store over when it answers; not at all when it doesn't.
    void FromStore(QObject* receiver, const std::function<void(const QString&)>& take);
    /// The password from where it is kept. Runs events.
    QString Read();
    /// Keeps the password; runs events when the store is needed. False when it can't be kept: one of more than 9
    /// characters, or with characters that scrambling doesn't know, without a store.
    bool Save(const QString& password);

 private:
    Settings& settings_;
    std::optional<QString> fromStore_;  ///< what the store told
};

}  // namespace kelu
