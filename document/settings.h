// Every setting of the program in one list: section, value name, default, meaning. Values are text, read with their
// default at the moment of use and written only by the operations that change them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

class clsRegistryAccess;

struct Setting {
    const char* section;      ///< key under the root
    const char* name;         ///< value name
    const char* defaultText;  ///< what a missing value reads as
};

namespace settings {
inline constexpr Setting kCaptureSize{"Capture", "Size", "2"};       ///< 0: 160x120, 1: 320x240, 2: 640x480
inline constexpr Setting kSelector{"SFX", "Selector", "1"};          ///< 0: effect list, 1: picture toolbar
inline constexpr Setting kDevice{"Device", "Name", "0"};             ///< index of the camera, in spite of its name
inline constexpr Setting kResize{"Image", "Resize", "1"};            ///< 1: large images are shrunk on open
inline constexpr Setting kCursorStyle{"Cursor", "Style", "1"};       ///< 1 brush, 2 smudge, 3 cross
inline constexpr Setting kSplashNumber{"Splash", "Number", "1"};     ///< next splash picture, 1 to 8
inline constexpr Setting kReminder{"Paint", "Reminder", "1"};        ///< 1: remind to paint after Apply
inline constexpr Setting kLanguage{"Language", "ID", "0"};           ///< 0 UK, 1 US English, 2 Spanish, 3 French
inline constexpr Setting kPrinter{"Printer", "Device", "0"};         ///< row of the chosen printer in the list
inline constexpr Setting kPrinterName{"Printer", "Name", ""};        ///< its device name, which rows can't shift
inline constexpr Setting kMailMethod{"Email", "Method", "1"};        ///< 1 own delivery, 2 mail client, 3 mail account
inline constexpr Setting kMailSender{"Email", "Sender", "Not Set"};  ///< last sender of the client way
inline constexpr Setting kAccountUser{"Gmail", "User Name", "Not Set"};
inline constexpr Setting kAccountPassword{"Gmail", "Password", "Not Set"};      ///< scrambled three times
inline constexpr Setting kAccountPasswordPlace{"Gmail", "Password Place", ""};  ///< "Secret store" when it keeps it
inline constexpr Setting kAccountRecipient{"Gmail", "Recipient", "Not Set"};    ///< last recipient of the account way
inline constexpr Setting kLastFolder{"LastOpenedFolder", "Path", ""};  ///< read with the Gallery as the default
}  // namespace settings

class Settings {
 public:
    static constexpr const char* kRoot = "HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings";

    explicit Settings(clsRegistryAccess& registry) : registry_(registry) {}

    QString Read(const Setting& setting) const { return Read(setting, QString::fromLatin1(setting.defaultText)); }
    QString Read(const Setting& setting, const QString& defaultText) const;
    /// The text as an integer, by its leading digits; 0 when it holds none.
    int ReadInteger(const Setting& setting) const;
    /// False when the store refused it.
    bool Write(const Setting& setting, const QString& text);

 private:
    clsRegistryAccess& registry_;
};

}  // namespace kelu
