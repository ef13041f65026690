#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

#include "CONFITEM/clsConfItemList.h"

namespace {

wxString Reread(ConfItem_cls& item, const wxString& line) {
    item.ReadStrLine(line);
    return item.Serialize();
}

TEST(ConfItemTest, NumbersAreWrittenInTheirFormats) {
    EXPECT_EQ(ConfItemFLOAT_cls("k=", "0.5").Serialize(), "k=0.500000\n");
    EXPECT_EQ(ConfItemFLOAT_cls("k=", "0.0000001").Serialize(), "k=0.000000\n");
    EXPECT_EQ(ConfItemFLOAT_cls("k=", "3e38").Serialize().length(), 2 + 39 + 7 + 1);
    EXPECT_EQ(ConfItemDOUBLE_cls("k=", "0.5").Serialize(), "k=0.5\n");
    EXPECT_EQ(ConfItemDOUBLE_cls("k=", "1234567").Serialize(), "k=1.23457e+06\n");
    EXPECT_EQ(ConfItemUINT_cls("k=", "-1").Serialize(), "k=4294967295\n");
    EXPECT_EQ(ConfItemBOOL_cls("k=", "7").Serialize(), "k=1\n");
    EXPECT_EQ(ConfItemFLOATARRAY_cls("k=", "1 2 3").Serialize(), "k=1.000000 2.000000 3.000000\n");
    EXPECT_EQ(ConfItemFLOATARRAY_cls("k=", "1 2 3").GetItemStr(), "1.000000 1.000000 2.000000 3.000000");
    EXPECT_EQ(ConfItemINT_cls().Serialize(), "NONE0\n");
}

TEST(ConfItemTest, BetweenTwoRunsNumbersKeepAllTheirDigits) {
    const auto survives = [](auto item, const wxString& value, auto number) {
        item.ReadStrLine("k=" + value);
        const ExactNumbers_cls exact;
        auto copy = item;
        copy.ReadStrLine("k=1");
        copy.ReadStrLine(item.Serialize());
        return item.mValue == number && copy.mValue == number;
    };
    EXPECT_TRUE(survives(ConfItemFLOAT_cls("k=", "0"), "1.23456789e-24", 1.23456789e-24F));
    EXPECT_TRUE(survives(ConfItemFLOAT_cls("k=", "0"), "3e38", 3e38F));
    EXPECT_TRUE(survives(ConfItemDOUBLE_cls("k=", "0"), "1234567.875", 1234567.875));
    EXPECT_EQ(ConfItemFLOAT_cls("k=", "0.5").Serialize(), "k=0.500000\n") << "only while it is wanted";
}

TEST(ConfItemTest, ALineThatIsNotCleanIsReadAsFarAsItGoes) {
    ConfItemINT_cls count("Count=", "3");
    EXPECT_EQ(Reread(count, "Count=12abc"), "Count=12\n");
    EXPECT_EQ(count.GetValueText(), "12abc");
    EXPECT_EQ(Reread(count, "Count="), "Count=0\n");
    EXPECT_EQ(Reread(count, "Count=5000000000"), "Count=705032704\n") << "cut to 32 bits";
    EXPECT_FALSE(count.ReadStrLine("count=9"));

    ConfItemINT_cls width("Width=", "1");
    EXPECT_EQ(Reread(width, "PovCameraWidth=640"), "Width=0\n") << "the cut is at the key's length";

    ConfItemFLOATARRAY_cls three("v=", "1 2 3");
    EXPECT_EQ(Reread(three, "v=7 x 9"), "v=7.000000 2.000000 3.000000\n");
    EXPECT_EQ(Reread(three, "v="), "v=7.000000 2.000000 3.000000\n");
    EXPECT_EQ(Reread(three, "v=4 5 6 7 8"), "v=4.000000 5.000000 6.000000\n");
}

TEST(ConfItemTest, IntegerArrayTakesItsLengthFromTheLineAndIsBounded) {
    ConfItemINTARRAY_cls codes("g=", "0 1");
    EXPECT_EQ(Reread(codes, "g=6 7 0"), "g=6 7 0\n");
    for (const char* tail : {" ", "\r", " x", "  "})
        EXPECT_EQ(Reread(codes, wxString("g=6 7 0") + tail), "g=6 7 0\n");
    EXPECT_EQ(Reread(codes, "g="), "g=6\n") << "element 0 is written even without elements";

    wxString many = "g=";
    for (int i = 0; i < 10000; ++i) many += wxString::Format("%d ", i);
    ASSERT_TRUE(codes.ReadStrLine(many));
    EXPECT_EQ(codes.dimension, 16U);
    EXPECT_EQ(codes.mValue[15], 15);
}

TEST(ConfItemTest, SettingAnEmptyValueChangesOnlyTheKey) {
    ConfItemINTARRAY_cls item("a=", "1 2");
    item.SetItem("b=", "");
    EXPECT_EQ(item.Serialize(), "b=1 2\n");
    EXPECT_EQ(item.GetValueText(), "1 2");
}

TEST(ConfItemTest, DimensionCountsBlanksAfterTheFirstPosition) {
    ConfItemINTARRAY_cls array;
    EXPECT_EQ(array.CountDimension("1 2 3"), 3U);
    EXPECT_EQ(array.CountDimension(" 1"), 1U);
    EXPECT_EQ(array.CountDimension(""), 1U);
    EXPECT_DEATH(array.CountDimension("1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17"),
                 "SRC/CONFITEM/clsConfItem.cpp:62: unsigned int ConfArray_cls::CountDimension\\(wxString\\): "
                 "Assertion `dimension <= 16' failed");
}

TEST(ConfItemTest, NumbersDoNotFollowTheProcessLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8"}) std::setlocale(LC_ALL, locale);
    ConfItemDOUBLE_cls item("k=", "0.25");
    ConfItemFLOATARRAY_cls array("k=", "0.5 0.25");
    EXPECT_EQ(item.Serialize(), "k=0.25\n");
    EXPECT_EQ(Reread(array, "k=1.5 2.5"), "k=1.500000 2.500000\n");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ConfItemTest, SeparatorsAreReplacedInTheValueText) {
    ConfItemSTR_cls path("p=", "C:\\my data\\a");
    path.ReplaceSeparator();
    EXPECT_EQ(path.GetItemStr(), "C:/my\\ data/a");
}

/// One item of every class that a list can hold.
struct AllKinds_cls {
    ConfItemSTR_cls str;
    ConfItemINT_cls integer;
    ConfItemINTARRAY_cls integers;
    ConfItemUINT_cls unsignedInteger;
    ConfItemUINTARRAY_cls unsignedIntegers;
    ConfItemFLOAT_cls single;
    ConfItemFLOATARRAY_cls singles;
    ConfItemDOUBLE_cls dbl;
    ConfItemDOUBLEARRAY_cls dbls;
    ConfItemBOOL_cls flag;
    ConfItemBOOLARRAY_cls flags;
    ConfItemList_cls list;

