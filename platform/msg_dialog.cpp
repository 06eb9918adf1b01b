// The standard error message; see msg_dialog.h.
// SPDX-License-Identifier: MIT
#include "platform/msg_dialog.h"

#include "platform/error.h"

namespace kelu {

void ShowStandardError(MsgDialog& dialog, const std::exception& error) {
    const auto* own = dynamic_cast<const Error*>(&error);
    const bool memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    const int number = own ? own->Number() : memory ? kOutOfMemory : kFileError;
    const QString description = own      ? own->Description()
                                : memory ? QStringLiteral("Out of memory")
                                         : QString::fromUtf8(error.what());
    dialog.ShowMessage(
        {QStringLiteral("Error"),
         QStringLiteral("The following error has occured:\r\n%1 (%2)\r\n").arg(description, QString::number(number)),
         MsgIcon::Error});
}

}  // namespace kelu
