// Palette by cutting the colours where that lessens the squared error most, then k-means; pixels by error diffusion.
// SPDX-License-Identifier: MIT
#include "pictures/palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "engine/bands.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr int kMostColors = 256;
constexpr int kCellBits = 6;  // of each channel, in the histogram and in the table of nearest colours
constexpr int kCellShift = 8 - kCellBits;
constexpr std::size_t kCells = std::size_t{1} << (3 * kCellBits);
constexpr int kRefinements = 12;
// Share of the error that goes on to the neighbours: less than all of it keeps flat grounds calmer and the whole
// nearer to the original, and still leaves no bands.
constexpr float kDiffused = 0.85f;

using Rgb = std::array<float, 3>;

bool Visible(QRgb pixel) { return qAlpha(pixel) >= 128; }

std::size_t CellOf(int r, int g, int b) {
    return (static_cast<std::size_t>(r >> kCellShift) << (2 * kCellBits)) |
           (static_cast<std::size_t>(g >> kCellShift) << kCellBits) | static_cast<std::size_t>(b >> kCellShift);
}

// A cell of the histogram: its mean colour and how many pixels it stands for.
struct Cluster {
    Rgb mean{};
    float weight = 0;
};

const QRgb* Row(const QImage& picture, int y) { return reinterpret_cast<const QRgb*>(picture.constScanLine(y)); }

bool FewColors(const QImage& picture, PalettePicture& result) {
    std::unordered_map<QRgb, std::uint8_t> known;
    QRgb lastColor = 0;
    std::uint8_t lastIndex = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const QRgb* row = Row(picture, y);
        for (int x = 0; x < picture.width(); ++x) {
            const bool visible = Visible(row[x]);
            const QRgb color = visible ? row[x] | 0xff000000u : 0;
            if (result.indexes.empty() || color != lastColor) {
                const auto place = known.find(color);
                if (place == known.end()) {
                    if (known.size() == kMostColors) return false;
                    lastIndex = static_cast<std::uint8_t>(known.size());
                    known.emplace(color, lastIndex);
                    result.colors.push_back(color | 0xff000000u);
                    if (!visible) result.transparent = lastIndex;
                } else {
                    lastIndex = place->second;
                }
                lastColor = color;
            }
            result.indexes.push_back(lastIndex);
        }
    }
    return true;
}

std::vector<Cluster> Histogram(const QImage& picture, bool& transparent) {
    struct Sums {
        std::uint32_t count = 0;
        std::array<std::uint64_t, 3> sum{};
    };
    std::vector<Sums> cells(kCells);
    transparent = false;
    // A sample of some millions tells as much as all pixels.
    const std::int64_t pixels = std::int64_t{picture.width()} * picture.height();
    const int step = std::max(1, static_cast<int>(std::sqrt(static_cast<double>(pixels) / 3e6)));
    for (int y = 0; y < picture.height(); y += step) {
        const QRgb* row = Row(picture, y);
        for (int x = 0; x < picture.width(); x += step) {
            if (!Visible(row[x])) {
                transparent = true;
                continue;
            }
            Sums& cell = cells[CellOf(qRed(row[x]), qGreen(row[x]), qBlue(row[x]))];
            ++cell.count;
            cell.sum[0] += static_cast<unsigned>(qRed(row[x]));
            cell.sum[1] += static_cast<unsigned>(qGreen(row[x]));
            cell.sum[2] += static_cast<unsigned>(qBlue(row[x]));
        }
    }
    for (int y = 0; y < picture.height() && picture.hasAlphaChannel() && !transparent; ++y) {
        const QRgb* row = Row(picture, y);
        transparent = !std::all_of(row, row + picture.width(), Visible);
    }
    std::vector<Cluster> clusters;
    for (const Sums& cell : cells) {
        if (cell.count == 0) continue;
        Cluster cluster;
        cluster.weight = static_cast<float>(cell.count);
        for (std::size_t c = 0; c < 3; ++c)
            cluster.mean[c] = static_cast<float>(static_cast<double>(cell.sum[c]) / cell.count);
        clusters.push_back(cluster);
    }
    return clusters;
}

// A range of clusters that one palette colour stands for.
struct Box {
    std::size_t begin, end;
    double error;  // squared, of all its pixels against their mean
    int axis;      // along which the error is largest
    Rgb mean;
};