    explicit AllKinds_cls(bool second = false) {
        const auto add = [&](ConfItem_cls& item, const wxString& key, const wxString& a, const wxString& b) {
            list.Add(&item, key, second ? b : a);
        };
        add(str, "str=", "plain text", "other = text");
        add(integer, "integer=", "1", "-2147483648");
        add(integers, "codes=", "1 2 3", "-4 5");
        add(unsignedInteger, "unsigned=", "1", "4000000000");
        add(unsignedIntegers, "counts=", "1 2", "4000000000 7");
        add(single, "single=", "1", "-0.125");
        add(singles, "floats=", "1 2 3", "0.5 0.25 -8");
        add(dbl, "dbl=", "1", "1e-300");
        add(dbls, "dbls=", "1 2", "1e+200 0.1");
        add(flag, "flag=", "0", "1");
        add(flags, "bools=", "0 1 1 0", "1 0 0 1");
    }
};

TEST(ConfItemListTest, WriteReadWriteIsTheSameText) {
    AllKinds_cls source(true);
    AllKinds_cls target;
    const wxString text = source.list.SerializeAll();
    ASSERT_NE(text, target.list.SerializeAll());
    for (size_t begin = 0, end = 0; (end = text.find('\n', begin)) != wxString::npos; begin = end + 1) {
        EXPECT_TRUE(target.list.ReadStrLineAll(text.substr(begin, end - begin)));
    }
    // The integer array's length comes from the line; it had three elements before.
    EXPECT_EQ(target.list.SerializeAll(), text);
    EXPECT_FALSE(target.list.ReadStrLineAll("unknown=1"));
}

TEST(ConfItemListTest, CopyTakesEveryKindAndStaysInsideItsStorage) {
    const AllKinds_cls source(true);
    AllKinds_cls target;
    EXPECT_EQ(target.list.CopyListComponentFromP(source.list), 11);
    EXPECT_EQ(target.list.SerializeAll(), source.list.SerializeAll());

    // A list of another shape, or a shorter one, must not be read past its storage.
    ConfItemBOOLARRAY_cls bools;
    ConfItemList_cls other;
    other.Add(&bools, "bools=", "1 1");
    ConfItemDOUBLEARRAY_cls doubles("dbls=", "3 4");
    ConfItemINT_cls integer("n=", "5");
    ConfItemList_cls list;
    list.SetApplyDefaults(false);
    list.Add(&doubles, "dbls=", "9 9");
    list.Add(&integer, "n=", "9");
    EXPECT_EQ(list.CopyListComponentFromP(other), 2);
    EXPECT_EQ(doubles.mValue[1], 4.0);
    EXPECT_EQ(integer.mValue, 5);
}

TEST(ConfItemListTest, ValuesAreFoundByTheirAddress) {
    const AllKinds_cls kinds;
    const auto name = [&](const void* address) { return kinds.list.GetHeaderStrFromPointer(address); };
    EXPECT_EQ(name(&kinds.integer.mValue), "integer=");
    EXPECT_EQ(name(&kinds.dbl.mValue), "dbl=");
    EXPECT_EQ(name(&kinds.singles.mValue[1]), "floats=::DIM=1");
    EXPECT_EQ(name(&kinds.dbls.mValue[0]), "dbls=::DIM=0");
    EXPECT_EQ(name(&kinds.singles.mValue[3]), "") << "only elements in use";
    EXPECT_EQ(name(&kinds.unsignedIntegers.mValue[0]), "");
    EXPECT_EQ(name(&kinds.flag.mValue), "");
    EXPECT_EQ(name(&kinds.flags.mValue[0]), "");
}

TEST(ConfItemListTest, SkippedTextIsLeftOut) {
    ConfItemSTR_cls kept;
    ConfItemSTR_cls skipped;
    ConfItemList_cls list;
    list.Add(&kept, "a=", "x");
    list.Add(&skipped, "b=", "!!SKIP!!");
    EXPECT_EQ(list.SerializeAll(), "a=x\n");
    EXPECT_EQ(list.GetPCItem("b="), &skipped);
    EXPECT_EQ(list.GetPCItem("B="), nullptr);
}

}  // namespace
