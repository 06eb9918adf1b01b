// Directories of tags: TIFF, revision 6.0, section 2. Every place and length in a file is doubted.
// SPDX-License-Identifier: MIT
#include "pictures/tiff_tags.h"

#include <QBuffer>
#include <algorithm>
#include <array>

#include "pictures/bytes.h"

namespace kelu {
namespace {

constexpr qint64 kEntryBytes = 12;
constexpr qint64 kLongestValue = 4 << 20;
constexpr qint64 kMostBytes = 16 << 20;    // of all values of a file
constexpr qint64 kLongestBlock = 1 << 16;  // where a maker's note can have a place to keep
constexpr std::array<int, 14> kTypeBytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

class Reader {
 public:
    Reader(QIODevice& device, bool little) : device_(device), little_(little) {}

    TiffDirectory Directory(qint64 at) {
        TiffDirectory directory;
        if (at < kTiffHeadBytes) return directory;
        const qint64 entries = Number(Read(at, 2), 0, 2);
        const QByteArray table = Read(at + 2, std::min(entries * kEntryBytes, device_.size() - at - 2));
        for (qint64 entry = 0; entry + kEntryBytes <= table.size(); entry += kEntryBytes) {
            const quint32 type = Number(table, entry + 2, 2);
            const quint32 count = Number(table, entry + 4, 4);
            const qint64 bytes = type < kTypeBytes.size() ? qint64{count} * kTypeBytes[type] : 0;
            if (bytes == 0 || bytes > kLongestValue || bytes > left_) continue;
            const qint64 valueAt = bytes <= 4 ? at + 2 + entry + 8 : qint64{Number(table, entry + 8, 4)};
            const QByteArray value = Read(valueAt, bytes);
            if (value.size() != bytes) continue;
            left_ -= bytes;
            directory.push_back({static_cast<quint16>(Number(table, entry, 2)), static_cast<quint16>(type), count,
                                 value, bytes <= 4 ? 0 : valueAt});
        }
        return directory;
    }

    /// The directory whose place a tag tells; the tag goes.
    TiffDirectory Below(TiffDirectory& directory, quint16 tag) {
        const TiffTag* found = TiffTags::Find(directory, tag);
        const qint64 at = found ? Number(found->value, 0, 4) : 0;
        TiffTags::Erase(directory, tag);
        return at == 0 ? TiffDirectory() : Directory(at);
    }

    quint32 Number(const QByteArray& bytes, qint64 at, int count) const {
        return little_ ? LittleEndian(bytes, at, count) : BigEndian(bytes, at, count);
    }

 private:
    QByteArray Read(qint64 at, qint64 count) {
        if (at < 0 || count <= 0 || at + count > device_.size() || !device_.seek(at)) return {};
        return device_.read(count);
    }

    QIODevice& device_;
    bool little_;
    qint64 left_ = kMostBytes;
};

// Puts directories and values one behind the other, around a maker's note that keeps its place.
class Layout {
 public:
    Layout(const TiffTags& tags, qint64 base, const TiffTag* pinned) : tags_(tags), base_(base), pinned_(pinned) {}

    QByteArray Lay() {
        const qint64 main = mainAt_ = Reserve(Size(Main()));
        const qint64 exif = Reserve(Size(Exif()));
        const qint64 gps = Reserve(Size(tags_.gps));
        const qint64 interop = Reserve(Size(tags_.interop));
        TiffDirectory top = Main();
        if (exif) tags_.Put(top, TiffTags::kExifTag, kLong, {static_cast<quint32>(exif)});
        if (gps) tags_.Put(top, TiffTags::kGpsTag, kLong, {static_cast<quint32>(gps)});
        TiffDirectory below = Exif();
        if (interop) tags_.Put(below, TiffTags::kInteropTag, kLong, {static_cast<quint32>(interop)});
        Fill(main, top);
        Fill(exif, below);
        Fill(gps, tags_.gps);
        Fill(interop, tags_.interop);
        if (pinned_) Write(pinned_->at, pinned_->value);
        return bytes_;
    }
    qint64 MainAt() const { return mainAt_; }

 private:
    // With the tags that tell of the directories below, whose places are not known yet.
    TiffDirectory Main() const {
        TiffDirectory main = tags_.main;
        if (Size(Exif())) tags_.Put(main, TiffTags::kExifTag, kLong, {0});
        if (!tags_.gps.empty()) tags_.Put(main, TiffTags::kGpsTag, kLong, {0});
        return main;
    }
    TiffDirectory Exif() const {
        TiffDirectory exif = tags_.exif;
        if (!tags_.interop.empty()) tags_.Put(exif, TiffTags::kInteropTag, kLong, {0});
        return exif;
    }

    static qint64 Size(const TiffDirectory& directory) {
        return directory.empty() ? 0 : 2 + static_cast<qint64>(directory.size()) * kEntryBytes + 4;
    }

