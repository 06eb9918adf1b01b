// E-mail addresses: what the dialog accepts, and lists of addresses with names as headers have them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

namespace kelu {

/// One address without a name, as the dialog asks for it: an "@" behind at least one character, a single one; a dot
/// inside the domain; none of the special characters. A list never passes.
bool ValidEmailAddress(const QString& text);

/// A list of such addresses, each with a name or without, that holds at least one.
bool ValidMailList(const QString& text);

struct MailAddress {
    QString name;     ///< may be empty
    QString address;  ///< without angle brackets; empty when the text holds none
};

/// Reads "Name <a@b>, c@d; ..." in any mixture. A text without "@" becomes a name without an address, one with "@" an
/// address as it stands, valid or not. Control characters become blanks, so that no text can begin a header of its own.
std::vector<MailAddress> ParseAddresses(const QString& text);

/// The part behind the last "@" in the form in which name servers know it; empty when there is none.
QString MailDomain(const QString& address);

/// Without control characters and blanks at the ends: fit for one line of a header or a session.
QString OneLine(const QString& text);

}  // namespace kelu
