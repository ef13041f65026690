#include <gtest/gtest.h>

#include "data/clsFileKind.h"
#include "data/clsRecordPreview.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

const std::string kDump =
    "ITEM: TIMESTEP\n500\nITEM: NUMBER OF ATOMS\n2\nITEM: BOX BOUNDS pp pp pp\n0 2\n-1 3\n0 6\n"
    "ITEM: ATOMS id type x y z\n2 1 0.1 0.2 0.3\n1 2 0.4 0.5 0.6\n";
const std::string kTimedDump =
    "ITEM: UNITS\nlj\nITEM: TIME\n2.5\nITEM: TIMESTEP\n500\nITEM: NUMBER OF ATOMS\n1\n"
    "ITEM: BOX BOUNDS xy xz yz pp pp ff\n-1 5 1\n0 4 -2\n0 3 0.5\n"
    "ITEM: ATOMS id element mass xs ys zs vx vy vz c_pe\n7 Ar 40 .1 .2 .3 1 2 3 -4\n";

std::string Tipsy(int gas, int dark) {
    std::string bytes = Bytes(0.5, gas + dark, 3, gas, dark, 0, 0);
    for (int i = 0; i < gas; ++i) bytes += std::string(48, 'g');
    for (int i = 0; i < dark; ++i) bytes += Bytes(1.0F, 1.0F, 2.0F, 3.0F, 0.1F, 0.2F, 0.3F, 0.05F, -1.0F);
    return bytes;
}

FileStart_cls Start(const TempFolder_cls& folder, const std::string& bytes) {
    return FileStart_cls(*InputFile_cls::Open(folder.Write("f", bytes)));
}

