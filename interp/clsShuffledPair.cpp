#include "interp/clsShuffledPair.h"

#include <algorithm>

#include "interp/clsSearchOrder.h"
#include "interp/clsTwoThreads.h"

namespace {

/// The index of fewer IDs lies in the cache itself, or nearly.
constexpr size_t kWorthwhile = 5000000;
/// So many particles are looked at to judge the order, and so many of them may be near their place.
constexpr size_t kSamples = 64;
constexpr size_t kMostNear = 4;

bool IsOrderLost(ShuffledPair_cls::IDs a, ShuffledPair_cls::IDs b) {
    const size_t matched = std::min(a.size(), b.size());
    constexpr auto kWidest = static_cast<size_t>(SearchOrder_cls::kWidest);
    size_t near = 0;
    for (size_t s = 0; s < kSamples; ++s) {
        const size_t i = matched / kSamples * s;
        const size_t begin = i - std::min(i, kWidest);
        const auto window = b.subspan(begin, std::min(i + kWidest, b.size()) - begin);
        near += std::find(window.begin(), window.end(), a[i]) != window.end() ? 1 : 0;
    }
    return near <= kMostNear;
}

}  // namespace

std::unique_ptr<ShuffledPair_cls> ShuffledPair_cls::Make(IDs a, IDs b) {
    if (b.size() < kWorthwhile || a.size() < b.size() / 2 || !IsOrderLost(a, b)) return nullptr;
    const auto range = IDRange_cls::Find(b);
    return range.IsDense(b.size()) ? MakeAlways(a, b, range) : nullptr;
}

std::unique_ptr<ShuffledPair_cls> ShuffledPair_cls::MakeAlways(IDs a, IDs b, const IDRange_cls& range) {
    auto pair = std::unique_ptr<ShuffledPair_cls>(new ShuffledPair_cls(a, b, range));
    return pair->mTenth->IsUnique() ? std::move(pair) : nullptr;
}

ShuffledPair_cls::ShuffledPair_cls(IDs a, IDs b, const IDRange_cls& range) : mA(a), mB(b), mRange(range) {
    const auto fillTenth = [this] {
        const int countB = static_cast<int>(mB.size());
        mTenth.emplace(mB.first(static_cast<size_t>(SearchOrder_cls::GetFirstTenth(countB))), mRange);
    };
    if (range.IsComplete(b.size())) {
        fillTenth();
    } else {
        mAllBits.emplace(range);
        TwoThreads_cls::Run([this] { mAllBits->Add(mB); }, fillTenth);
    }
}
