// random_order.h in vectors: the same order, kLanes numbers at a time.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_RANDOM_ORDER_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_RANDOM_ORDER_INL
#undef KELU_ENGINE_RANDOM_ORDER_INL
#else
#define KELU_ENGINE_RANDOM_ORDER_INL
#endif

#include "engine/random_inl.h"
#include "engine/random_order.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

class RandomOrders {
 public:
    explicit RandomOrders(const RandomOrder& order) : order_(order) {}

    /// All ranks and numbers have to be below n: others may never come back from there.
    HWY_INLINE Pixels At(Pixels rank) const {
        return UntilBelow(rank, [this](Pixels value) HWY_ATTR { return Forth(value); });
    }
    HWY_INLINE Pixels RankOf(Pixels number) const {
        return UntilBelow(number, [this](Pixels value) HWY_ATTR { return Back(value); });
    }

 private:
    template <class Step>
    HWY_INLINE Pixels UntilBelow(Pixels start, Step step) const {
        const Ints most = All(static_cast<int>(order_.n) - 1);
        Pixels value = step(start);
        for (;;) {
            const auto beyond = hn::RebindMask(kPixels, hn::Gt(hn::BitCast(kInts, value), most));
            if (hn::AllFalse(kPixels, beyond)) return value;
            value = hn::IfThenElse(beyond, step(value), value);
        }
    }

    HWY_INLINE Pixels Round(Pixels half, std::uint32_t round) const {
        return hn::And(Mix(hn::Add(hn::Mul(half, All(RandomRow::kStep)), All(order_.seed + round))), All(order_.mask));
    }
    HWY_INLINE Pixels Forth(Pixels value) const {
        Pixels left = hn::ShiftRightSame(value, order_.bits), right = hn::And(value, All(order_.mask));
        for (std::uint32_t round = 0; round < RandomOrder::kRounds; ++round) {
            const Pixels next = hn::Xor(left, Round(right, round));
            left = right;
            right = next;
        }
        return hn::Or(hn::ShiftLeftSame(left, order_.bits), right);
    }
    HWY_INLINE Pixels Back(Pixels value) const {
        Pixels left = hn::ShiftRightSame(value, order_.bits), right = hn::And(value, All(order_.mask));
        for (std::uint32_t round = RandomOrder::kRounds; round-- > 0;) {
            const Pixels before = hn::Xor(right, Round(left, round));
            right = left;
            left = before;
        }
        return hn::Or(hn::ShiftLeftSame(left, order_.bits), right);
    }

    const RandomOrder order_;
};

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
