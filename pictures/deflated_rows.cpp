// The picture is cut into bands of rows, each filtered and deflated by itself, and the pieces joined into one stream,
// which any reader takes.
// SPDX-License-Identifier: MIT
#include "pictures/deflated_rows.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "engine/bands.h"

namespace kelu {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kBandBytes = 1 << 19;      // of filtered rows
constexpr int kDictionaryBytes = 32768;  // as far as deflate looks back
constexpr std::size_t kBandsAtOnce = 16;
// Of a photograph's filtered rows hardly anything repeats: looking for runs alone takes a third of the time of level 3
// and leaves them 10 % smaller. Rows that get smaller than this part of themselves so are drawn rather than
// photographed, and are worth a search for what repeats.
constexpr std::size_t kDrawnPart = 12;
constexpr int kSearchLevel = 3;

// Turns rows of the picture into filtered rows. Which filter a row gets depends on the row and the one above alone, so
// that any band can be made on any thread.
class RowFilter {
 public:
    RowFilter(const QImage& picture, int channels)
        : picture_(picture),
          pixelBytes_(channels),
          rowBytes_(static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(pixelBytes_)),
          above_(kMargin + rowBytes_),
          row_(kMargin + rowBytes_) {
        for (Bytes& candidate : candidates_) candidate.resize(rowBytes_);
    }

    std::size_t FilteredBytes() const { return rowBytes_ + 1; }

    // Filtered rows [begin, end), one behind the other.
    Bytes Filter(int begin, int end) {
        Bytes filtered(FilteredBytes() * static_cast<std::size_t>(end - begin));
        std::uint8_t* out = filtered.data();
        if (begin > 0)
            Unpack(begin - 1, row_);
        else
            std::fill(row_.begin(), row_.end(), std::uint8_t{0});
        for (int y = begin; y < end; ++y, out += FilteredBytes()) {
            std::swap(above_, row_);
            Unpack(y, row_);
            FilterRow(out);
        }
        return filtered;
    }

 private:
    static constexpr std::size_t kMargin = 16;  // zeros to the left of the first pixel

    void Unpack(int y, Bytes& row) const {
        const auto* pixel = reinterpret_cast<const QRgb*>(picture_.constScanLine(y));
        std::uint8_t* out = row.data() + kMargin;
        for (int x = 0; x < picture_.width(); ++x, out += pixelBytes_) {
            const QRgb color = pixel[x];
            out[0] = static_cast<std::uint8_t>(color >> 16);
            if (pixelBytes_ == 1) continue;
            out[1] = static_cast<std::uint8_t>(color >> 8);
            out[2] = static_cast<std::uint8_t>(color);
            if (pixelBytes_ == 4) out[3] = static_cast<std::uint8_t>(color >> 24);
        }
    }

    void FilterRow(std::uint8_t* out) {
        const std::uint8_t* row = row_.data() + kMargin;
        const std::uint8_t* above = above_.data() + kMargin;
        const std::uint8_t* left = row - pixelBytes_;
        const std::uint8_t* aboveLeft = above - pixelBytes_;
        const std::size_t count = rowBytes_;
        std::uint8_t* sub = candidates_[0].data();
        std::uint8_t* up = candidates_[1].data();
        std::uint8_t* average = candidates_[2].data();
        std::uint8_t* paeth = candidates_[3].data();
        for (std::size_t i = 0; i < count; ++i) sub[i] = static_cast<std::uint8_t>(row[i] - left[i]);
        for (std::size_t i = 0; i < count; ++i) up[i] = static_cast<std::uint8_t>(row[i] - above[i]);
        for (std::size_t i = 0; i < count; ++i)
            average[i] = static_cast<std::uint8_t>(row[i] - ((left[i] + above[i]) >> 1));
        for (std::size_t i = 0; i < count; ++i) {
            const int a = left[i];
            const int b = above[i];
            const int c = aboveLeft[i];
            const int pa = std::abs(b - c);
            const int pb = std::abs(a - c);
            const int pc = std::abs(a + b - 2 * c);
            const int near = pb <= pc ? b : c;
            paeth[i] = static_cast<std::uint8_t>(row[i] - (pa <= pb && pa <= pc ? a : near));
        }
        // The usual rule: the smallest sum of absolute differences.
        int best = 0;
        std::uint64_t bestSum = SumOfDifferences(row, count);
        for (int i = 0; i < 4; ++i) {
            const std::uint64_t sum = SumOfDifferences(candidates_[static_cast<std::size_t>(i)].data(), count);
            if (sum >= bestSum) continue;
            bestSum = sum;
            best = i + 1;
        }
        out[0] = static_cast<std::uint8_t>(best);
        std::memcpy(out + 1, best == 0 ? row : candidates_[static_cast<std::size_t>(best - 1)].data(), count);
    }

