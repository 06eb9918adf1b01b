// What the user wrote into an e-mail that did not go out.
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <optional>

#include "output/output_settings.h"

namespace kelu {

/// The e-mail dialog fills its fields from it when the way of sending is the same, and drops it once a message has
/// gone.
struct MailDraft {
    std::optional<MailMethod> method;  ///< none: nothing is kept
    QHash<QString, QString> fields;    ///< text of a field by its name
};

}  // namespace kelu
