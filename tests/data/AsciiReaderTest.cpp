#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "data/clsAsciiReader.h"
#include "data/clsDataLoader.h"
#include "support/TargetArrays.h"

namespace {

constexpr float kBad = -12345.0F;  // stands for not a number

TEST(AsciiReaderTest, LinesAreRecordsOrNotAndNoRecordIsDropped) {
    struct Case {
        const char* name;
        const char* grammer;
        std::string text;
        int bad;
        std::vector<float> position;
        std::vector<int32_t> id;
    };
    const Case cases[] = {
        {"plain", "6 0", "1 1 2 3\n2 4 5 6\n", 0, {1, 2, 3, 4, 5, 6}, {1, 2}},
        {"no line feed at the end", "0", "1 2 3\n4 5 6", 0, {1, 2, 3, 4, 5, 6}, {0, 0}},
        {"CRLF and tabs", "6 0", "1\t1\t2\t3\r\n2\t4 \t5\t6\r\n", 0, {1, 2, 3, 4, 5, 6}, {1, 2}},
        {"commas and semicolons", "6 0", "1,1;2;3\n2, 4, 5, 6\n", 0, {1, 2, 3, 4, 5, 6}, {1, 2}},
        {"comments and blank lines",
         "0",
         "# x y z\n\n1 2 3\n \t\r\n  # 9 9 9\n4 5 6\n\n",
         0,
         {1, 2, 3, 4, 5, 6},
         {0, 0}},
        {"columns behind the last", "0", "1 2 3 x y z 4\n4 5 6 7 8 9\n", 0, {1, 2, 3, 4, 5, 6}, {0, 0}},
        {"missing columns",
         "6 0",
         "1 1 2\n2\n3 1 2 3\n",
         2,
         {1, 2, kBad, kBad, kBad, kBad, 1, 2, 3},
         {1, 2, 3}},
        {"out of range and no number",
         "6 0",
         "1 1e400 1D+05 nan\nx -inf 1e-400 ?\n",
         2,
         {kBad, 1e5F, kBad, kBad, 0, kBad},
         {1, 0}},
        {"element names", "2 0", "He 1 2 3\n12 4 5 6\n", 0, {1, 2, 3, 4, 5, 6}, {0, 0}},
        {"dummies that are not there", "0 4", "1 2 3\n4 5 6 7\n", 0, {1, 2, 3, 4, 5, 6}, {0, 0}},
        {"IDs as reals and too large", "6 0", "3.0 1 2 3\n4294967296 4 5 6\n", 1, {1, 2, 3, 4, 5, 6}, {3, 0}},
        {"nothing", "6 0", "", 0, {}, {}},
        {"only comments", "6 0", "#\n# 1 2 3 4\n\n", 0, {}, {}},
        {"bytes that are no text", "0", std::string("\0\xff\x80 2 3\n", 7), 1, {kBad, 2, 3}, {0}},
    };
    for (const Case& c : cases) {
        DataLoader_cls loader;
        loader.ReadStrLine(wxString("DataLoadGrammerBody=") + c.grammer);
        const auto count = static_cast<int>(c.id.size());
        ASSERT_EQ(AsciiReader_cls::CountRecords(c.text, INT_MAX), count) << c.name;
        TargetArrays_cls arrays(count);
        const BodyReport_cls report = AsciiReader_cls(loader).Read(c.text, 0, arrays.Target());
        EXPECT_EQ(report.mRecords, count) << c.name;
        EXPECT_EQ(report.mBadRecords, c.bad) << c.name;
        EXPECT_EQ(arrays.mID, c.id) << c.name;
        for (float& value : arrays.mPosition) value = std::isnan(value) ? kBad : value;
        EXPECT_EQ(arrays.mPosition, c.position) << c.name;
    }
}

TEST(AsciiReaderTest, ElementsAreTypesToo) {
    DataLoader_cls loader;
    loader.ReadStrLine("DataLoadGrammerBody=7 0");
    const std::vector<const char*> words = {"H",  "C",   "N",     "O",  "Cu", "ZR",
                                            "og", "C12", "Water", "Xx", "?",  "2"};
    std::string text;
    for (const char* word : words) text += std::string(word) + " 1 2 3\n";
    TargetArrays_cls arrays(static_cast<int>(words.size()) + 1);
    // A line that ends with a name ends the text, too.
    const auto report = AsciiReader_cls(loader).Read(text + "N", 0, arrays.Target());
    EXPECT_EQ(report.mBadRecords, 2) << "the question mark, and the last without a place";
    EXPECT_EQ(arrays.mType, (std::vector<uint8_t>{1, 2, 3, 0, 1, 0, 2, 2, 0, 0, 0, 2, 3}));
}

TEST(AsciiReaderTest, AllColumnsGoToTheirArraysAndTypesAreLimited) {
    DataLoader_cls loader;
    loader.ReadStrLine("DataLoadGrammerBody=8 7 1 2 5 0 6");
    TargetArrays_cls arrays(3);
    const auto report = AsciiReader_cls(loader).Read(
        "0.5 3 1 2 3 x 0.25 7 8 9 -4\n0 -1 0 0 0 - 0 0 0 0 0\n"
        "0 256 0 0 0 - 0 0 0 0 0\n0 0 0 0 0 0 0 0 0 0 0\n",
        0, arrays.Target());
    EXPECT_EQ(report.mRecords, 3) << "no more than the arrays hold";
    EXPECT_EQ(report.mBadRecords, 0);
    EXPECT_EQ(arrays.mValue1[0], 0.5F);
    EXPECT_EQ(arrays.mType, (std::vector<uint8_t>{3, 4, 4}));
    EXPECT_EQ((std::vector<float>{arrays.mVelocity.begin(), arrays.mVelocity.begin() + 3}),
              (std::vector<float>{1, 2, 3}));
    EXPECT_EQ(arrays.mRadius[0], 0.25F);
    EXPECT_EQ(arrays.mPosition[2], 9.0F);
    EXPECT_EQ(arrays.mID[0], -4);
}

}  // namespace