Box Measure(const std::vector<Cluster>& clusters, std::size_t begin, std::size_t end) {
    double weight = 0;
    std::array<double, 3> sum{};
    std::array<double, 3> squares{};
    for (std::size_t i = begin; i < end; ++i) {
        weight += clusters[i].weight;
        for (std::size_t c = 0; c < 3; ++c) {
            const double value = clusters[i].mean[c];
            sum[c] += clusters[i].weight * value;
            squares[c] += clusters[i].weight * value * value;
        }
    }
    Box box{begin, end, 0, 0, {}};
    double largest = -1;
    for (std::size_t c = 0; c < 3; ++c) {
        box.mean[c] = static_cast<float>(sum[c] / weight);
        const double error = std::max(0.0, squares[c] - sum[c] * sum[c] / weight);
        box.error += error;
        if (error > largest) {
            largest = error;
            box.axis = static_cast<int>(c);
        }
    }
    return box;
}

// Where to cut a box, sorted along its axis, so that both halves together have the least error along it.
std::size_t CutPlace(const std::vector<Cluster>& clusters, const Box& box) {
    const auto axis = static_cast<std::size_t>(box.axis);
    double weight = 0;
    double sum = 0;
    for (std::size_t i = box.begin; i < box.end; ++i) {
        weight += clusters[i].weight;
        sum += static_cast<double>(clusters[i].weight) * clusters[i].mean[axis];
    }
    double leftWeight = 0;
    double leftSum = 0;
    double best = -1;
    std::size_t place = box.begin + 1;
    for (std::size_t i = box.begin; i + 1 < box.end; ++i) {
        leftWeight += clusters[i].weight;
        leftSum += static_cast<double>(clusters[i].weight) * clusters[i].mean[axis];
        const double gain = leftSum * leftSum / leftWeight + (sum - leftSum) * (sum - leftSum) / (weight - leftWeight);
        if (gain > best) {
            best = gain;
            place = i + 1;
        }
    }
    return place;
}

std::vector<Rgb> CutPalette(std::vector<Cluster>& clusters, std::size_t count) {
    std::vector<Box> boxes{Measure(clusters, 0, clusters.size())};
    while (boxes.size() < count) {
        const auto worst =
            std::max_element(boxes.begin(), boxes.end(), [](const Box& a, const Box& b) { return a.error < b.error; });
        if (worst->error <= 0 || worst->end - worst->begin < 2) break;
        const Box box = *worst;
        const auto axis = static_cast<std::size_t>(box.axis);
        std::sort(clusters.begin() + static_cast<std::ptrdiff_t>(box.begin),
                  clusters.begin() + static_cast<std::ptrdiff_t>(box.end),
                  [axis](const Cluster& a, const Cluster& b) { return a.mean[axis] < b.mean[axis]; });
        const std::size_t place = CutPlace(clusters, box);
        *worst = Measure(clusters, box.begin, place);
        boxes.push_back(Measure(clusters, place, box.end));
    }
    std::vector<Rgb> colors;
    for (const Box& box : boxes) colors.push_back(box.mean);
    return colors;
}

// The palette in three rows of numbers, padded with colours that are never nearest.
class NearestColor {
 public:
    explicit NearestColor(const std::vector<Rgb>& colors) {
        for (auto& row : rows_) row.fill(1e6f);
        for (std::size_t i = 0; i < colors.size(); ++i)
            for (std::size_t c = 0; c < 3; ++c) rows_[c][i] = colors[i][c];
    }

    std::uint8_t Find(const Rgb& color) const {
        std::array<float, kMostColors> distance;
        for (std::size_t i = 0; i < kMostColors; ++i) {
            const float r = rows_[0][i] - color[0];
            const float g = rows_[1][i] - color[1];
            const float b = rows_[2][i] - color[2];
            distance[i] = r * r + g * g + b * b;
        }
        float least = distance[0];
        for (const float d : distance) least = std::min(least, d);
        std::size_t i = 0;
        while (distance[i] != least) ++i;
        return static_cast<std::uint8_t>(i);
    }

 private:
    std::array<std::array<float, kMostColors>, 3> rows_;
};

