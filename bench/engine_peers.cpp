// OpenCV's side of the benchmark: ready-made operations, composed ones only where two calls make the effect.
// SPDX-License-Identifier: MIT
#include "bench/engine_peers.h"

#if defined(KELU_BENCH_OPENCV)
#include <cmath>
#include <map>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace kelu::bench {

#if defined(KELU_BENCH_OPENCV)

struct Peers::Data {
    cv::Mat source, target, between, gray, sourceOf3, targetOf3, table, placesX, placesY, madeX, madeY, slopes[4];
    std::map<std::string, std::function<void()>> operations;
};

Peers::Peers(const engine::ImageView& view, int threads) : data_(std::make_unique<Data>()) {
    cv::setNumThreads(threads == 0 ? -1 : threads);
    Data& d = *data_;
    d.source = cv::Mat(view.height, view.width, CV_8UC4, const_cast<std::uint8_t*>(view.data),
                       static_cast<std::size_t>(view.stride));
    cv::cvtColor(d.source, d.sourceOf3, cv::COLOR_BGRA2BGR);
    d.table = cv::Mat(1, 256, CV_8UC4);
    for (int i = 0; i < 256; ++i) {
        const auto level = static_cast<std::uint8_t>(i / 64 * 85), alpha = static_cast<std::uint8_t>(i);
        d.table.at<cv::Vec4b>(i) = {level, level, level, alpha};
    }
    const auto gray = [&d] { cv::cvtColor(d.source, d.gray, cv::COLOR_BGRA2GRAY); };
    const auto back = [&d] { cv::cvtColor(d.gray, d.target, cv::COLOR_GRAY2BGRA); };
    const auto matrix = [&d] {
        const cv::Matx33f m(0.272f, 0.534f, 0.131f, 0.349f, 0.686f, 0.168f, 0.393f, 0.769f, 0.189f);
        cv::transform(d.sourceOf3, d.targetOf3, m);
    };
    const auto table = [&d] { cv::LUT(d.source, d.table, d.target); };
    const auto filter = [&d](const cv::Matx33f& kernel) {
        cv::filter2D(d.source, d.target, -1, kernel, {-1, -1}, 0, cv::BORDER_REPLICATE);
    };
    const auto disc = cv::getStructuringElement(cv::MORPH_ELLIPSE, {61, 61});
    const auto square = cv::getStructuringElement(cv::MORPH_RECT, {61, 61});

    // Explode's places, made once: of the effect only the sampling is timed.
    d.placesX.create(view.height, view.width, CV_32FC1);
    d.placesY.create(view.height, view.width, CV_32FC1);
    const float radius = std::hypot(static_cast<float>(view.width) - 250, static_cast<float>(view.height) - 100);
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x) {
            const float dx = static_cast<float>(x - 250), dy = static_cast<float>(y - 100);
            const float ratio = std::pow(std::hypot(dx, dy) / radius, 0.2f);
            d.placesX.at<float>(y, x) = 250 + dx * ratio;
            d.placesY.at<float>(y, x) = 100 + dy * ratio;
        }

    d.madeX.create(view.height, view.width, CV_32FC1);
    d.madeY.create(view.height, view.width, CV_32FC1);
    // `ratio` of the place to fetch to the place, both from the middle, in halves of the picture's size.
    const auto place = [&d](auto ratio) {
        const float halfX = static_cast<float>(d.madeX.cols) / 2, halfY = static_cast<float>(d.madeX.rows) / 2;
        cv::parallel_for_({0, d.madeX.rows}, [&](const cv::Range& rows) {
            for (int y = rows.start; y < rows.end; ++y)
                for (int x = 0; x < d.madeX.cols; ++x) {
                    const float dx = static_cast<float>(x) / halfX - 1, dy = static_cast<float>(y) / halfY - 1;
                    const float by = ratio(dx, dy);
                    d.madeX.at<float>(y, x) = halfX * (1 + dx * by);
                    d.madeY.at<float>(y, x) = halfY * (1 + dy * by);
                }
        });
    };

    d.operations = {
        {"1 Grayscale, Weighted", [=] { gray(), back(); }},
        {"2 Sepia", matrix},
        {"3 Black & White", [=, &d] { gray(), cv::threshold(d.gray, d.gray, 159, 255, cv::THRESH_BINARY), back(); }},
        {"6 Antialias",
         [&d] {
             cv::GaussianBlur(d.source, d.target, {3, 3}, 0);
         }},
        {"8 Blur 1", [&d] { cv::GaussianBlur(d.source, d.target, {}, 2); }},
        {"8 Blur 1, 100", [&d] { cv::GaussianBlur(d.source, d.target, {}, 50); }},
        {"11 Brightness 1", [&d] { cv::add(d.source, cv::Scalar(89, 89, 89, 0), d.target); }},
        {"13 Contrast", [&d] { d.source.convertTo(d.target, -1, 4, -384); }},
        {"15 Color Correction", table},
        {"16 Color Emboss",
         [=] {
             filter({0, 0, -1, 0, 1, 0, 1, 0, 0});
         }},
        {"17 Colorize", matrix},
        {"18 False Color", [=, &d] { gray(), cv::applyColorMap(d.gray, d.targetOf3, cv::COLORMAP_JET); }},
        {"19 Enhance Edges",
         [&d] {
             cv::GaussianBlur(d.source, d.between, {3, 3}, 0);
             cv::addWeighted(d.source, 2, d.between, -1, 0, d.target);
         }},
        {"20 Emboss",
         [=, &d] {
             gray();
             cv::filter2D(d.gray, d.gray, -1, cv::Matx33f(0, 0, -2, 0, 0, 0, 2, 0, 0), {-1, -1}, 127);
             back();
         }},
        {"22 Explode",
         [&d] { cv::remap(d.source, d.target, d.placesX, d.placesY, cv::INTER_LINEAR, cv::BORDER_REPLICATE); }},
        // Their places are made anew for each picture.
        {"24 Fish Eye",
         [=, &d] {
             place([&](float x, float y) { return std::tan(std::min(1.2f, std::hypot(x, y))) / 2; });
             cv::remap(d.source, d.target, d.madeX, d.madeY, cv::INTER_LINEAR, cv::BORDER_REPLICATE);
         }},
        {"26 Implode",
         [=, &d] {
             place([&](float x, float y) { return std::sqrt(std::hypot(x, y)); });
             cv::remap(d.source, d.target, d.madeX, d.madeY, cv::INTER_LINEAR, cv::BORDER_REPLICATE);
         }},
        {"25 High Pass",
         [=] {
             filter({-1, -1, -1, -1, 9, -1, -1, -1, -1});
         }},
        {"28 Maximum, Circle", [=, &d] { cv::dilate(d.source, d.target, disc); }},
        {"28 Maximum, Square", [=, &d] { cv::dilate(d.source, d.target, square); }},
        {"29 Minimum, Circle", [=, &d] { cv::erode(d.source, d.target, disc); }},
        {"29 Minimum, Square", [=, &d] { cv::erode(d.source, d.target, square); }},
        {"30 Melt",  // the columns' places made anew, too
         [&d] {
             cv::parallel_for_({0, d.madeX.rows}, [&](const cv::Range& rows) {
                 for (int y = rows.start; y < rows.end; ++y)
                     for (int x = 0; x < d.madeX.cols; ++x) {
                         const auto column = static_cast<std::uint32_t>(x) / 64, random = column * 2654435761u >> 16;
                         d.madeX.at<float>(y, x) = static_cast<float>(x);
                         d.madeY.at<float>(y, x) =
                             static_cast<float>(y) * (1 - 0.2f * static_cast<float>(random) / 65536);
                     }
             });
             cv::remap(d.source, d.target, d.madeX, d.madeY, cv::INTER_NEAREST, cv::BORDER_REPLICATE);
         }},
        {"31 Mosaic",
         [&d] {
             cv::resize(d.source, d.between, {}, 0.1, 0.1, cv::INTER_AREA);
             cv::resize(d.between, d.target, d.source.size(), 0, 0, cv::INTER_NEAREST);
         }},
        {"32 Negative", [&d] { cv::bitwise_not(d.source, d.target); }},
        {"34 Posterize", table},
        {"35 Reverse", [&d] { cv::flip(d.source, d.target, 1); }},
        {"36 Saturation 1", matrix},
        {"39 Solarize", table},
        {"40 Special Filter",
         [=] {
             filter({0, -1, 0, -1, 4, -1, 0, -1, 0});
         }},
        {"41 Sketch",
         [=, &d] {
             gray();
             cv::Sobel(d.gray, d.slopes[0], CV_16S, 1, 0);
             cv::Sobel(d.gray, d.slopes[1], CV_16S, 0, 1);
             cv::convertScaleAbs(d.slopes[0], d.slopes[2]);
             cv::convertScaleAbs(d.slopes[1], d.slopes[3]);
             cv::addWeighted(d.slopes[2], -1, d.slopes[3], -1, 255, d.gray);
             back();
         }},
        {"43 Swap Colors", [&d] { cv::cvtColor(d.source, d.target, cv::COLOR_BGRA2RGBA); }},
        {"45 Tint", table},
        {"46 Freeze",
         [=] {
             filter({1, 1, 1, 1, -7, 1, 1, 1, 1});
         }},
        {"48 Neon",
         [&d] {
             cv::Sobel(d.source, d.slopes[0], CV_16S, 1, 0);
             cv::Sobel(d.source, d.slopes[1], CV_16S, 0, 1);
             cv::convertScaleAbs(d.slopes[0], d.between);
             cv::convertScaleAbs(d.slopes[1], d.target);
             cv::add(d.between, d.target, d.target);
         }},
    };
}

std::function<void()> Peers::Find(const std::string& effect) const {
    const auto found = data_->operations.find(effect);
    return found == data_->operations.end() ? std::function<void()>() : found->second;
}

#else

struct Peers::Data {};

Peers::Peers(const engine::ImageView&, int) {}

std::function<void()> Peers::Find(const std::string&) const { return {}; }

#endif

Peers::~Peers() = default;

}  // namespace kelu::bench
