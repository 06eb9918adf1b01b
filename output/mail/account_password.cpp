// SPDX-License-Identifier: MIT
#include "output/mail/account_password.h"

#include "output/mail/secret_store.h"
#include "output/output_settings.h"
#include "platform/password_scrambling.h"

namespace kelu {

namespace {

const QString kName = QStringLiteral("Mail account");
const QString kStore = QStringLiteral("Secret store");  // of the setting

}  // namespace

QString AccountPassword::FromSettings() const { return UnscramblePassword(settings_.Read(settings::kAccountPassword)); }

bool AccountPassword::InStore() const { return settings_.Read(settings::kAccountPasswordPlace) == kStore; }

void AccountPassword::FromStore(QObject* receiver, const std::function<void(const QString&)>& take) {
    ReadSecret(kName, receiver, [this, take](const std::optional<QString>& secret) {
        fromStore_ = secret;
        if (secret) take(*secret);
    });
}

QString AccountPassword::Read() {
    if (InStore())
        if (const std::optional<QString> secret = ReadSecret(kName)) return *secret;
    return FromSettings();
}

bool AccountPassword::Save(const QString& password) {
    // A store that is locked or gone today is no reason to forget what it keeps.
    const bool untouched = password == fromStore_.value_or(FromSettings());
    if (InStore() && untouched) return true;
    settings_.Keep(settings::kAccountPassword, ScramblePassword(password));
    const bool whole = FromSettings() == password;
    if (whole && InStore()) DropSecret(kName);
    const bool inStore = !whole && WriteSecret(kName, password);
    if (inStore != InStore()) settings_.Keep(settings::kAccountPasswordPlace, inStore ? kStore : QString());
    return whole || inStore;
}

}  // namespace kelu
