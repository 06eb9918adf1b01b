// Settings as typed items. An item says where its text is stored, what values the text stands for and which one stands
// in for a missing text; it lies on the floor that uses it. Texts are read at the moment of use and written only by the
// operations that change them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <limits>
#include <optional>

namespace kelu {

class clsRegistryAccess;

struct SettingKey {
    const char* section;  ///< key under the root
    const char* name;     ///< value name
};

/// "1" on, "0" off; any other text is neither.
struct FlagSetting {
    using Value = bool;
    SettingKey key;
    bool standard;

    static QString Text(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }
    static std::optional<bool> Parse(const QString& text);
};

/// One value of an enumeration, stored as its number; any other text is none of them.
template <typename Enum>
struct ChoiceSetting {
    using Value = Enum;
    SettingKey key;
    Enum standard;
    Enum first;
    Enum last;

    static QString Text(Enum value) { return QString::number(static_cast<int>(value)); }
    std::optional<Enum> Parse(const QString& text) const {
        for (int value = static_cast<int>(first); value <= static_cast<int>(last); ++value)
            if (text == Text(static_cast<Enum>(value))) return static_cast<Enum>(value);
        return std::nullopt;
    }
};

/// A whole number, told by the leading digits of the text and 0 when it has none; `least` or `most` when it lies
/// beyond.
struct NumberSetting {
    using Value = int;
    SettingKey key;
    int standard;
    int least = std::numeric_limits<int>::min();
    int most = std::numeric_limits<int>::max();

    static QString Text(int number) { return QString::number(number); }
    int Parse(const QString& text) const;
};

struct TextSetting {
    using Value = QString;
    SettingKey key;
    const char* standard;

    static QString Text(const QString& text) { return text; }
    static QString Parse(const QString& text) { return text; }
};

class Settings {
 public:
    static constexpr const char* kRoot = "HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings";

    explicit Settings(clsRegistryAccess& registry) : registry_(registry) {}

    /// What the stored text means: an optional for flags and choices, empty for a text that means nothing to them.
    template <typename Item>
    auto Read(const Item& item) const {
        return item.Parse(ReadText(item));
    }
    /// False when the store refused it.
    template <typename Item>
    bool Write(const Item& item, const typename Item::Value& value) {
        return WriteText(item.key, item.Text(value));
    }

    /// The same for what the user has set: throws Error(kFileError) when it can't be kept.
    template <typename Item>
    void Keep(const Item& item, const typename Item::Value& value) {
        KeepText(item.key, item.Text(value));
    }

    /// The text itself, for those who write an unknown one back as it was.
    template <typename Item>
    QString ReadText(const Item& item) const {
        return ReadText(item.key, item.Text(item.standard));
    }
    QString ReadText(const SettingKey& key, const QString& standard) const;
    bool WriteText(const SettingKey& key, const QString& text);
    void KeepText(const SettingKey& key, const QString& text);

 private:
    clsRegistryAccess& registry_;
};

enum class CursorStyle { Brush = 1, Smudge, Cross };

namespace settings {
/// 1: large images are shrunk on open.
inline constexpr NumberSetting kResize{{"Image", "Resize"}, 1, -0x8000, 0x7FFF};
inline constexpr ChoiceSetting<CursorStyle> kCursorStyle{
    {"Cursor", "Style"}, CursorStyle::Brush, CursorStyle::Brush, CursorStyle::Cross};
/// Remind to paint after Apply.
inline constexpr FlagSetting kReminder{{"Paint", "Reminder"}, true};
/// ID of the dialogs' language; set from outside the program only.
inline constexpr TextSetting kLanguage{{"Language", "ID"}, "0"};
}  // namespace settings

}  // namespace kelu
