#include <gtest/gtest.h>

#include <cmath>

#include "data/clsDataLoader.h"
#include "data/clsSnapshotHeader.h"
#include "support/RecordingMessage.h"
#include "support/SampleData.h"

namespace {

TEST(GrammarTest, DefaultsAreWrittenInOrder) {
    const DataLoader_cls loader;
    EXPECT_EQ(
        loader.Serialize(),
        "DataLoadDataType=0\nDataLoadGrammerHead=0 1\nDataLoadGrammerBody=0 1 5 6 7 8\nLastOpenedFile=NONE\n"
        "InterpolateType=1\nVariableNumber=0\nLoaderTranslate=0.000000 0.000000 0.000000\n"
        "LoaderScale=1.000000\nLoaderScaleValue1=1.000000\nLoaderLogarithm=0\n");
    EXPECT_TRUE(loader.IsDefaultRecord());
    EXPECT_EQ(loader.GetRecordByte(), 40U);
}

TEST(GrammarTest, SizesFollowTheCodes) {
    DataLoader_cls loader;
    loader.ReadStrLine("DataLoadGrammerHead=2 3 4 0 1 77 -5");
    loader.ReadStrLine("DataLoadGrammerBody=0 2 8");
    EXPECT_EQ(loader.GetHeaderByte(), 4U + 12U + 40U + 4U + 4U);
    EXPECT_EQ(loader.GetHeaderLine(), 1U + 3U + 10U + 1U + 1U);
    EXPECT_EQ(loader.GetRecordByte(), 20U);
    EXPECT_FALSE(loader.IsDefaultRecord());
    EXPECT_TRUE(loader.IsItemExistHead(77));

    const std::vector<int> many(40, GrammerBase_cls::kDummy);
    loader.SetBodyGrammer(many);
    EXPECT_EQ(loader.GetBodyGrammer().size(), 16U);
}

TEST(GrammarTest, ResetKeepsTheLayout) {
    DataLoader_cls loader;
    for (const char* line : {"DataLoadDataType=1", "InterpolateType=0", "LoaderTranslate=1 2 3",
                             "LoaderScale=0", "LoaderScaleValue1=4", "LoaderLogarithm=1"}) {
        EXPECT_TRUE(loader.ReadStrLine(line)) << line;
    }
    EXPECT_TRUE(loader.IsTranslated());
    EXPECT_FALSE(loader.IsScaled()) << "a scale of 0 means none";
    loader.SetToDefault();
    EXPECT_FALSE(loader.IsTranslated());
    EXPECT_TRUE(loader.IsScaled());
    EXPECT_TRUE(loader.IsText());
    EXPECT_EQ(loader.mInterpolateType.mValue, DataLoader_cls::kLinear);
}

TEST(GrammarTest, OpeningRemembersThePathAndNeedsPositions) {
    DataLoader_cls loader;
    wxString opened;
    loader.SetOpenCommand([&](const wxString& path) { opened = path; });
    loader.OpenDataFile("a/b0001.dat");
    EXPECT_EQ(opened, "a/b0001.dat");
    EXPECT_EQ(loader.mLastOpenedFile.GetItemStr(), "a/b0001.dat");

    RecordingMessage_cls messages;
    EXPECT_TRUE(loader.CheckGrammer());
    loader.ReadStrLine("DataLoadGrammerBody=1 6");
    EXPECT_FALSE(loader.CheckGrammer());
    ASSERT_EQ(messages.mSaid.size(), 1U);
    EXPECT_EQ(messages.mSaid[0].title, "Grammer Error");
    EXPECT_EQ(messages.mSaid[0].text, "No XYZ data.");
}

TEST(SnapshotHeaderTest, BinaryHeadersAreWalked) {
    DataLoader_cls loader;
    loader.ReadStrLine("DataLoadGrammerHead=2 0 3 1");
    const std::string bytes = Bytes(99, 2.5F, 1, 2, 3, -7);
    auto header = SnapshotHeader_cls::FromBinary({bytes.data(), bytes.size()}, loader);
    EXPECT_TRUE(header.mComplete);
    EXPECT_EQ(header.mTime, 2.5);
    EXPECT_EQ(header.mNumber, -7);

    header = SnapshotHeader_cls::FromBinary({bytes.data(), bytes.size() - 1}, loader);
    EXPECT_FALSE(header.mComplete);
    EXPECT_EQ(header.mBytesThere, 23U);
    EXPECT_EQ(header.mBytesWanted, 24U);

    loader.ReadStrLine("DataLoadGrammerHead=2 2");
    header = SnapshotHeader_cls::FromBinary({bytes.data(), bytes.size()}, loader);
    EXPECT_FALSE(header.mTime.has_value());
    EXPECT_FALSE(header.mNumber.has_value());
}

TEST(SnapshotHeaderTest, TextHeadersTakeOneLineForEachCode) {
    struct Case {
        const char* grammer;
        std::string text;
        bool complete;
        double time;
        int number;
    };
    const Case cases[] = {
        {"0 1", "0.25\n12\n", true, 0.25, 12},
        {"0 1", " 1e3 seconds\r\n\t+12 particles\r\n", true, 1000.0, 12},
        {"2 0 2 1", "ITEM: TIMESTEP\n500\nITEM: NUMBER OF ATOMS\n64\n", true, 500.0, 64},
        {"3 0 1", "one line only for the three\n7\n8\n", true, 7.0, 8},
        {"0 1", "1.5D3\n1e1\n", true, 1500.0, 10},
        {"1",
         "\xEF\xBB\xBF"
         "12\n",
         true, 0.0, 12},
        {"0 1", "1\n" + std::string(100000, ' ') + "8\n", false, 1.0, 0},
        {"0 1", "time\nnumber\n", false, 0.0, 0},
        {"0 1", "1\n", false, 1.0, 0},
        {"0 1", "nan\n5000000000\n", false, 0.0, 0},
        {"0 1", "", false, 0.0, 0},
    };
    for (const Case& c : cases) {
        DataLoader_cls loader;
        loader.ReadStrLine(wxString("DataLoadGrammerHead=") + c.grammer);
        const auto header = SnapshotHeader_cls::FromText(c.text, loader);
        EXPECT_EQ(header.mComplete, c.complete) << c.text.substr(0, 40);
        EXPECT_EQ(header.mTime.value_or(0.0), c.time) << c.text.substr(0, 40);
        EXPECT_EQ(header.mNumber, c.number) << c.text.substr(0, 40);
    }
}

}  // namespace
