// The settings file: readable, private, safe against other writers, damage and bad folders.
// SPDX-License-Identifier: MIT
#include "platform/registry_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <thread>

#include "platform/registry_access.h"
#include "platform/registry_text.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

const QString kKey = QStringLiteral("HKCU\\Kelu");

struct RegistryFileTest : testing::Test {
    QTemporaryDir folder;
    const QString path = folder.filePath("config/Tarvane/Kelu/settings.txt");

    QStringList Aside() { return QFileInfo(path).dir().entryList({"*.damaged-*"}, QDir::Files | QDir::Hidden); }
    static int Mode(const QString& name) {
        struct stat state {};
        return ::stat(QFile::encodeName(name).constData(), &state) == 0 ? state.st_mode & 07777 : -1;
    }
};

TEST_F(RegistryFileTest, IsATextThatAPersonCanReadAndOnlyTheUserCan) {
    RegistryFile store(path);
    clsRegistryAccess registry(store);
    EXPECT_EQ(registry.ReadString(kKey, "v", "none"), "none");
    EXPECT_FALSE(QFile::exists(path));  // a read makes no file
    ASSERT_NE(registry.WriteString("HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings\\Email", "Method", "1"), 0u);
    registry.WriteDWORD(kKey, "n", 42);
    const QByteArray text = ReadBytes(path);
    EXPECT_TRUE(text.contains("\n[HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings\\Email]\n\"Method\" = \"1\"\n"))
        << text.toStdString();
    EXPECT_TRUE(text.contains("\n[HKEY_CURRENT_USER\\Kelu]\n\"n\" = number:42\n"));
    EXPECT_EQ(Mode(path), 0600);
    for (const char* made : {"config", "config/Tarvane", "config/Tarvane/Kelu"})
        EXPECT_EQ(Mode(folder.filePath(made)), 0700) << made;
    EXPECT_TRUE(RegistryFile::UserPath().endsWith("/Tarvane/Kelu/settings.txt"));
}

TEST_F(RegistryFileTest, EveryKindOfValueComesBackFromTheText) {
    const std::vector<RegistryValue> kValues = {
        {"", kRegistryString, "default"},
        {QString::fromUtf8("n \"q\" \\ = [x] ü"), kRegistryString, "a\\b \"c\" \r\n\t\x01 # \xE5\x86\x99"},
        {"not utf-8", kRegistryString, "\xFF\xFE"},
        {"expand", kRegistryExpandString, "%HOME%"},
        {"multi", kRegistryMultiString, QByteArray("one\0two\0", 8)},
        {"multi without end", kRegistryMultiString, "one"},
        {"bytes", kRegistryBinary, QByteArray("\0\x0A\xFF", 3)},
        {"no bytes", kRegistryBinary, ""},
        {"number", kRegistryNumber, QByteArray("\xFF\xFF\xFF\xFF", 4)},
        {"short number", kRegistryNumber, "\x01"},
        {"qword", 11, "12345678"},
        {"#", kRegistryString, ""},
    };
    {
        RegistryFile store(path);
        ASSERT_TRUE(store.Apply([&](RegistryTree& tree) {
            return tree.MakeKey("HKEY_USERS\\With [brackets] \\and empty") && tree.MakeKey("HKEY_USERS\\k") &&
                   std::all_of(kValues.begin(), kValues.end(),
                               [&](const RegistryValue& value) { return tree.Set("HKEY_USERS\\k", value); });
        }));
    }
    RegistryFile store(path);
    const std::vector<RegistryValue>& read = store.Tree().Values("HKEY_USERS\\k");
    ASSERT_EQ(read.size(), kValues.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        EXPECT_EQ(read[i].name, kValues[i].name);
        EXPECT_EQ(read[i].type, kValues[i].type) << read[i].name.toStdString();
        EXPECT_EQ(read[i].data, kValues[i].data) << read[i].name.toStdString();
    }
    EXPECT_TRUE(store.Tree().HasKey("HKEY_USERS\\With [brackets] \\and empty"));
    EXPECT_TRUE(Aside().isEmpty());
}

TEST_F(RegistryFileTest, SeesWhatOthersWriteAndLosesNothingOfIt) {
    RegistryFile first(path), second(path);
    clsRegistryAccess one(first), two(second);
    for (int i = 0; i < 20; ++i) {  // one length, so that size alone tells nothing
        one.WriteString(kKey, "v", QString::number(10 + i));
        ASSERT_EQ(two.ReadString(kKey, "V"), QString::number(10 + i));
    }
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer)
        writers.emplace_back([this, writer] {
            RegistryFile store(path);
            clsRegistryAccess registry(store);
            for (int i = 0; i < 25; ++i)
                EXPECT_NE(registry.WriteDWORD(kKey, QString("w%1 v%2").arg(writer).arg(i), 1), 0u);
        });
    for (std::thread& writer : writers) writer.join();
    EXPECT_EQ(first.Tree().Values("HKEY_CURRENT_USER\\Kelu").size(), 101u);
}

TEST_F(RegistryFileTest, DamagedFileIsSetAsideAndItsGoodLinesStay) {
    const struct {
        const char* name;
        QByteArray line;
    } kCases[] = {
        {"open quote", "\"b\" = \"half"},
        {"not utf-8", "\"b\" = \"\xFF\""},
        {"zeros", QByteArray(200, '\0')},
        {"unknown root", "[HKEY_NOWHERE\\k]"},
        {"no key", "[]"},
        {"bad number", "\"b\" = number:99999999999"},
        {"odd hex", "\"b\" = binary:0A B"},
        {"rest", "\"b\" = \"x\" y"},
        {"bad escape", "\"b\" = \"\\u{zz}\""},
    };
    for (const auto& [name, line] : kCases) {
        QFile::remove(path);
        RegistryFile store(path);
        clsRegistryAccess registry(store);
        registry.WriteString(kKey, "a", "kept");
        const QByteArray damaged = ReadBytes(path) + line + "\n";
        WriteBytes(path, damaged);
        RegistryFile later(path);
        EXPECT_EQ(clsRegistryAccess(later).ReadString(kKey, "a"), "kept") << name;
        ASSERT_EQ(Aside().size(), 1) << name;
        const QString aside = QFileInfo(path).dir().filePath(Aside().first());
        EXPECT_EQ(ReadBytes(aside), damaged) << name;
        EXPECT_EQ(Mode(aside), 0600);
        EXPECT_EQ(ReadRegistryText(ReadBytes(path)).damagedLine, 0) << name;
        QFile::remove(aside);
    }
}

TEST_F(RegistryFileTest, RefusesWhatItCanNotKeep) {
    ASSERT_TRUE(QDir().mkpath(path));  // a folder where the file should be
    RegistryFile store(path);
    clsRegistryAccess registry(store);
    EXPECT_EQ(registry.WriteString(kKey, "v", "x"), 0u);
    EXPECT_TRUE(registry.Failure().startsWith(path + ": ")) << registry.Failure().toStdString();
    EXPECT_EQ(registry.ReadString(kKey, "v", "default"), "default");

    WriteBytes(folder.filePath("no-folder"), {});
    RegistryFile below(folder.filePath("no-folder/settings.txt"));
    EXPECT_EQ(clsRegistryAccess(below).WriteString(kKey, "v", "x"), 0u);
    EXPECT_TRUE(below.Failure().endsWith("the folder " + folder.filePath("no-folder") + " can't be made"));
    EXPECT_EQ(clsRegistryAccess(below).ReadString(kKey, "v", "default"), "default");
}

}  // namespace
}  // namespace kelu
