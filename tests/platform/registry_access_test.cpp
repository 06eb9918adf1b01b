// Key paths, typed values, enumeration and deletion through the program's door to its registry.
// SPDX-License-Identifier: MIT
#include "platform/registry_access.h"

#include <gtest/gtest.h>

namespace kelu {
namespace {

const QString kKey = QStringLiteral("HKEY_CURRENT_USER\\SOFTWARE\\Kelu");

struct RegistryAccess : testing::Test {
    MemoryRegistryStore store;
    clsRegistryAccess registry{store};
};

TEST_F(RegistryAccess, PathsNameTheirRootInManyWays) {
    ASSERT_NE(registry.WriteString(kKey, "Name", "here"), 0u);
    const struct {
        const char* path;
        bool reaches;
    } kCases[] = {
        {"HKCU\\SOFTWARE\\Kelu", true},
        {"hkcu\\software\\KELU", true},
        {"hkey_current_user\\Software\\kelu", true},
        {"HKCUanything\\SOFTWARE\\Kelu", true},  // four characters tell the root
        {"HKCU\\SOFTWARE\\Kelu\\", true},
        {"HKEY_CURRENT_MACHINE\\SOFTWARE\\Kelu", false},
        {"HKLM\\SOFTWARE\\Kelu", false},
        {"HKC\\SOFTWARE\\Kelu", false},
        {"SOFTWARE\\Kelu", false},
        {"HKCU", false},
        {"", false},
        {"\\", false},
    };
    for (const auto& [path, reaches] : kCases)
        EXPECT_EQ(registry.ReadString(path, "Name", "away"), reaches ? "here" : "away") << path;

    for (const RegistryRoot& root : kRegistryRoots) {
        const QString path = QString(root.shortName).toLower() + "\\k";
        EXPECT_NE(registry.WriteString(path, "v", root.longName), 0u);
        EXPECT_EQ(registry.ReadString(QString(root.longName) + "\\K", "V"), root.longName);
    }
}

TEST_F(RegistryAccess, TextsComeBackWithinTheirLimits) {
    const QString umlauts = QString(127, QChar(0xFC));  // two bytes each
    const struct {
        QString text, read;
    } kCases[] = {
        {"plain", "plain"},
        {"", ""},
        {"   ", ""},
        {"  leading and trailing  ", "leading and trailing  "},
        {"\ttab", "\ttab"},
        {"quote \" and back\\slash", "quote \" and back\\slash"},
        {QString::fromUtf8("/home/Jürgen/фото/写真"), QString::fromUtf8("/home/Jürgen/фото/写真")},
        {QString(254, 'x'), QString(254, 'x')},
        {QString(255, 'x'), "default"},
        {umlauts, umlauts},
        {umlauts + 'x', "default"},
    };
    for (const auto& [text, read] : kCases) {
        ASSERT_NE(registry.WriteString(kKey, "v", text), 0u);
        EXPECT_EQ(registry.ReadString(kKey, "v", "default"), read) << text.toStdString();
    }
}

TEST_F(RegistryAccess, TheDefaultValueIsNamedAtOnlyByWriteString) {
    registry.WriteString(kKey, "@", "the default");
    EXPECT_EQ(registry.ReadString(kKey, "", "none"), "the default");
    EXPECT_EQ(registry.ReadString(kKey, "@", "none"), "none");
    EXPECT_EQ(registry.KillValue(kKey, "@"), 0u);
    registry.WriteDWORD(kKey, "@", 5);
    EXPECT_EQ(registry.ReadDWORD(kKey, "@"), 5u);
    EXPECT_EQ(registry.ReadString(kKey, "", "none"), "the default");
    EXPECT_NE(registry.KillValue(kKey, ""), 0u);
    EXPECT_FALSE(registry.ValueExists(kKey, ""));
}

TEST_F(RegistryAccess, WritesMakeKeysUnlessToldNotTo) {
    EXPECT_TRUE(registry.CreateKeyIfDoesntExists());
    registry.SetCreateKeyIfDoesntExists(false);
    EXPECT_EQ(registry.WriteString(kKey, "v", "x"), 0u);
    EXPECT_EQ(registry.WriteDWORD(kKey, "v", 1), 0u);
    EXPECT_EQ(registry.WriteBinary(kKey, "v", "00"), 0u);
    EXPECT_FALSE(registry.KeyExists(kKey));
    EXPECT_NE(registry.CreateKey(kKey), 0u);
    EXPECT_NE(registry.WriteString(kKey, "v", "x"), 0u);
    registry.SetCreateKeyIfDoesntExists(true);
    EXPECT_NE(registry.WriteDWORD(kKey + "\\deep\\deeper", "v", 1), 0u);
    EXPECT_TRUE(registry.KeyExists(kKey + "\\Deep"));
    EXPECT_EQ(registry.WriteString(kKey + '\\' + QString(256, 'k'), "v", "x"), 0u);
    EXPECT_EQ(registry.WriteString(kKey + "\\line\nend", "v", "x"), 0u);
    EXPECT_EQ(registry.WriteString(kKey, QString(256, 'n'), "x"), 0u);
    EXPECT_NE(registry.WriteString(kKey, QString(255, 'n'), "x"), 0u);
}

TEST_F(RegistryAccess, NumbersAndBytes) {
    registry.WriteDWORD(kKey, "n", 0xFFFFFFFEu);
    EXPECT_EQ(registry.ReadDWORD(kKey, "N"), 0xFFFFFFFEu);
    EXPECT_EQ(registry.ReadBinary(kKey, "n"), "FE FF FF FF");
    EXPECT_EQ(registry.ReadString(kKey, "n", "default"), "default");
    registry.WriteBinary(kKey, "b", "00 ff 7a");
    EXPECT_EQ(registry.ReadBinary(kKey, "b"), "00 FF 7A");
    EXPECT_EQ(registry.ReadDWORD(kKey, "b", 9), 9u);
    registry.WriteBinary(kKey, "b", "");
    EXPECT_EQ(registry.ReadBinary(kKey, "b", "default"), "");
    EXPECT_EQ(registry.ReadBinary(kKey, "missing", "default"), "default");
    registry.WriteBinary(kKey, "long", QString("AB").repeated(1000));
    EXPECT_EQ(registry.ReadBinary(kKey, "long").size(), 2999);
}

TEST_F(RegistryAccess, DeletesAndEnumerates) {
    for (const char* key : {"beta", "Alpha", "gamma\\inner"}) registry.CreateKey(kKey + '\\' + key);
    QStringList names{"old"};
    EXPECT_EQ(registry.EnumKeys(kKey, names), 3);
    EXPECT_EQ(names, QStringList({"Alpha", "beta", "gamma"}));
    EXPECT_TRUE(registry.HaveSubkey(kKey));
    EXPECT_FALSE(registry.HaveSubkey(kKey + "\\alpha"));
    EXPECT_FALSE(registry.HaveSubkey(kKey + "\\none"));
    EXPECT_EQ(registry.EnumKeys(kKey + "\\none", names), -1);
    EXPECT_TRUE(names.isEmpty());

    EXPECT_EQ(registry.KillKey(kKey + "\\gamma"), 0u);  // holds a key
    EXPECT_NE(registry.KillKey(kKey + "\\GAMMA\\inner"), 0u);
    EXPECT_NE(registry.KillKey(kKey + "\\gamma"), 0u);
    EXPECT_EQ(registry.KillKey(kKey + "\\gamma"), 0u);
    EXPECT_EQ(registry.KillKey("HKCU"), 0u);

    registry.WriteString(kKey, "text", "  t");
    registry.WriteDWORD(kKey, "number", 258);
    registry.WriteBinary(kKey, "bytes", "01 02");
    registry.WriteString(kKey, "long", QString(300, 'x'));
    registry.WriteBinary(kKey, "long bytes", QString("00").repeated(256));
    registry.WriteString(kKey, "TEXT", "again");  // the same value
    store.Apply([](RegistryTree& tree) { return tree.Set(kKey, {"other", 11, "12345678"}); });
    QVariantList values;
    ASSERT_EQ(registry.EnumValues(kKey, names, values), 6);
    EXPECT_EQ(names, QStringList({"text", "number", "bytes", "long", "long bytes", "other"}));
    EXPECT_EQ(values, QVariantList({"again", 258u, "01 02", "", QString(""), QVariant()}));
    EXPECT_EQ(registry.EnumValues(kKey, names, values, 4), 1);
    EXPECT_EQ(names, QStringList({"number"}));
    EXPECT_NE(registry.KillValue(kKey, "Number"), 0u);
    EXPECT_EQ(registry.EnumValues(kKey, names, values, 4), 0);
}

}  // namespace
}  // namespace kelu