/// Calls `search` for each number below `count`, on all cores: each costs about as much as 64 pixels.
template <class Search>
void SplitSearches(std::size_t count, const Search& search) {
    engine::SplitRows({}, static_cast<int>(count), 64, [&](int begin, int end) {
        for (int i = begin; i < end; ++i) search(static_cast<std::size_t>(i));
    });
}

void Refine(const std::vector<Cluster>& clusters, std::vector<Rgb>& colors) {
    std::vector<std::uint8_t> owner(clusters.size());
    for (int round = 0; round < kRefinements; ++round) {
        const NearestColor nearest(colors);
        SplitSearches(clusters.size(), [&](std::size_t i) { owner[i] = nearest.Find(clusters[i].mean); });
        std::vector<std::array<double, 4>> sums(colors.size());
        for (std::size_t i = 0; i < clusters.size(); ++i) {
            auto& sum = sums[owner[i]];
            for (std::size_t c = 0; c < 3; ++c) sum[c] += static_cast<double>(clusters[i].weight) * clusters[i].mean[c];
            sum[3] += clusters[i].weight;
        }
        for (std::size_t i = 0; i < colors.size(); ++i)
            for (std::size_t c = 0; c < 3 && sums[i][3] > 0; ++c)
                colors[i][c] = static_cast<float>(sums[i][c] / sums[i][3]);
    }
}

/// By cell of the colour cube: the colour nearest to its middle.
std::vector<std::uint8_t> NearestTable(const std::vector<Rgb>& colors) {
    const NearestColor nearest(colors);
    std::vector<std::uint8_t> table(kCells);
    SplitSearches(kCells, [&](std::size_t cell) {
        const auto middle = [&](int channel) {
            const auto part = static_cast<int>(cell >> (channel * kCellBits)) & ((1 << kCellBits) - 1);
            return static_cast<float>(part * (1 << kCellShift)) + ((1 << kCellShift) - 1) / 2.0f;
        };
        table[cell] = nearest.Find({middle(2), middle(1), middle(0)});
    });
    return table;
}

std::vector<Rgb> RgbOf(const std::vector<QRgb>& colors) {
    std::vector<Rgb> rgb;
    for (const QRgb color : colors)
        rgb.push_back(
            {static_cast<float>(qRed(color)), static_cast<float>(qGreen(color)), static_cast<float>(qBlue(color))});
    return rgb;
}

// Floyd and Steinberg's weights, rows in turn from left and from right.
class Ditherer {
 public:
    Ditherer(const QImage& picture, PalettePicture& result) : picture_(picture), result_(result) {
        colors_ = RgbOf(result.colors);
        table_ = NearestTable(colors_);
    }

    void Run() {
        const auto width = static_cast<std::size_t>(picture_.width());
        std::vector<Rgb> errors(width + 2, Rgb{});
        std::vector<Rgb> next(width + 2, Rgb{});
        result_.indexes.resize(width * static_cast<std::size_t>(picture_.height()));
        for (int y = 0; y < picture_.height(); ++y) {
            const bool fromLeft = y % 2 == 0;
            DitherRow(y, fromLeft ? 1 : -1, errors, next);
            std::swap(errors, next);
            std::fill(next.begin(), next.end(), Rgb{});
        }
    }

 private:
    // errors[x + 1] is what the row above left for pixel x.
    void DitherRow(int y, int step, std::vector<Rgb>& errors, std::vector<Rgb>& next) {
        const QRgb* row = Row(picture_, y);
        std::uint8_t* out = result_.indexes.data() + std::size_t(y) * std::size_t(picture_.width());
        Rgb ahead{};
        for (int i = 0; i < picture_.width(); ++i) {
            const int x = step > 0 ? i : picture_.width() - 1 - i;
            if (!Visible(row[x])) {
                out[x] = static_cast<std::uint8_t>(result_.transparent);
                ahead = {};
                continue;
            }
            Rgb wanted{static_cast<float>(qRed(row[x])), static_cast<float>(qGreen(row[x])),
                       static_cast<float>(qBlue(row[x]))};
            const auto place = static_cast<std::size_t>(x + 1);
            std::array<int, 3> whole;
            for (std::size_t c = 0; c < 3; ++c) {
                wanted[c] = std::clamp(wanted[c] + errors[place][c] + ahead[c], 0.0f, 255.0f);
                whole[c] = static_cast<int>(wanted[c] + 0.5f);
            }
            out[x] = table_[CellOf(whole[0], whole[1], whole[2])];
            const Rgb& got = colors_[out[x]];
            Rgb& below = next[place];
            Rgb& belowAhead = next[static_cast<std::size_t>(x + 1 + step)];
            Rgb& belowBehind = next[static_cast<std::size_t>(x + 1 - step)];
            for (std::size_t c = 0; c < 3; ++c) {
                const float error = (wanted[c] - got[c]) * kDiffused;
                ahead[c] = error * (7.0f / 16);
                belowBehind[c] += error * (3.0f / 16);
                below[c] += error * (5.0f / 16);
                belowAhead[c] += error * (1.0f / 16);
            }
        }
    }

