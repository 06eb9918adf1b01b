// Embedded colour profiles, by Little CMS.
// SPDX-License-Identifier: MIT
#include "pictures/color_profile.h"

#include <lcms2.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <numeric>

#include "engine/bands.h"
#include "pictures/picture.h"

namespace kelu {
namespace {

constexpr int kDateAt = 24;  // in the header of a profile

struct CloseProfile {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
struct CloseTransform {
    void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Profile = std::unique_ptr<void, CloseProfile>;
using Transform = std::unique_ptr<void, CloseTransform>;

struct FreeCurve {
    void operator()(cmsToneCurve* curve) const { cmsFreeToneCurve(curve); }
};

Profile OpenProfile(const QByteArray& bytes) {
    if (bytes.isEmpty()) return {};
    return Profile(cmsOpenProfileFromMem(bytes.constData(), static_cast<cmsUInt32Number>(bytes.size())));
}

QByteArray Save(const Profile& profile) {
    cmsUInt32Number length = 0;
    if (!profile || !cmsSaveProfileToMem(profile.get(), nullptr, &length)) return {};
    QByteArray bytes(static_cast<qsizetype>(length), '\0');
    return cmsSaveProfileToMem(profile.get(), bytes.data(), &length) ? bytes : QByteArray();
}

bool IsFor(const Profile& profile, cmsColorSpaceSignature space) {
    return profile && cmsGetColorSpace(profile.get()) == space;
}

Transform ToSrgb(const Profile& from, cmsUInt32Number pixelFormat) {
    const Profile srgb(cmsCreate_sRGBProfile());
    // Newer versions refuse to copy alpha from a format that has none.
    const cmsUInt32Number alpha = T_EXTRA(pixelFormat) == T_EXTRA(TYPE_BGRA_8) ? cmsFLAGS_COPY_ALPHA : 0;
    // Without a cache one transform serves all threads.
    return Transform(cmsCreateTransform(from.get(), pixelFormat, srgb.get(), TYPE_BGRA_8, INTENT_PERCEPTUAL,
                                        cmsFLAGS_NOCACHE | alpha));
}

void ForEachRow(QImage& picture, const std::function<void(uchar* row)>& change) {
    uchar* const bits = picture.bits();
    const qsizetype stride = picture.bytesPerLine();
    engine::SplitRows({}, picture.height(), picture.width(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y) change(bits + y * stride);
    });
}

void Run(const Transform& transform, QImage& picture) {
    const auto width = static_cast<cmsUInt32Number>(picture.width());
    ForEachRow(picture, [&](uchar* row) { cmsDoTransform(transform.get(), row, row, width); });
}

// The 256 greys of the profile as sRGB, one look-up a pixel.
void RunGray(const Transform& transform, QImage& picture) {
    std::array<quint8, 256> grays;
    std::iota(grays.begin(), grays.end(), quint8{0});
    std::array<QRgb, 256> colors{};
    cmsDoTransform(transform.get(), grays.data(), colors.data(), 256);
    const int width = picture.width();
    ForEachRow(picture, [&](uchar* row) {
        auto* pixels = reinterpret_cast<QRgb*>(row);
        std::for_each(pixels, pixels + width,
                      [&](QRgb& pixel) { pixel = (pixel & 0xff000000u) | (colors[pixel & 0xff] & 0xffffffu); });
    });
}

// Whether a transform moves no colour by more than a rounding. Cameras embed many versions of sRGB; converting those
// would cost time and change nothing that can be seen.
bool ChangesNothing(const Transform& transform) {
    for (int b = 0; b <= 255; b += 51) {
        for (int g = 0; g <= 255; g += 51) {
            for (int r = 0; r <= 255; r += 51) {
                const cmsUInt8Number from[4] = {static_cast<cmsUInt8Number>(b), static_cast<cmsUInt8Number>(g),
                                                static_cast<cmsUInt8Number>(r), 255};
                cmsUInt8Number to[4] = {0, 0, 0, 255};
                cmsDoTransform(transform.get(), from, to, 1);
                for (int c = 0; c < 3; ++c)
                    if (std::abs(from[c] - to[c]) > 2) return false;
            }
        }
    }
    return true;
}

}  // namespace

void ConvertToSrgb(QImage& picture, const QByteArray& profile) {
    const Profile from = OpenProfile(profile);
    if (IsFor(from, cmsSigRgbData)) {
        const Transform transform = ToSrgb(from, TYPE_BGRA_8);
        if (transform && !ChangesNothing(transform)) Run(transform, picture);
    } else if (IsFor(from, cmsSigGrayData) && picture.allGray()) {
        if (const Transform transform = ToSrgb(from, TYPE_GRAY_8)) RunGray(transform, picture);
    }
}

void ConvertCmykToSrgb(QImage& picture, const QByteArray& profile, bool inverted) {
    if (const Profile from = OpenProfile(profile); IsFor(from, cmsSigCmykData)) {
        if (const Transform transform = ToSrgb(from, inverted ? TYPE_CMYK_8_REV : TYPE_CMYK_8)) {
            Run(transform, picture);
            return MakeOpaque(picture);
        }
    }
    const int flip = inverted ? 0 : 255;
    for (int y = 0; y < picture.height(); ++y) {
        uchar* pixel = picture.scanLine(y);
        for (int x = 0; x < picture.width(); ++x, pixel += 4) {
            const int light = pixel[3] ^ flip;
            const auto mix = [&](int ink) { return ((ink ^ flip) * light + 127) / 255; };
            const QRgb color = qRgb(mix(pixel[0]), mix(pixel[1]), mix(pixel[2]));
            *reinterpret_cast<QRgb*>(pixel) = color;
        }
    }
}

QByteArray GammaProfile(double gamma) {
    constexpr cmsCIExyY kWhite{0.3127, 0.3290, 1};
    constexpr cmsCIExyYTRIPLE kPrimaries{{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}};
    const std::unique_ptr<cmsToneCurve, FreeCurve> curve(cmsBuildGamma(nullptr, gamma));
    cmsToneCurve* const curves[] = {curve.get(), curve.get(), curve.get()};
    const Profile profile(cmsCreateRGBProfile(&kWhite, &kPrimaries, curves));
    return Save(profile);
}

const QByteArray& SrgbProfile() {
    static const QByteArray bytes = [] {
        QByteArray made = Save(Profile(cmsCreate_sRGBProfile()));
        // The date at which it was made: the first of January 2000.
        constexpr std::array<char, 12> kDate{0x07, static_cast<char>(0xd0), 0, 1, 0, 1};
        if (made.size() > kDateAt) std::copy(kDate.begin(), kDate.end(), made.begin() + kDateAt);
        return made;
    }();
    return bytes;
}

}  // namespace kelu
