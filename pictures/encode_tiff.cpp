// Uncompressed TIFF, written straight through: header and directory first, then the pixels in strips. The toolkit's
// writer takes no notice of a full disk.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <vector>

#include "pictures/picture_encoders.h"

namespace kelu {
namespace {

constexpr int kStripBytes = 1 << 16;
enum FieldType { kShort = 3, kLong = 4, kRational = 5 };

class Directory {
 public:
    void Add(quint32 tag, FieldType type, quint32 value) { Add(tag, type, std::vector<quint32>{value}); }
    void Add(quint32 tag, FieldType type, const std::vector<quint32>& values) {
        const auto count = static_cast<quint32>(type == kRational ? values.size() / 2 : values.size());
        fields_.push_back({tag, type, count, 0, values});
    }

    /// File header and directory, `strips` the field whose values are offsets from the end of what is returned.
    QByteArray Bytes(quint32 strips) {
        const auto begin = static_cast<quint32>(8 + 2 + fields_.size() * 12 + 4);
        quint32 end = begin;
        for (Field& field : fields_) {
            if (field.Inside()) continue;
            field.value = end;
            end += static_cast<quint32>(field.values.size()) * (field.type == kShort ? 2 : 4);
        }
        for (Field& field : fields_) {
            if (field.tag != strips) continue;
            for (quint32& offset : field.values) offset += end;
        }
        QByteArray bytes("II*\0\x08\0\0\0", 8);
        Put(bytes, 2, static_cast<quint32>(fields_.size()));
        for (const Field& field : fields_) {
            Put(bytes, 2, field.tag);
            Put(bytes, 2, field.type);
            Put(bytes, 4, field.count);
            Put(bytes, 4, field.Inside() ? field.values[0] : field.value);
        }
        Put(bytes, 4, 0);  // no further directory
        for (const Field& field : fields_) {
            if (field.Inside()) continue;
            for (const quint32 value : field.values) Put(bytes, field.type == kShort ? 2 : 4, value);
        }
        return bytes;
    }

 private:
    struct Field {
        quint32 tag;
        FieldType type;
        quint32 count, value;
        std::vector<quint32> values;
        /// A single value stands in the directory itself; `value` is else where the values are.
        bool Inside() const { return values.size() == 1; }
    };

    static void Put(QByteArray& bytes, int count, quint32 value) {
        for (int i = 0; i < count; ++i) bytes.append(static_cast<char>(value >> (8 * i)));
    }

    std::vector<Field> fields_;
};

}  // namespace

void EncodeTiff(const QImage& picture, const WriteOptions&, QIODevice& device) {
    constexpr quint32 kStripOffsets = 273;
    const bool transparent = picture.hasAlphaChannel();
    const quint32 samples = transparent ? 4 : 3;
    const auto width = static_cast<quint32>(picture.width());
    const auto height = static_cast<quint32>(picture.height());
    const quint32 rowBytes = width * samples;
    const quint32 stripRows = std::clamp(kStripBytes / rowBytes, 1u, height);
    std::vector<quint32> offsets, sizes;
    for (quint32 y = 0; y < height; y += stripRows) {
        offsets.push_back(y * rowBytes);
        sizes.push_back(std::min(stripRows, height - y) * rowBytes);
    }
    // Dots per metre as dots per inch: times 0.0254.
    const auto density = [](int perMeter) {
        return std::vector<quint32>{static_cast<quint32>(std::clamp(perMeter, 0, 10'000'000)) * 254, 10000};
    };
    Directory directory;  // by rising tag
    directory.Add(256, kLong, width);
    directory.Add(257, kLong, height);
    directory.Add(258, kShort, std::vector<quint32>(samples, 8));  // bits
    directory.Add(259, kShort, 1);                                 // not compressed
    directory.Add(262, kShort, 2);                                 // RGB
    directory.Add(kStripOffsets, kLong, offsets);
    directory.Add(274, kShort, 1);  // first row on top
    directory.Add(277, kShort, samples);
    directory.Add(278, kLong, stripRows);
    directory.Add(279, kLong, sizes);
    directory.Add(282, kRational, density(picture.dotsPerMeterX()));
    directory.Add(283, kRational, density(picture.dotsPerMeterY()));
    directory.Add(284, kShort, 1);                   // samples side by side
    directory.Add(296, kShort, 2);                   // inches
    if (transparent) directory.Add(338, kShort, 2);  // colours not multiplied by alpha
    const QByteArray head = directory.Bytes(kStripOffsets);
    WriteAll(device, head.constData(), head.size());

    QByteArray strip;
    for (quint32 y = 0; y < height; y += stripRows) {
        const quint32 end = std::min(height, y + stripRows);
        strip.resize(static_cast<qsizetype>(end - y) * rowBytes);
        char* out = strip.data();
        for (quint32 row = y; row < end; ++row) {
            const auto* pixel = reinterpret_cast<const QRgb*>(picture.constScanLine(static_cast<int>(row)));
            for (quint32 x = 0; x < width; ++x, out += samples) {
                out[0] = static_cast<char>(qRed(pixel[x]));
                out[1] = static_cast<char>(qGreen(pixel[x]));
                out[2] = static_cast<char>(qBlue(pixel[x]));
                if (transparent) out[3] = static_cast<char>(qAlpha(pixel[x]));
            }
        }
        WriteAll(device, strip.constData(), strip.size());
    }
}

}  // namespace kelu
