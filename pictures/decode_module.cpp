// Pictures by a module that is loaded when first needed.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QCoreApplication>
#include <QLibrary>
#include <map>
#include <mutex>
#include <string>

#include "pictures/codec_module.h"
#include "pictures/exif.h"
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

void DecodeJpegBytes(const QByteArray& bytes, QImage& image, Metadata& metadata) {
    const PictureFormat* format = TellPictureFormat(bytes.left(kHeadBytes), bytes.size());
    if (!format || format->decoders[0] != &DecodeJpeg) ThrowDamaged();
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    PictureInput input(buffer, *format, QSize());
    DecodedPicture decoded = DecodeJpeg(input);
    image = decoded.image;
    metadata = decoded.metadata;
}

}  // namespace

DecodedPicture DecodeWithModule(PictureInput& input) {
    return DecodeWithModule(input, input.Format().moduleName, QLatin1String(input.Format().name));
}

DecodedPicture DecodeWithModule(PictureInput& input, const char* module, QLatin1String formatName) {
    const DecodeFunction decode = Load(module);
    if (!decode) throw Error(kInvalidPicture, PictureTexts::tr("What reads %1 files is not installed").arg(formatName));
    const CodecHost host{&MakePicture, &CheckPictureSize, &ThrowCutShort, &ThrowDamaged, &DecodeJpegBytes};
    DecodedPicture result;
    decode(input.Bytes(), host, result.image, result.metadata);
    const Exif exif = ReadExif(result.metadata.exif);
    if (!result.image.isNull()) SetResolution(result.image, exif.dotsPerMeterX, exif.dotsPerMeterY);
    return result;
}

}  // namespace kelu
