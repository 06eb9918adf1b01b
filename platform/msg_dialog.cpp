// The standard error message; see msg_dialog.h.
// SPDX-License-Identifier: MIT
#include "platform/msg_dialog.h"

#include <QCoreApplication>

#include "platform/error.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::MsgDialog)
};

}  // namespace

void ShowStandardError(MsgDialog& dialog, const std::exception& error) {
    const auto* own = dynamic_cast<const Error*>(&error);
    const bool memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    const int number = own ? own->Number() : memory ? kOutOfMemory : kFileError;
    const QString description = own      ? own->Description()
                                : memory ? Texts::tr("Out of memory")
                                         : QString::fromUtf8(error.what());
    dialog.ShowMessage(
        {Texts::tr("Error"),
         Texts::tr("The following error has occured:\r\n%1 (%2)\r\n").arg(description, QString::number(number)),
         MsgIcon::Error});
}

}  // namespace kelu
