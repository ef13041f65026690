#include "pov/clsPovPalette.h"

#include <algorithm>
#include <cmath>

namespace {

/// Steps of alpha in one halving.
constexpr float kAlphaSteps = 35.0F;
constexpr float kFineAlphaSteps = 2310.0F;

float Clamped(float value) {
    if (!(value > 0.0F)) return 0.0F;
    return value < 1.0F ? value : 1.0F;
}

}  // namespace

/// The entry of the key, or the free one where it belongs.
PovPalette_cls::Entry& PovPalette_cls::EntryOf(const Key& key) {
    constexpr uint64_t kMix = 0x9e3779b97f4a7c15ULL;
    const uint64_t hash = (((key.a * kMix) ^ key.b) * kMix ^ key.c) * kMix;
    std::size_t place = (hash >> 32U) & (mTable.size() - 1);
    while (!mTable[place].key.IsEmpty() && !(mTable[place].key == key))
        place = (place + 1) & (mTable.size() - 1);
    return mTable[place];
}

void PovPalette_cls::Grow() {
    std::vector<Entry> old(2 * mTable.size());
    old.swap(mTable);
    for (const Entry& entry : old) {
        if (!entry.key.IsEmpty()) EntryOf(entry.key) = entry;
    }
}

PovPalette_cls::Key PovPalette_cls::KeyOf(const PovLook_cls& look) const {
    // By way of 32 bits, which the processor converts at once.
    const auto code = [this](float value) {
        return uint64_t{static_cast<uint32_t>(value * mColorSteps + 0.5F)};
    };
    // Faint particles lie in many layers, so it is the ratio of alphas that must be right.
    const float alphaSteps = mIsFine ? kFineAlphaSteps : kAlphaSteps;
    const float alpha = std::max(look.color[3], 1e-7F);
    const auto alphaCode = uint64_t{static_cast<uint32_t>(0.5F - std::log2(alpha) * alphaSteps)};
    const auto flags = static_cast<uint64_t>(look.kind) | static_cast<uint64_t>(look.attribute) << 2U |
                       static_cast<uint64_t>(look.isAdditive ? 1 : 0) << 10U | uint64_t{1} << 11U;
    return {code(look.color[0]) << 48U | code(look.color[1]) << 32U | code(look.color[2]) << 16U | alphaCode,
            code(look.ambient[0]) << 48U | code(look.ambient[1]) << 32U | code(look.ambient[2]) << 16U |
                code(look.specular[0]),
            code(look.specular[1]) << 32U | code(look.specular[2]) << 16U | flags};
}

uint32_t PovPalette_cls::Find(PovLook_cls look) {
    for (float& value : look.color) value = Clamped(value);
    for (float& value : look.ambient) value = Clamped(value);
    for (float& value : look.specular) value = Clamped(value);
    if (!mLooks.empty() && look == mLast) return mLastNumber;
    const Key key = KeyOf(look);
    Entry& entry = EntryOf(key);
    mLast = look;
    if (!entry.key.IsEmpty()) return mLastNumber = entry.number;
    mLastNumber = static_cast<uint32_t>(mLooks.size());
    entry = {key, mLastNumber};
    mLooks.push_back(look);
    if (2 * mLooks.size() > mTable.size()) Grow();
    return mLastNumber;
}