    const QImage& picture_;
    PalettePicture& result_;
    std::vector<Rgb> colors_;
    std::vector<std::uint8_t> table_;  ///< by cell: the nearest colour of its middle
};

}  // namespace

std::vector<QRgb> ChooseColors(const QImage& picture, int most) {
    bool transparent = false;
    std::vector<Cluster> clusters = Histogram(picture, transparent);
    if (clusters.empty()) return {0xff000000u};
    std::vector<Rgb> colors = CutPalette(clusters, static_cast<std::size_t>(most));
    Refine(clusters, colors);
    std::vector<QRgb> chosen;
    for (const Rgb& color : colors)
        chosen.push_back(qRgb(RoundToEven(color[0]), RoundToEven(color[1]), RoundToEven(color[2])));
    return chosen;
}

PatternDither::PatternDither(const std::vector<QRgb>& colors) {
    const std::vector<Rgb> rgb = RgbOf(colors);
    nearest_ = NearestTable(rgb);
    // The pattern reaches about half way to the next colour, as far apart as they are on the average.
    double sum = 0;
    for (const Rgb& color : rgb) {
        float least = std::numeric_limits<float>::max();
        for (const Rgb& other : rgb) {
            float distance = 0;
            for (std::size_t c = 0; c < 3; ++c) distance += (color[c] - other[c]) * (color[c] - other[c]);
            if (distance > 0) least = std::min(least, distance);
        }
        if (rgb.size() > 1) sum += std::sqrt(least);
    }
    strength_ = static_cast<float>(std::min(sum / static_cast<double>(rgb.size()), 64.0));
}

std::uint8_t PatternDither::IndexOf(QRgb pixel, int x, int y) const {
    // Bayer's pattern of 8 x 8: the bits of x ^ y and y in turn, the lowest first.
    const unsigned a = static_cast<unsigned>(x ^ y) & 7u;
    const unsigned b = static_cast<unsigned>(y) & 7u;
    unsigned rank = 0;
    for (int bit = 0; bit < 3; ++bit) rank = (rank << 2) | (((a >> bit) & 1u) << 1) | ((b >> bit) & 1u);
    const float shift = ((static_cast<float>(rank) + 0.5f) / 64.0f - 0.5f) * strength_;
    const auto moved = [shift](int value) {
        return static_cast<int>(std::clamp(static_cast<float>(value) + shift + 0.5f, 0.0f, 255.0f));
    };
    return nearest_[CellOf(moved(qRed(pixel)), moved(qGreen(pixel)), moved(qBlue(pixel)))];
}

PalettePicture ReduceColors(const QImage& picture) {
    PalettePicture result;
    if (FewColors(picture, result)) return result;
    result = {};
    bool transparent = false;
    std::vector<Cluster> clusters = Histogram(picture, transparent);
    std::vector<Rgb> colors = CutPalette(clusters, kMostColors - (transparent ? 1 : 0));
    Refine(clusters, colors);
    for (const Rgb& color : colors)
        result.colors.push_back(qRgb(RoundToEven(color[0]), RoundToEven(color[1]), RoundToEven(color[2])));
    Ditherer ditherer(picture, result);
    if (transparent) {
        result.transparent = static_cast<int>(result.colors.size());
        result.colors.push_back(0xff000000u);
    }
    ditherer.Run();
    return result;
}

}  // namespace kelu
