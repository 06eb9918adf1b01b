// The standard error message; see msg_dialog.h.
// SPDX-License-Identifier: MIT
#include "platform/msg_dialog.h"

#include <QCoreApplication>

#include "platform/error.h"
#include "platform/lack_of_memory.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::MsgDialog)
};

}  // namespace

QString DescriptionOf(const std::exception& error) {
    if (const auto* own = dynamic_cast<const Error*>(&error)) return own->Description();
    return IsLackOfMemory(error) ? Texts::tr("Out of memory") : QString::fromUtf8(error.what());
}

void ShowStandardError(MsgDialog& dialog, const std::exception& error) {
    const auto* own = dynamic_cast<const Error*>(&error);
    const int number = own ? own->Number() : IsLackOfMemory(error) ? kOutOfMemory : kFileError;
    dialog.ShowMessage({Texts::tr("Error"),
                        Texts::tr("The following error has occured:\r\n%1 (%2)\r\n")
                            .arg(DescriptionOf(error), QString::number(number)),
                        MsgIcon::Error});
}

}  // namespace kelu
