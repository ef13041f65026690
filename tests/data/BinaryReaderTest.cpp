#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>

#include "data/clsBinaryReader.h"
#include "data/clsDataLoader.h"
#include "support/SampleData.h"
#include "support/TargetArrays.h"

namespace {

/// Record by record and item by item, as the layout reads.
TargetArrays_cls ReadPlainly(const std::vector<int>& codes, const std::string& bytes, int count) {
    TargetArrays_cls arrays(count);
    const char* now = bytes.data();
    const auto take = [&now](void* to, size_t size) {
        std::memcpy(to, now, size);
        now += size;
    };
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
        for (const int code : codes) {
            int32_t type = 0;
            switch (code) {
                case 0:
                    take(&arrays.mPosition[3 * i], 12);
                    break;
                case 1:
                    take(&arrays.mVelocity[3 * i], 12);
                    break;
                case 5:
                    take(&arrays.mRadius[i], 4);
                    break;
                case 6:
                    take(&arrays.mID[i], 4);
                    break;
                case 7:
                    take(&type, 4);
                    arrays.mType[i] = static_cast<uint8_t>(std::min(type & 255, 4));
                    break;
                case 8:
                    take(&arrays.mValue1[i], 4);
                    break;
                default:
                    now += code == 2 ? 4 : code == 3 ? 12 : code == 4 ? 40 : 0;
                    break;
            }
        }
    }
    return arrays;
}

TEST(BinaryReaderTest, WalkedLayoutsGiveWhatIsThere) {
    std::mt19937 random(3);
    for (const std::vector<int>& codes : {std::vector{0, 2, 8},
                                          {2, 0, 1, 2, 2},
                                          {8, 7, 6, 5, 1, 0},
                                          {4, 3, 0, 99, 2, 7},
                                          {0},
                                          {6, 3, 7},
                                          {0, 1, 5, 6, 8, 7},
                                          {4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 0, 6}}) {
        for (const int count : {0, 1, 255, 256, 257, 1000}) {
            DataLoader_cls loader;
            loader.SetBodyGrammer(codes);
            const BinaryReader_cls reader(loader);
            std::string bytes(reader.GetRecordByte() * static_cast<size_t>(count), '\0');
            for (char& byte : bytes) byte = static_cast<char>(random() % 127);
            TargetArrays_cls arrays(count);
            const auto report = reader.Read({bytes.data(), bytes.size()}, 0, arrays.Target());
            EXPECT_EQ(report.mRecords, count);
            EXPECT_TRUE(arrays == ReadPlainly(codes, bytes, count)) << "layout of " << codes.size();
        }
    }
}

TEST(BinaryReaderTest, TypesAreLimited) {
    const std::vector<int32_t> types = {0, 4, 5, 7, -1, 256, 259, std::numeric_limits<int32_t>::min()};
    std::vector<SampleParticle_cls> particles(types.size());
    for (size_t i = 0; i < types.size(); ++i) particles[i].type = types[i];
    const std::string bytes = DefaultSnapshot(0.0F, 0, particles).substr(8);

    DataLoader_cls loader;
    TargetArrays_cls arrays(static_cast<int>(types.size()));
    BinaryReader_cls(loader).Read(bytes, 0, arrays.Target());
    EXPECT_EQ(arrays.mType, (std::vector<uint8_t>{0, 4, 4, 4, 4, 4, 4, 4})) << "the whole number is limited";
    loader.ReadStrLine("DataLoadGrammerBody=0 1 5 6 7 2");
    BinaryReader_cls(loader).Read(bytes, 0, arrays.Target());
    EXPECT_EQ(arrays.mType, (std::vector<uint8_t>{0, 4, 4, 4, 4, 0, 3, 0})) << "its low byte is";
}

TEST(BinaryReaderTest, PositionsThatAreNotFiniteAreCountedAndOnlyWholeRecordsRead) {
    constexpr int kCount = 600;
    std::vector<SampleParticle_cls> particles(kCount);
    const float infinity = std::numeric_limits<float>::infinity();
    particles[3].position[0] = infinity;
    particles[3].position[2] = std::numeric_limits<float>::quiet_NaN();
    particles[256].position[1] = -infinity;
    particles[599].position[2] = std::numeric_limits<float>::quiet_NaN();
    particles[100].velocity[0] = infinity;
    particles[101].position[0] = std::numeric_limits<float>::max();
    particles[102].position[0] = std::numeric_limits<float>::denorm_min();
    const std::string bytes = DefaultSnapshot(0.0F, 0, particles).substr(8);
    const DataLoader_cls loader;
    TargetArrays_cls arrays(kCount);
    auto report = BinaryReader_cls(loader).Read(bytes, 0, arrays.Target());
    EXPECT_EQ(report.mRecords, kCount);
    EXPECT_EQ(report.mBadRecords, 3);
    EXPECT_EQ(arrays.mPosition[9], infinity) << "stored as they are";

    report = BinaryReader_cls(loader).Read({bytes.data(), 79}, kCount - 2, arrays.Target());
    EXPECT_EQ(report.mRecords, 1);
    report = BinaryReader_cls(loader).Read(bytes, kCount - 2, arrays.Target());
    EXPECT_EQ(report.mRecords, 2) << "no more than the arrays hold";
}

}  // namespace