    /// The place of so many bytes, which are 0 for now; 0 for none.
    qint64 Reserve(qint64 size) {
        if (size == 0) return 0;
        qint64 at = base_ + bytes_.size();
        at += at % 2;
        if (pinned_ && at < pinned_->at + pinned_->value.size() && at + size > pinned_->at) {
            at = pinned_->at + pinned_->value.size();
            at += at % 2;
        }
        bytes_.resize(at - base_ + size, '\0');
        return at;
    }

    void Write(qint64 at, const QByteArray& value) {
        bytes_.resize(std::max(bytes_.size(), static_cast<qsizetype>(at - base_ + value.size())), '\0');
        std::copy(value.begin(), value.end(), bytes_.begin() + (at - base_));
    }

    void Fill(qint64 at, TiffDirectory directory) {
        if (at == 0) return;
        std::ranges::stable_sort(directory, {}, &TiffTag::tag);
        Write(at, tags_.Bytes(static_cast<quint32>(directory.size()), 2));
        at += 2;
        for (const TiffTag& tag : directory) {
            Write(at, tags_.Bytes(tag.tag, 2) + tags_.Bytes(tag.type, 2) + tags_.Bytes(tag.count, 4));
            if (tag.value.size() <= 4) {
                Write(at + 8, tag.value);
            } else {
                const bool stays = pinned_ && tag.tag == pinned_->tag && tag.at == pinned_->at;
                const qint64 valueAt = stays ? pinned_->at : Reserve(tag.value.size());
                Write(at + 8, tags_.Bytes(static_cast<quint32>(valueAt), 4));
                if (!stays) Write(valueAt, tag.value);
            }
            at += kEntryBytes;
        }
    }

    const TiffTags& tags_;
    const qint64 base_;
    const TiffTag* const pinned_;
    QByteArray bytes_;
    qint64 mainAt_ = 0;
};

}  // namespace

const TiffTag* TiffTags::Find(const TiffDirectory& directory, quint16 tag) {
    const auto found = std::ranges::find(directory, tag, &TiffTag::tag);
    return found == directory.end() ? nullptr : &*found;
}

quint32 TiffTags::Number(const TiffTag& tag, qint64 index, int bytes) const {
    return little ? LittleEndian(tag.value, index * bytes, bytes) : BigEndian(tag.value, index * bytes, bytes);
}

QByteArray TiffTags::Bytes(quint32 number, int count) const {
    QByteArray bytes(count, '\0');
    for (int i = 0; i < count; ++i) bytes[little ? i : count - 1 - i] = static_cast<char>(number >> (8 * i));
    return bytes;
}

void TiffTags::Put(TiffDirectory& directory, quint16 tag, TiffType type, const std::vector<quint32>& numbers) const {
    QByteArray value;
    for (const quint32 number : numbers) value += Bytes(number, type == kShort ? 2 : 4);
    PutBytes(directory, tag, type, value);
}

void TiffTags::PutBytes(TiffDirectory& directory, quint16 tag, TiffType type, const QByteArray& value) {
    Erase(directory, tag);
    const auto count = static_cast<quint32>(value.size() / kTypeBytes[type]);
    directory.push_back({tag, type, count, value, 0});
}

void TiffTags::Erase(TiffDirectory& directory, quint16 tag) {
    std::erase_if(directory, [tag](const TiffTag& entry) { return entry.tag == tag; });
}

TiffTags ReadTiffTags(QIODevice& device) {
    TiffTags tags;
    if (!device.seek(0)) return tags;
    const QByteArray head = device.read(kTiffHeadBytes);
    const bool big = head.startsWith(QByteArray("MM\0*", 4));
    if (head.size() < kTiffHeadBytes || !(big || head.startsWith(QByteArray("II*\0", 4)))) return tags;
    tags.little = !big;
    Reader reader(device, tags.little);
    tags.main = reader.Directory(reader.Number(head, 4, 4));
    tags.exif = reader.Below(tags.main, TiffTags::kExifTag);
    tags.gps = reader.Below(tags.main, TiffTags::kGpsTag);
    tags.interop = reader.Below(tags.exif, TiffTags::kInteropTag);
    return tags;
}

TiffTags ReadTiffTags(const QByteArray& block) {
    QBuffer buffer;
    buffer.setData(block);
    buffer.open(QIODevice::ReadOnly);
    return ReadTiffTags(buffer);
}

QByteArray LayOutTiffTags(const TiffTags& tags, qint64 base) { return Layout(tags, base, nullptr).Lay(); }

QByteArray WriteTiffTags(const TiffTags& tags) {
    if (tags.main.empty() && tags.exif.empty() && tags.gps.empty()) return {};
    const TiffTag* note = TiffTags::Find(tags.exif, TiffTags::kNoteTag);
    if (note && (note->at < kTiffHeadBytes || note->at + note->value.size() > kLongestBlock)) note = nullptr;
    Layout layout(tags, kTiffHeadBytes, note);
    const QByteArray body = layout.Lay();
    return TiffHead(tags, static_cast<quint32>(layout.MainAt())) + body;
}

QByteArray TiffHead(const TiffTags& tags, quint32 mainAt) {
    return (tags.little ? QByteArray("II*\0", 4) : QByteArray("MM\0*", 4)) + tags.Bytes(mainAt, 4);
}

}  // namespace kelu
