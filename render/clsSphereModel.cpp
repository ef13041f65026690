#include "render/clsSphereModel.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace {

SphereModel_cls::Vertex Unit(float x, float y, float z) {
    const float length = std::sqrt(x * x + y * y + z * z);
    return {x / length, y / length, z / length};
}

}  // namespace

const SphereModel_cls& SphereModel_cls::Get(int level) {
    static const std::array<SphereModel_cls, kLevels> models = {SphereModel_cls(1), SphereModel_cls(2),
                                                                SphereModel_cls(3)};
    return models[static_cast<size_t>(std::clamp(level, 1, kLevels) - 1)];
}

SphereModel_cls::SphereModel_cls(int level) {
    // Three golden rectangles, one across the other.
    const float g = (1.0F + std::sqrt(5.0F)) / 2.0F;
    for (const float a : {-1.0F, 1.0F}) {
        for (const float b : {-g, g}) {
            mVertices.push_back(Unit(a, b, 0.0F));
            mVertices.push_back(Unit(0.0F, a, b));
            mVertices.push_back(Unit(b, 0.0F, a));
        }
    }
    // A face is three corners that are neighbours of one another.
    const auto near = [&](size_t i, size_t j) {
        float dot = 0.0F;
        for (size_t k = 0; k < 3; ++k) dot += mVertices[i][k] * mVertices[j][k];
        return dot > 0.4F;
    };
    for (size_t i = 0; i < mVertices.size(); ++i) {
        for (size_t j = i + 1; j < mVertices.size(); ++j) {
            for (size_t k = j + 1; k < mVertices.size(); ++k) {
                if (!near(i, j) || !near(j, k) || !near(i, k)) continue;
                const Vertex& a = mVertices[i];
                const Vertex& b = mVertices[j];
                const Vertex& c = mVertices[k];
                const float turn = a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                                   a[2] * (b[0] * c[1] - b[1] * c[0]);
                mIndices.push_back(static_cast<uint16_t>(i));
                mIndices.push_back(static_cast<uint16_t>(turn > 0.0F ? j : k));
                mIndices.push_back(static_cast<uint16_t>(turn > 0.0F ? k : j));
            }
        }
    }
    for (int i = 0; i < level; ++i) Divide();
}

void SphereModel_cls::Divide() {
    std::map<std::pair<uint16_t, uint16_t>, uint16_t> middles;
    const auto middle = [&](uint16_t a, uint16_t b) {
        const auto [entry, isNew] = middles.try_emplace(std::minmax(a, b), uint16_t{0});
        if (isNew) {
            const Vertex& p = mVertices[a];
            const Vertex& q = mVertices[b];
            entry->second = static_cast<uint16_t>(mVertices.size());
            mVertices.push_back(Unit(p[0] + q[0], p[1] + q[1], p[2] + q[2]));
        }
        return entry->second;
    };
    const std::vector<uint16_t> old = std::exchange(mIndices, {});
    for (size_t i = 0; i < old.size(); i += 3) {
        const uint16_t a = old[i];
        const uint16_t b = old[i + 1];
        const uint16_t c = old[i + 2];
        const uint16_t ab = middle(a, b);
        const uint16_t bc = middle(b, c);
        const uint16_t ca = middle(c, a);
        for (const uint16_t index : {a, ab, ca, ab, b, bc, ca, bc, c, ab, bc, ca}) mIndices.push_back(index);
    }
}
