// Pictures by a module that is loaded when first needed.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QLibrary>
#include <map>
#include <mutex>
#include <string>

#include "pictures/codec_module.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {
namespace {

// Null when the module or a library of its own is missing.
DecodeFunction Load(const char* module) {
    static std::mutex mutex;
    static std::map<std::string, DecodeFunction> loaded;
    const std::lock_guard lock(mutex);
    const auto [entry, isNew] = loaded.try_emplace(module, nullptr);
    if (isNew) {
        const QString path =
            QStringLiteral("%1/codecs/kelu_%2.so").arg(QCoreApplication::applicationDirPath(), QLatin1String(module));
        entry->second = reinterpret_cast<DecodeFunction>(QLibrary::resolve(path, kDecodeFunction));
    }
    return entry->second;
}

}  // namespace

DecodedPicture DecodeWithModule(PictureInput& input) {
    const PictureFormat& format = input.Format();
    const DecodeFunction decode = Load(format.moduleName);
    if (!decode)
        throw Error(kInvalidPicture,
                    PictureTexts::tr("What reads %1 files is not installed").arg(QLatin1String(format.name)));
    const CodecHost host{&MakePicture, &CheckPictureSize, &ThrowCutShort, &ThrowDamaged};
    DecodedPicture result;
    decode(input.Bytes(), host, result.image, result.metadata);
    return result;
}

}  // namespace kelu