TEST(FileKindTest, FilesAreRecognisedWithAllTheirSettings) {
    struct Case {
        const char* name;
        std::string bytes;
        FileKind_cls::Kind kind;
        const char* settings;  // data type, header, body, interpolation, particle number; empty: no preset
        const char* box = "";
        bool manySteps = false;
    };
    const SampleParticle_cls particle{};
    const Case cases[] = {
        {"record", DefaultSnapshot(1, 2, {particle, particle}), FileKind_cls::kDefaultRecord,
         "0|0 1|0 1 5 6 7 8|1|0"},
        {"record cut short", DefaultSnapshot(1, 3, {particle, particle}), FileKind_cls::kUnknown, ""},
        {"Tipsy", Tipsy(0, 2), FileKind_cls::kTipsy, "0|2 2 1 2 2 2 2 2|2 0 1 5 8|0|0"},
        {"Tipsy gas", Tipsy(2, 0), FileKind_cls::kTipsy, "0|2 2 1 2 2 2 2 2|2 0 1 8 2 5 2 2|0|0"},
        {"Tipsy of two kinds", Tipsy(1, 2), FileKind_cls::kTipsy, ""},
        {"dump", kDump, FileKind_cls::kLammpsDump, "1|2 0 2 1 2 2 2 2 2|6 7 0|0|1", "xyz 2 4 6"},
        {"sheared, scaled, timed", kTimedDump, FileKind_cls::kLammpsDump,
         "1|2 2 2 0 2 2 2 1 2 2 2 2 2|6 7 2 0 1 8|1|1", "xy 1 1 1"},
        {"dump of steps", kDump + kDump, FileKind_cls::kLammpsDump, "1|2 0 2 1 2 2 2 2 2|6 7 0|0|1",
         "xyz 2 4 6", true},
        {"dump without positions", "ITEM: TIMESTEP\n0\nITEM: ATOMS id x z\n", FileKind_cls::kLammpsDump, ""},
        {"dump cut in its header", "ITEM: TIMESTEP\n0\nITEM: NUM", FileKind_cls::kLammpsDump, ""},
        {"XYZ", "2\nwater\nO 0 0 0\nH 1 0 0\n", FileKind_cls::kXyz, "1|1 2|7 0|0|0"},
        {"XYZ of type numbers", "2\n\n1 0 0 0\n2 1 0 0\n2\n\n1 0 0 0\n2 1 0 0\n", FileKind_cls::kXyz,
         "1|1 2|7 0|0|0", "", true},
        {"extended XYZ",
         "1\nLattice=\"5 0 0 0 6 0 0 0 7\" Properties=species:S:1:id:I:1:pos:R:3:vel:R:3\n"
         "Ar 1 0 0 0 1 1 1\n",
         FileKind_cls::kXyz, "1|1 2|7 6 0 1|0|1", "xyz 5 6 7"},
        {"types and species", "1\nProperties=species:S:1:type:I:1:pos:R:3\nAr 1 0 0 0\n", FileKind_cls::kXyz,
         "1|1 2|2 7 0|0|0"},
        {"columns", "# a remark\n1 2 3\r\n4,5,6\n\n", FileKind_cls::kColumns, "1|-1|0|0|0"},
        {"named columns", "id,mass,x,y,z,temp\n1,1,0,0,0,9\n", FileKind_cls::kColumns, "1|2|6 2 0 8|0|1"},
        {"a remark before the names", "# made by me\nx y z\n1 2 3\n", FileKind_cls::kColumns, "1|2 2|0|0|0"},
        {"an empty line before the names", "\nx,y,z\n1,2,3\n", FileKind_cls::kColumns, "1|2 2|0|0|0"},
        {"an empty line before the count", "\n2\n1 2 3\n4 5 6\n", FileKind_cls::kColumns, "1|2 1|0|0|0"},
        {"many remarks", "#\n##\n# a\n#\n#\n#\n#\n#\n#\n# x y z\n1 2 3\n", FileKind_cls::kColumns,
         "1|-1|0|0|0"},
        {"our export", "# index id type x y z radius value1\n0 1 1 0 0 0 1 2\n", FileKind_cls::kColumns,
         "1|-1|2 6 7 0 5 8|0|1"},
        {"text record", "0.5\n1\n0 0 0 1 1 1 2 3 0 5\n", FileKind_cls::kColumns, "1|0 1|0 1 5 6 7 8|1|1"},
        {"prose", "Dear diary,\nnothing happened.\n", FileKind_cls::kUnknown, ""},
        {"empty", "", FileKind_cls::kUnknown, ""},
    };
    for (const Case& c : cases) {
        const TempFolder_cls folder;
        const FileKind_cls kind = FileKind_cls::Recognise(Start(folder, c.bytes));
        EXPECT_EQ(kind.mKind, c.kind) << c.name;
        EXPECT_EQ(kind.mHasManySteps, c.manySteps) << c.name;
        EXPECT_FALSE(kind.mWords.empty()) << c.name;
        wxString settings;
        wxString box;
        if (kind.mPreset) {
            DataLoader_cls loader;
            kind.mPreset->ApplyTo(loader);
            settings << int{loader.IsText()};
            for (const auto codes : {loader.GetHeaderGrammer(), loader.GetBodyGrammer()}) {
                char before = '|';
                for (const int code : codes) settings << std::exchange(before, ' ') << code;
            }
            settings << "|" << loader.mInterpolateType.mValue << "|" << loader.mVariableNumber.mValue;
            if (kind.mPreset->mBox) {
                box << (kind.mPreset->mBox->space ? "xyz" : "xy");
                for (const float length : kind.mPreset->mBox->length)
                    box += wxString::Format(" %g", static_cast<double>(length));
            }
        }
        EXPECT_EQ(settings, c.settings) << c.name;
        EXPECT_EQ(box, c.box) << c.name;
    }
}

