#include "data/clsParticleBuffer.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// Empty places first, then the oldest spare to the newest.
constinit std::array<LargeMemory_cls, ParticleBuffer_cls::kMaxSpare> spares;

/// The smallest spare that holds the bytes without wasting more than an eighth.
LargeMemory_cls TakeSpare(size_t bytes) {
    auto best = spares.end();
    for (auto spare = spares.begin(); spare != spares.end(); ++spare) {
        if (spare->GetByte() < bytes || spare->GetByte() > bytes + bytes / 8) continue;
        if (best == spares.end() || spare->GetByte() <= best->GetByte()) best = spare;
    }
    LargeMemory_cls taken;
    if (best == spares.end()) {
        const auto oldest =
            std::ranges::find_if(spares, [](const LargeMemory_cls& spare) { return spare.GetByte() > 0; });
        if (oldest != spares.end()) *oldest = LargeMemory_cls();
        return taken;
    }
    std::swap(taken, *best);
    std::rotate(spares.begin(), best, best + 1);
    return taken;
}

void KeepSpare(LargeMemory_cls memory) {
    std::rotate(spares.begin(), spares.begin() + 1, spares.end());
    spares.back() = std::move(memory);
}

}  // namespace

ParticleBuffer_cls::ParticleBuffer_cls(size_t bytes, Content content) : mContent(content) {
    if (content == Content::Any && bytes >= LargeMemory_cls::kMappedByte) mMemory = TakeSpare(bytes);
    if (mMemory.GetByte() == 0) mMemory = LargeMemory_cls(bytes);
}

ParticleBuffer_cls& ParticleBuffer_cls::operator=(ParticleBuffer_cls&& other) noexcept {
    std::swap(mMemory, other.mMemory);
    std::swap(mContent, other.mContent);
    return *this;
}

ParticleBuffer_cls::~ParticleBuffer_cls() {
    if (mContent == Content::Any && mMemory.IsMapped()) KeepSpare(std::move(mMemory));
}

size_t ParticleBuffer_cls::GetSpareByte() {
    size_t bytes = 0;
    for (const LargeMemory_cls& spare : spares) bytes += spare.GetByte();
    return bytes;
}

void ParticleBuffer_cls::DropSpare() {
    for (LargeMemory_cls& spare : spares) spare = LargeMemory_cls();
}
