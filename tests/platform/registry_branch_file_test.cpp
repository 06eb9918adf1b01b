// REGEDIT4 files: every byte of an export, every rule of an import, and the round trip.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include "platform/registry_access.h"
#include "platform/registry_file.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

const QString kKey = QStringLiteral("HKCU\\Kelu");

struct BranchFile : testing::Test {
    QTemporaryDir folder;
    MemoryRegistryStore store;
    clsRegistryAccess registry{store};

    QString Path(const QString& name) { return folder.filePath(name); }
    QByteArray Content(const QString& name) { return ReadBytes(Path(name)); }
    quint32 Import(const QByteArray& text) {
        WriteBytes(Path("import.reg"), text);
        return registry.ImportFromReg(Path("import.reg"));
    }
    quint32 ImportLines(const QByteArray& lines) { return Import("REGEDIT4\r\n\r\n[HKCU\\Kelu]\r\n" + lines); }
};

TEST_F(BranchFile, ExportIsTheseBytes) {
    registry.WriteDWORD(kKey, "count", 0xABC);
    registry.WriteBinary(kKey, "bytes", "0a 0b ff");
    registry.WriteBinary(kKey, "none", "");
    registry.WriteString(kKey, "path", "C:\\a \"b\"=c");
    registry.WriteString(kKey, "@", "the default");
    registry.WriteString(kKey, "empty", "");
    registry.WriteString(kKey + "\\Sub\\Deep", "n", QString::fromUtf8("ü"));
    registry.CreateKey(kKey + "\\Alone");
    registry.WriteString(kKey + "\\Zero", "long", QString(255, 'x'));
    const QByteArray top =
        "REGEDIT4\r\n\r\n"
        "[HKEY_CURRENT_USER\\Kelu]\r\n"
        "@=\"the default\"\r\n"
        "\"path\"=\"C:\\a \"b\"=c\"\r\n"
        "\"empty\"=\"\"\r\n"
        "\"bytes\"=hex:0A,0B,FF\r\n"
        "\"none\"=hex:\r\n"
        "\"count\"=dword:00000ABC\r\n"
        "\r\n";
    EXPECT_EQ(registry.ExportToReg(kKey, Path("one"), false), 1u);
    EXPECT_EQ(Content("one"), top);
    EXPECT_EQ(QFile::permissions(Path("one")) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_EQ(registry.ExportToReg("hkcu\\Kelu", Path("all"), true), 1u);
    const QByteArray all = Content("all");
    EXPECT_TRUE(all.startsWith("REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Kelu]\r\n"));
    EXPECT_TRUE(
        all.endsWith("\"count\"=dword:00000ABC\r\n\r\n"
                     "[HKEY_CURRENT_USER\\Kelu\\Alone]\r\n\r\n"
                     "[HKEY_CURRENT_USER\\Kelu\\Sub]\r\n\r\n"
                     "[HKEY_CURRENT_USER\\Kelu\\Sub\\Deep]\r\n\"n\"=\"\xC3\xBC\"\r\n\r\n"
                     "[HKEY_CURRENT_USER\\Kelu\\Zero]\r\n\"long\"=\"\"\r\n\r\n"))
        << all.toStdString();
}

TEST_F(BranchFile, ExportLeavesAnExistingFileAloneAndShowsItsKeys) {
    registry.WriteString(kKey + "\\a", "v", "x");
    ASSERT_EQ(Import("something else"), 0u);
    EXPECT_EQ(registry.ExportToReg(kKey, Path("import.reg"), true), 0u);
    EXPECT_EQ(Content("import.reg"), "something else");
    EXPECT_EQ(registry.ExportToReg(kKey, Path("no/such/folder"), true), 0u);

    QStringList shown;
    bool eventRan = false;
    QTimer::singleShot(0, [&] { eventRan = true; });
    EXPECT_EQ(registry.ExportToReg(kKey, Path("shown"), true,
                                   [&](const QString& path) {
                                       EXPECT_TRUE(eventRan);
                                       shown.append(path);
                                   }),
              1u);
    EXPECT_EQ(shown, QStringList({"HKEY_CURRENT_USER\\Kelu", "HKEY_CURRENT_USER\\Kelu\\a"}));
}

TEST_F(BranchFile, ImportReadsValueLines) {
    registry.WriteString(kKey, "gone", "x");
    registry.WriteString(kKey, "@", "gone too");
    EXPECT_EQ(ImportLines("\"text\"=\"a\\b\"\r\n"
                          "  \"cut\"=\"left=right\"  \r\n"
                          "\"quoted\"=\"say \"hi\"\"\r\n"
                          "\"gone\"=-\r\n"
                          "@=\"\"\r\n"
                          "; \"comment\"=\"x\"\r\n"
                          "no equals sign\r\n"
                          "\"hex\"=HEX:0a,0B\r\n"
                          "\"number\"=DWord:000000ff\r\n"
                          "plain=word\r\n"
                          "\"folder\"=\"\xC3\xBC\"\r\n"),
              1u);
    EXPECT_EQ(registry.ReadString(kKey, "text"), "a\\b");
    EXPECT_EQ(registry.ReadString(kKey, "cut"), "left");
    EXPECT_EQ(registry.ReadString(kKey, "quoted"), "say hi");
    EXPECT_EQ(registry.ReadString(kKey, "plain"), "word");
    EXPECT_EQ(registry.ReadString(kKey, "folder"), QString::fromUtf8("ü"));
    EXPECT_EQ(registry.ReadBinary(kKey, "hex"), "0A 0B");
    EXPECT_EQ(registry.ReadDWORD(kKey, "number"), 255u);
    EXPECT_FALSE(registry.ValueExists(kKey, "gone"));
    EXPECT_FALSE(registry.ValueExists(kKey, ""));
    EXPECT_FALSE(registry.ValueExists(kKey, "; comment"));
    EXPECT_EQ(store.Tree().Values("HKEY_CURRENT_USER\\Kelu").size(), 7u);

    ASSERT_EQ(ImportLines("@=\"a default\"\r\n"), 1u);
    EXPECT_EQ(registry.ReadString(kKey, ""), "a default");
    ASSERT_EQ(ImportLines("@=-\r\n"), 1u);
    EXPECT_FALSE(registry.ValueExists(kKey, ""));
    EXPECT_EQ(Import("\xEF\xBB\xBFREGEDIT4\r\n"), 0u) << "a mark before the header";
    // Western code page of older systems
    ASSERT_EQ(ImportLines("\"old\"=\"\x80 \xFC\"\r\n"), 1u);
    EXPECT_EQ(registry.ReadString(kKey, "old"), QString::fromUtf8("€ ü"));
}

TEST_F(BranchFile, ImportReadsKeyLines) {
    for (const char* key : {"Kill", "Stays\\below"}) registry.CreateKey(kKey + '\\' + key);
    registry.SetCreateKeyIfDoesntExists(false);
    EXPECT_EQ(Import("regedit4\r\n"
                     "\"before\"=\"any key\"\r\n"
                     "[-HKEY_CURRENT_USER\\Kelu\\Kill]\r\n\"ignored\"=\"x\"\r\n"
                     "[-HKCU\\Kelu\\Stays]\r\n"
                     "  [HKCU\\Kelu\\New]  \r\n\"v\"=\"1\"\r\n"
                     "[HKXX\\Nowhere]\r\n\"v\"=\"1\"\r\n"
                     "[HKCU\\Kelu\\Empty]\r\n\r\n[\r\n[]\r\n"),
              1u);
    EXPECT_TRUE(registry.CreateKeyIfDoesntExists());
    QStringList names;
    registry.EnumKeys(kKey, names);
    EXPECT_EQ(names, QStringList({"New", "Stays"}));
    EXPECT_EQ(registry.ReadString(kKey + "\\new", "v"), "1");
    EXPECT_FALSE(registry.ValueExists(kKey, "ignored"));
}

TEST_F(BranchFile, ImportRefusesWhatIsNoSuchFile) {
    EXPECT_EQ(registry.ImportFromReg(Path("missing")), 0u);
    for (const char* text : {"", "REGEDIT5\r\n", "REGEDIT4\n[HKCU\\Kelu]\n\"v\"=\"1\"\n", " REGEDIT4\r\n"})
        EXPECT_EQ(Import(text), 0u) << text;
    // What stands before a damaged number stays, what stands behind it is not read.
    EXPECT_EQ(ImportLines("\"first\"=\"1\"\r\n\"bad\"=dword:xyz\r\n\"last\"=\"1\"\r\n"), 0u);
    EXPECT_TRUE(registry.ValueExists(kKey, "first"));
    EXPECT_FALSE(registry.ValueExists(kKey, "last"));
    EXPECT_EQ(ImportLines("\"bad\"=dword:123456789\r\n"), 0u);
}

}  // namespace
}  // namespace kelu