TEST(RecordPreviewTest, ShowsRecordsAndTheFirstMisfitWithItsPlace) {
    struct Case {
        const char* name;
        std::string bytes;
        std::vector<const char*> settings;
        size_t rows;
        const char* misfit;  // the beginning; empty: none
    };
    const std::vector<const char*> dump = {"DataLoadDataType=1", "DataLoadGrammerHead=2 0 2 1 2 2 2 2 2",
                                           "DataLoadGrammerBody=6 7 0"};
    SampleParticle_cls particle{{1, 2, 3}, {0, 0, 0}, 1, 5, 7, 9};
    const std::vector<SampleParticle_cls> many(12, particle);
    particle.position[1] = std::numeric_limits<float>::quiet_NaN();
    const std::string lineFour = "ITEM: NUMBER OF ATOMS\n2";
    std::string badCount = kDump;
    badCount.replace(kDump.find(lineFour), lineFour.size(), "ITEM: NUMBER OF ATOMS\nmany");
    const Case cases[] = {
        {"fits", DefaultSnapshot(1, 12, many), {}, 10, ""},
        {"too short", DefaultSnapshot(1, 20, many), {}, 10, "byte 488: 320 bytes are missing"},
        {"goes on", DefaultSnapshot(1, 10, many), {}, 10, "byte 408: 80 bytes are left over"},
        {"another record",
         DefaultSnapshot(1, 12, many),
         {"DataLoadGrammerBody=0 1"},
         10,
         "byte 296: 192 bytes are left over behind the particles; records of 40 bytes would fit"},
        {"negative", DefaultSnapshot(1, -5, many), {}, 0, "byte 4: the count is -5"},
        {"not finite", DefaultSnapshot(1, 2, {many[0], particle}), {}, 2, "byte 52, particle 2: XYZ nan"},
        {"no real",
         Bytes(1.0F, 1, 1, 2, 3),
         {"DataLoadGrammerBody=0"},
         1,
         "byte 8, particle 1: XYZ 1.4013e-45"},
        {"cut in its header", Bytes(1.0F), {}, 0, "byte 4: the file ends inside its header of 8 bytes"},
        {"text as binary", kDump, {}, 3, "byte 140"},
        {"dump", kDump, dump, 2, ""},
        {"count is a word", badCount, dump, 0, "line 4: no number"},
        {"cut in a line", kDump.substr(0, kDump.size() - 6), dump, 2, "line 11: the line ends before XYZ"},
        {"fewer lines", kDump.substr(0, kDump.size() - 16), dump, 1, "line 11: the file ends after 1 of 2"},
        {"several steps", kDump + kDump, dump, 2, "line 12: the file goes on behind the particles: ITEM:"},
        {"word as number",
         "1 2 3\n1 b 3\n",
         {"DataLoadDataType=1", "DataLoadGrammerHead=-1", "DataLoadGrammerBody=0"},
         2,
         "line 2: \"b\" is no number for XYZ"},
        {"far bad line", kDump.substr(0, kDump.find("2 1 0.1")) + "1 1 1 1 1\n1 1 1 1 ?\n", dump, 2,
         "line 11: \"?\""},
        {"binary as text",
         DefaultSnapshot(1, 12, many),
         {"DataLoadDataType=1"},
         0,
         "byte 0: this is no text"},
        {"no positions",
         kDump,
         {"DataLoadDataType=1", dump[1], "DataLoadGrammerBody=6 7 8"},
         2,
         "No XYZ data."},
        {"empty", "", {}, 0, "the file is empty"},
    };
    for (const Case& c : cases) {
        const TempFolder_cls folder;
        DataLoader_cls loader;
        for (const char* line : c.settings) loader.ReadStrLine(line);
        const RecordPreview_cls preview = RecordPreview_cls::Make(Start(folder, c.bytes), loader);
        EXPECT_EQ(preview.mRows.size(), c.rows) << c.name;
        const bool asSaid = *c.misfit ? preview.mMisfit.StartsWith(c.misfit) : preview.mMisfit.empty();
        EXPECT_TRUE(asSaid) << c.name << ": " << preview.mMisfit;
        for (const auto& row : preview.mRows) EXPECT_EQ(row.size(), preview.mColumns.size()) << c.name;
    }
}

}  // namespace
