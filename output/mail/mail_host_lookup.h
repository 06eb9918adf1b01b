// Finds the servers that accept mail for an address.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <atomic>
#include <vector>

namespace kelu {

struct MailHost {
    QString name;
    QStringList addresses;  ///< numeric; empty: left to the system's resolver
};

struct NameServerOptions {
    QString servers;         ///< "127.0.0.1:5300, ..."; empty: the system's
    int timeoutMs = 20'000;  ///< for the whole look-up
};

/// The servers in the order in which to try them: the domain's mail exchangers by preference, those of the same one in
/// any order, or the domain's own host when it names none. Blocks; ends soon after `cancelled` turns true. Throws
/// Error(kMailFailed) when the domain doesn't exist, wants no mail, or no name server answers.
std::vector<MailHost> FindMailHosts(const QString& address, const NameServerOptions& options,
                                    const std::atomic<bool>& cancelled);

}  // namespace kelu
