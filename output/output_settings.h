// Settings of printing and e-mail.
// SPDX-License-Identifier: MIT
#pragma once

#include "document/settings.h"

namespace kelu {

enum class MailMethod { OwnDelivery = 1, Client, Account };

namespace settings {
/// Row of the chosen printer in the list.
inline constexpr NumberSetting kPrinter{{"Printer", "Device"}, 0};
inline constexpr TextSetting kPrinterName{{"Printer", "Name"}, ""};  ///< its device name, which rows can't shift
inline constexpr ChoiceSetting<MailMethod> kMailMethod{
    {"Email", "Method"}, MailMethod::OwnDelivery, MailMethod::OwnDelivery, MailMethod::Account};
inline constexpr TextSetting kMailSender{{"Email", "Sender"}, "Not Set"};  ///< last sender of the client way
inline constexpr TextSetting kAccountUser{{"Gmail", "User Name"}, "Not Set"};
inline constexpr TextSetting kAccountPassword{{"Gmail", "Password"}, "Not Set"};  ///< scrambled three times
inline constexpr TextSetting kAccountPasswordPlace{{"Gmail", "Password Place"},
                                                   ""};                             ///< "Secret store" when it keeps it
inline constexpr TextSetting kAccountRecipient{{"Gmail", "Recipient"}, "Not Set"};  ///< last one of the account way
}  // namespace settings

}  // namespace kelu
