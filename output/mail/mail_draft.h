// What the user wrote into an e-mail that did not go out.
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

namespace kelu {

/// The e-mail dialog fills its fields from it when the way of sending is the same, and drops it once a message has
/// gone.
struct MailDraft {
    QString method;                  ///< of sending
    QHash<QString, QString> fields;  ///< text of a field by its name
};

}  // namespace kelu
