// From an effect's function to what runs on this processor: one line an effect, under HWY_ONCE.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <type_traits>

#include "engine/copy.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

template <class Function>
struct InputsOf;
template <class... Inputs>
struct InputsOf<void(const ImageView&, const MutableImageView&, Inputs...)> {
    using Types = std::tuple<Inputs...>;
};
/// The type of input `index`, counted from 0, of a declared effect.
template <class Function, std::size_t index>
using InputOf = std::tuple_element_t<index, typename InputsOf<Function>::Types>;

}  // namespace kelu::engine

/// Defines the effect `Name` as its header declares it, by calling `NameOnTarget` of the best instruction set of this
/// machine. What follows are names for its inputs, up to five, in their order.
#define KELU_DISPATCH(Name, ...)                                                                          \
    HWY_EXPORT(Name##OnTarget);                                                                           \
    void Name(const ImageView& source,                                                                    \
              const MutableImageView& target __VA_OPT__(, ) KELU_INPUTS(Name __VA_OPT__(, ) __VA_ARGS__), \
              const Run& run) {                                                                           \
        HWY_DYNAMIC_DISPATCH(Name##OnTarget)(source, target, __VA_ARGS__ __VA_OPT__(, ) run);             \
    }

/// The same for an effect whose input `measure` leaves the picture as it is from 0 downward and is not looked at beyond
/// `most`.
#define KELU_DISPATCH_UP_TO(most, measure, Name, ...)                                                  \
    HWY_EXPORT(Name##OnTarget);                                                                        \
    void Name(const ImageView& source, const MutableImageView& target, KELU_INPUTS(Name, __VA_ARGS__), \
              const Run& run) {                                                                        \
        if (measure <= 0) return Copy(source, target, run);                                            \
        measure = std::min(measure, most);                                                             \
        HWY_DYNAMIC_DISPATCH(Name##OnTarget)(source, target, __VA_ARGS__, run);                        \
    }

// "a, b" to "type of the first input a, type of the second b".
#define KELU_INPUTS(...) KELU_PICK(__VA_ARGS__, KELU_IN5, KELU_IN4, KELU_IN3, KELU_IN2, KELU_IN1, KELU_IN0)(__VA_ARGS__)
#define KELU_PICK(f, a, b, c, d, e, picked, ...) picked
#define KELU_IN0(f)
#define KELU_IN1(f, a) InputOf<decltype(f), 0> a
#define KELU_IN2(f, a, b) KELU_IN1(f, a), InputOf<decltype(f), 1> b
#define KELU_IN3(f, a, b, c) KELU_IN2(f, a, b), InputOf<decltype(f), 2> c
#define KELU_IN4(f, a, b, c, d) KELU_IN3(f, a, b, c), InputOf<decltype(f), 3> d
#define KELU_IN5(f, a, b, c, d, e) KELU_IN4(f, a, b, c, d), InputOf<decltype(f), 4> e
