#include <gtest/gtest.h>

#include "support/Program.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

/// Layouts of other codes as the documentation describes them, each with its settings and what --info says.
struct Layout {
    const char* name;
    const char* file;  // as it is given to the program
    const char* first;
    std::string bytes;
    std::vector<std::string> settings;
    const char* time;
};

std::string Tipsy() {
    std::string bytes = Bytes(0.5, 2, 3, 0, 2, 0, 0);
    for (int i = 0; i < 2; ++i) bytes += Bytes(1.0F, 1.0F, 2.0F, 3.0F, 0.1F, 0.2F, 0.3F, 0.05F, -1.0F);
    return bytes;
}

TEST(LayoutsTest, FilesOfOtherCodesAreUnderstood) {
    const Layout layouts[] = {
        {"default record",
         "a0000.dat",
         "a0000.dat",
         DefaultSnapshot(1.5F, 2, {SampleParticle_cls{}, {}}),
         {},
         "1.5"},
        {"LAMMPS",
         "dump.0000.txt",
         "dump.0000.txt",
         "ITEM: TIMESTEP\n500\nITEM: NUMBER OF ATOMS\n2\nITEM: BOX BOUNDS pp pp pp\n0 1\n0 1\n0 1\n"
         "ITEM: ATOMS id type x y z\n1 1 0.1 0.2 0.3\n2 2 0.4 0.5 0.6\n",
         {"DataLoadDataType=1", "DataLoadGrammerHead=2 0 2 1 2 2 2 2 2", "DataLoadGrammerBody=6 7 0"},
         "500"},
        {"Tipsy",
         "tipsy.%05d",
         "tipsy.00000",
         Tipsy(),
         {"DataLoadGrammerHead=2 2 1 2 2 2 2 2", "DataLoadGrammerBody=2 0 1 5 8"},
         "0"},
        {"XYZ",
         "f0000.xyz",
         "f0000.xyz",
         "2\nwater\nO 0 0 0\nH 1 0 0\n",
         {"DataLoadDataType=1", "DataLoadGrammerHead=1 2", "DataLoadGrammerBody=2 0"},
         "0"},
        {"columns",
         "p.txt",
         "p.txt",
         "# x y z\n1 2 3\r\n4,5,6\n\n",
         {"DataLoadDataType=1", "DataLoadGrammerHead=-1", "DataLoadGrammerBody=0"},
         "0"},
    };
    for (const Layout& layout : layouts) {
        const TempFolder_cls folder;
        folder.Write(layout.first, layout.bytes);
        std::vector<std::string> arguments = {"--info", layout.file};
        for (const std::string& setting : layout.settings)
            arguments.insert(arguments.end(), {"--set", setting});
        const ProgramRun_cls run = RunProgram(arguments, folder.Path());
        EXPECT_EQ(run.status, 0) << layout.name << run.err;
        EXPECT_NE(run.out.find(std::string("t = ") + layout.time + " "), std::string::npos)
            << layout.name << run.out;
        EXPECT_NE(run.out.find(" 2 particles  " + std::string(layout.first)), std::string::npos) << run.out;
        EXPECT_NE(run.out.find("total: 1 snapshots, 2 particles"), std::string::npos) << run.out;
    }
}

}  // namespace