    static std::uint64_t SumOfDifferences(const std::uint8_t* bytes, std::size_t count) {
        std::uint64_t sum = 0;
        for (std::size_t i = 0; i < count;) {
            const std::size_t end = std::min(count, i + 65536);
            std::uint32_t part = 0;
            for (; i < end; ++i) part += static_cast<std::uint32_t>(std::abs(static_cast<std::int8_t>(bytes[i])));
            sum += part;
        }
        return sum;
    }

    const QImage& picture_;
    int pixelBytes_;
    std::size_t rowBytes_;
    Bytes above_;
    Bytes row_;
    std::array<Bytes, 4> candidates_;
};

struct Band {
    int begin, end;
    Bytes deflated;
    uLong checksum = 0;
    std::size_t filteredBytes = 0;
};

/// `dictionary` stands before the bytes in the whole stream.
Bytes Deflate(const Bytes& bytes, const Bytes& dictionary, bool last, int level, int strategy) {
    z_stream stream{};
    if (deflateInit2(&stream, level, Z_DEFLATED, -MAX_WBITS, 9, strategy) != Z_OK) throw std::bad_alloc();
    const std::unique_ptr<z_stream, decltype(&deflateEnd)> end(&stream, &deflateEnd);
    if (!dictionary.empty()) {
        const std::size_t size = std::min<std::size_t>(dictionary.size(), kDictionaryBytes);
        deflateSetDictionary(&stream, dictionary.data() + dictionary.size() - size, static_cast<uInt>(size));
    }
    Bytes deflated(deflateBound(&stream, static_cast<uLong>(bytes.size())) + 64);
    stream.next_in = const_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = deflated.data();
    stream.avail_out = static_cast<uInt>(deflated.size());
    deflate(&stream, last ? Z_FINISH : Z_SYNC_FLUSH);
    deflated.resize(deflated.size() - stream.avail_out);
    return deflated;
}

void DeflateBand(const QImage& picture, RowSamples samples, Band& band) {
    RowFilter filter(picture, static_cast<int>(samples));
    const Bytes filtered = filter.Filter(band.begin, band.end);
    band.filteredBytes = filtered.size();
    band.checksum = adler32(adler32(0, nullptr, 0), filtered.data(), static_cast<uInt>(filtered.size()));
    const bool last = band.end == picture.height();
    band.deflated = Deflate(filtered, {}, last, 1, Z_RLE);
    if (band.deflated.size() > filtered.size() / kDrawnPart) return;
    Bytes before;
    if (band.begin > 0) {
        const int rows = kDictionaryBytes / static_cast<int>(filter.FilteredBytes()) + 1;
        before = filter.Filter(std::max(0, band.begin - rows), band.begin);
    }
    Bytes searched = Deflate(filtered, before, last, kSearchLevel, Z_FILTERED);
    if (searched.size() < band.deflated.size()) band.deflated = std::move(searched);
}

}  // namespace

RowSamples FewestSamples(const QImage& picture) {
    bool grey = true;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        unsigned transparent = 0;
        unsigned colored = 0;
        for (int x = 0; x < picture.width(); ++x) {
            transparent |= ~row[x] >> 24;
            colored |= (row[x] ^ (row[x] >> 8)) & 0xffffu;
        }
        if (transparent != 0 && picture.hasAlphaChannel()) return RowSamples::Rgba;
        grey = grey && colored == 0;
        if (!grey && !picture.hasAlphaChannel()) return RowSamples::Rgb;
    }
    return grey ? RowSamples::Grey : RowSamples::Rgb;
}

void DeflateRows(const QImage& picture, RowSamples samples, const TakeDeflated& take) {
    const auto rowBytes = std::int64_t{picture.width()} * static_cast<int>(samples) + 1;
    const int bandRows = static_cast<int>(std::clamp<std::int64_t>(kBandBytes / rowBytes, 1, picture.height()));
    uLong checksum = adler32(0, nullptr, 0);
    for (int row = 0; row < picture.height();) {
        std::vector<Band> bands;
        for (; row < picture.height() && bands.size() < kBandsAtOnce; row = bands.back().end) {
            bands.emplace_back().begin = row;
            bands.back().end = std::min(picture.height(), row + bandRows);
        }
        engine::SplitRows({}, static_cast<int>(bands.size()), kBandBytes, [&](int begin, int end) {
            for (int i = begin; i < end; ++i) DeflateBand(picture, samples, bands[static_cast<std::size_t>(i)]);
        });
        for (Band& band : bands) {
            checksum = adler32_combine(checksum, band.checksum, static_cast<z_off_t>(band.filteredBytes));
            if (band.begin == 0) band.deflated.insert(band.deflated.begin(), {0x78, 0x5e});  // zlib's header
            if (band.end == picture.height())
                for (int shift = 24; shift >= 0; shift -= 8)
                    band.deflated.push_back(static_cast<std::uint8_t>(checksum >> shift));
            take(band.deflated, band.end);
        }
    }
}

}  // namespace kelu
