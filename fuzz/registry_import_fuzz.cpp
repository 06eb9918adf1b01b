// Feeds any bytes to the import of REGEDIT4 files and to the reader of the settings file. What an import leaves must
// come back from the settings text as it is, and an export of it must import again. Built for libFuzzer (the target
// brings LLVMFuzzerTestOneInput alone).
// SPDX-License-Identifier: MIT
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

#include "platform/registry_access.h"
#include "platform/registry_text.h"

namespace {

QByteArray Again(const QByteArray& settings) {
    const kelu::RegistryTextRead read = kelu::ReadRegistryText(settings);
    if (read.damagedLine != 0) std::abort();
    return kelu::WriteRegistryText(read.tree);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

    // Reading damaged settings keeps what can be read, and that is then undamaged.
    const QByteArray kept = kelu::WriteRegistryText(kelu::ReadRegistryText(bytes).tree);
    if (Again(kept) != kept) std::abort();

    const QString path = folder.filePath("import.reg"), exported = folder.filePath("export.reg");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return 0;
    file.write("REGEDIT4\r\n[HKCU\\K]\r\n" + bytes);
    file.close();
    kelu::MemoryRegistryStore store;
    kelu::clsRegistryAccess registry(store);
    registry.ImportFromReg(path);
    const QByteArray settings = kelu::WriteRegistryText(store.Tree());
    if (Again(settings) != settings) std::abort();

    QFile::remove(exported);
    if (registry.ExportToReg("HKCU", exported, true) != 1) std::abort();
    kelu::MemoryRegistryStore other;
    kelu::clsRegistryAccess(other).ImportFromReg(exported);
    if (!registry.KeyExists("HKCU")) std::abort();
    return 0;
}
