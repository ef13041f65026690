#include "pov/clsPovParticleText.h"

#include <algorithm>
#include <utility>

namespace {

/// Entries that one thread writes in one go, and how often in one step.
constexpr size_t kTextPiece = 1024;
constexpr size_t kStepPieces = 128;
/// The particle that will be written after this many others is fetched from memory ahead of time.
constexpr size_t kPrefetchAhead = 16;
/// Smaller radii need more digits than seven behind the point.
constexpr float kCoarseRadius = 1e-3F;

}  // namespace

PovParticleText_cls::PovParticleText_cls(PovCloud_cls cloud, const PovTexture_cls& texture, Sprites sprites)
    : mCloud(std::move(cloud)), mTexture(texture), mSprites(std::move(sprites)) {
    SortSpheres();
    mNumbers.resize(mCloud.looks.size());
    for (size_t i = 0; i < mNumbers.size(); ++i) {
        if (mCloud.looks[i].kind == PovLook_cls::Kind::Billboard) mNumbers[i] = mTextures++;
    }
    using Text = PovParticleText_cls;
    mStages.push_back({mOrder.size(), nullptr, &Text::WriteSpheres});
    const size_t billboards = mCloud.billboards.size();
    if (billboards == 0) return;
    mStages.push_back({billboards, &Text::OpenCorners, &Text::WriteCorners});
    mStages.push_back({billboards, &Text::OpenFaces, &Text::WriteFaces});
    mStages.push_back({billboards, &Text::OpenTexturePlaces, &Text::WriteTexturePlaces});
    mStages.push_back({0, &Text::CloseMesh, nullptr});
}

void PovParticleText_cls::SortSpheres() {
    mBegins.resize(mCloud.looks.size() + 1);
    for (const PovCloud_cls::Item& item : mCloud.items) ++mBegins[item.look + 1];
    for (size_t i = 1; i < mBegins.size(); ++i) mBegins[i] += mBegins[i - 1];
    mOrder.resize(mCloud.items.size());
    std::vector<size_t> next(mBegins.begin(), mBegins.end() - 1);
    for (size_t i = 0; i < mOrder.size(); ++i)
        mOrder[next[mCloud.items[i].look]++] = static_cast<uint32_t>(i);
}

bool PovParticleText_cls::Step(PovText_cls& text) {
    if (mStage == mStages.size()) return false;
    const Stage& stage = mStages[mStage];
    if (mDone == 0 && stage.open) (this->*stage.open)(text);
    const size_t begin = mDone;
    mDone = std::min(begin + kTextPiece * kStepPieces, stage.count);
    const auto make = [this, &stage, begin](size_t piece, size_t slot) {
        const size_t from = begin + piece * kTextPiece;
        mPieces[slot].Clear();
        (this->*stage.write)(mPieces[slot], from, std::min(from + kTextPiece, mDone));
    };
    const auto take = [this, &text](size_t, size_t slot) { text << mPieces[slot].Get(); };
    PieceWork_cls::Run((mDone - begin + kTextPiece - 1) / kTextPiece, make, take);
    if (mDone < stage.count) return true;
    ++mStage;
    mDone = 0;
    return true;
}

double PovParticleText_cls::GetShare() const {
    size_t done = mDone;
    size_t all = 1;
    for (size_t i = 0; i < mStages.size(); ++i) {
        all += mStages[i].count;
        if (i < mStage) done += mStages[i].count;
    }
    return static_cast<double>(done) / static_cast<double>(all);
}

void PovParticleText_cls::WriteSpheres(PovText_cls& text, size_t begin, size_t end) const {
    for (size_t place = begin; place < end; ++place) {
        // Particles of one look lie far apart in memory.
        if (place + kPrefetchAhead < end) __builtin_prefetch(&mCloud.items[mOrder[place + kPrefetchAhead]]);
        const PovCloud_cls::Item& item = mCloud.items[mOrder[place]];
        const size_t first = mBegins[item.look];
        const size_t last = mBegins[item.look + 1] - 1;
        const bool isUnion = last > first;
        if (isUnion && place == first) text << "union {\n";
        text << "sphere{";
        text.Fixed(item.position) << ',';
        if (item.radius >= kCoarseRadius) {
            text.Fixed(item.radius);
        } else {
            text << item.radius;
        }
        text << std::string_view(isUnion ? "}\n" : " ", isUnion ? 2 : 1);
        if (place < last) continue;
        mTexture.Write(text, mCloud.looks[item.look]);
        text << " }\n";
    }
}

void PovParticleText_cls::OpenCorners(PovText_cls& text) const {
    text << "mesh2 {\nvertex_vectors { " << 4 * mCloud.billboards.size();
}

void PovParticleText_cls::WriteCorners(PovText_cls& text, size_t begin, size_t end) const {
    constexpr std::array<std::array<int, 2>, 4> kCorners = {{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    for (size_t i = begin; i < end; ++i) {
        const PovCloud_cls::Item& item = mCloud.billboards[i];
        const PovCamera_cls::Facing& facing = mCloud.facings[mCloud.facings.size() == 1 ? 0 : i];
        for (const auto& [x, y] : kCorners) {
            std::array<float, 3> corner{};
            for (size_t c = 0; c < 3; ++c)
                corner[c] =
                    static_cast<float>(item.position[c] + static_cast<double>(item.radius) *
                                                              (x * facing.right[c] + y * facing.up[c]));
            text << ",\n";
            text.Fixed(corner);
        }
    }
}

void PovParticleText_cls::OpenFaces(PovText_cls& text) const {
    text << "\n}\nuv_vectors { 4, <0,0>, <1,0>, <1,1>, <0,1> }\ntexture_list { " << mTextures;
    for (const PovLook_cls& look : mCloud.looks) {
        if (look.kind != PovLook_cls::Kind::Billboard) continue;
        text << ",\n";
        PovTexture_cls::WriteSprite(text, look, mSprites.at(look.attribute));
    }
    text << "\n}\nface_indices { " << 2 * mCloud.billboards.size();
}

void PovParticleText_cls::WriteFaces(PovText_cls& text, size_t begin, size_t end) const {
    for (size_t i = begin; i < end; ++i) {
        const size_t v = 4 * i;
        const uint32_t look = mNumbers[mCloud.billboards[i].look];
        text << ",\n<" << v << ',' << v + 1 << ',' << v + 2 << ">," << look << ",<" << v << ',' << v + 2
             << ',' << v + 3 << ">," << look;
    }
}

void PovParticleText_cls::OpenTexturePlaces(PovText_cls& text) const {
    text << "\n}\nuv_indices { " << 2 * mCloud.billboards.size();
}

void PovParticleText_cls::WriteTexturePlaces(PovText_cls& text, size_t begin, size_t end) const {
    for (size_t i = begin; i < end; ++i) text << ",\n<0,1,2>,<0,2,3>";
}

void PovParticleText_cls::CloseMesh(PovText_cls& text) const {
    text << "\n}\ninterior { Layer } no_shadow }\n";
}
