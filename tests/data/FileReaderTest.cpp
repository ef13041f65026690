#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <random>
#include <thread>

#include "data/clsBodyProgress.h"
#include "data/clsPDataBlock.h"
#include "data/clsThreadAsciiReader.h"
#include "data/clsThreadFileReader.h"
#include "seam/clsClock.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsEventSink.h"
#include "support/SampleData.h"
#include "support/TargetArrays.h"
#include "support/TempFolder.h"

namespace {

/// Calls a function for every event that the readers post.
class Listener_cls : public EventSink_cls {
  public:
    explicit Listener_cls(std::function<void(int)> listen) : mListen(std::move(listen)) {
        GpCEventSink = this;
    }
    ~Listener_cls() override { GpCEventSink = nullptr; }
    void Post(int identifier) override { mListen(identifier); }

  private:
    std::function<void(int)> mListen;
};

class FileReaderTest : public ::testing::Test {
  protected:
    FileReaderTest() {
        SetDiagnosticsOn(false);
        PDataBlock_cls::mspCDataLoaderLink = &mLoader;
    }
    ~FileReaderTest() override {
        ThreadFileReader_cls::Retire();
        PDataBlock_cls::mspCDataLoaderLink = nullptr;
        GThreadNumberReadAscii = 4;
        SetDiagnosticsOn(true);
    }

    void Set(const std::vector<const char*>& settings) {
        for (const char* setting : settings) ASSERT_TRUE(mLoader.ReadStrLine(setting)) << setting;
    }
    InputFile_cls File(const std::string& bytes) {
        return std::move(*InputFile_cls::Open(mFolder.Write("a0000.dat", bytes)));
    }
    /// Header and body, as the program does it. Problems are told without the file's name.
    std::vector<wxString> Load(const InputFile_cls& file, PDataBlock_cls* block) {
        block->ReadHeader(file, "f", 5);
        block->ReadBody(file, "f");
        return block->TakeProblems();
    }

    TempFolder_cls mFolder;
    DataLoader_cls mLoader;
};

std::vector<SampleParticle_cls> RandomParticles(size_t count) {
    std::mt19937 random(1);
    std::vector<SampleParticle_cls> particles(count);
    for (SampleParticle_cls& particle : particles) {
        const auto number = [&random] { return static_cast<float>(random() % 20001) / 8 - 1000; };
        particle = {{number(), number(), number()}, {number(), number(), number()},     number(),
                    static_cast<int32_t>(random()), static_cast<int32_t>(random() % 5), number()};
    }
    return particles;
}

std::string Text(const std::vector<SampleParticle_cls>& particles) {
    std::string text = "0.5\n" + std::to_string(particles.size()) + "\n";
    int line = 0;
    for (const SampleParticle_cls& p : particles) {
        for (const float value : {p.position[0], p.position[1], p.position[2], p.velocity[0], p.velocity[1],
                                  p.velocity[2], p.radius})
            text += std::to_string(value) + ' ';
        text += std::to_string(p.id) + '\t' + std::to_string(p.type) + ' ' + std::to_string(p.value1) + '\n';
        if (++line % 1000 == 0) text += "# a comment\n\n";
    }
    return text;
}

void ExpectEqual(const PDataBlock_cls& block, const std::vector<SampleParticle_cls>& particles,
                 const std::string& name) {
    ASSERT_EQ(block.GetCount(), static_cast<int>(particles.size())) << name;
    for (size_t i = 0; i < particles.size(); ++i) {
        const SampleParticle_cls& p = particles[i];
        const bool equal = std::equal(p.position, p.position + 3, block.GetPosition() + 3 * i) &&
                           std::equal(p.velocity, p.velocity + 3, block.GetVelocity() + 3 * i) &&
                           p.radius == block.GetRadius()[i] && p.id == block.GetID()[i] &&
                           p.type == block.GetType()[i] && p.value1 == block.GetValue1()[i];
        ASSERT_TRUE(equal) << name << ": particle " << i;
    }
}

TEST_F(FileReaderTest, EveryWayOfReadingGivesTheSameParticles) {
    const auto particles = RandomParticles(60000);  // several pieces in each way
    const std::string binary = DefaultSnapshot(0.5F, 60000, particles);
    const std::string text = Text(particles);
    PDataBlock_cls block;
    EXPECT_EQ(Load(File(binary), &block).size(), 0U);
    ExpectEqual(block, particles, "default record");
    EXPECT_EQ(block.GetTime(), 0.5);

    std::string walked = binary.substr(0, 8);
    for (const SampleParticle_cls& p : particles)
        walked += Bytes(p.value1, p.velocity[0], p.velocity[1], p.velocity[2], p.type, 0, p.id, p.position[0],
                        p.position[1], p.position[2], p.radius);
    Set({"DataLoadGrammerBody=8 1 7 2 6 0 5"});
    block.ReleaseData();
    EXPECT_EQ(Load(File(walked), &block).size(), 0U);
    ExpectEqual(block, particles, "walked grammar");

    Set({"DataLoadGrammerBody=0 1 5 6 7 8", "DataLoadDataType=1"});
    for (const unsigned int workers : {0U, 1U, 2U, 3U, 7U, 4000000000U}) {
        GThreadNumberReadAscii = workers;
        block.ReleaseData();
        EXPECT_EQ(Load(File(text), &block).size(), 0U);
        ExpectEqual(block, particles, "text with workers " + std::to_string(workers));
    }
}

TEST_F(FileReaderTest, WhatTheGrammarDoesNotFillIsZeroAlsoInRecycledArrays) {
    const int count = 1 << 20;  // large enough to be recycled
    const std::string full(8 + 40 * static_cast<size_t>(count), '\1');
    PDataBlock_cls block;
    mFolder.Write("full", full);
    const auto file = InputFile_cls::Open(mFolder.File("full"));
    Set({"DataLoadGrammerHead=2 2"});
    Load(*file, &block);
    ASSERT_EQ(block.GetCount(), count);
    for (const char* grammer : {"DataLoadGrammerBody=0 2 8", "DataLoadGrammerBody=2 0 1 2 2"}) {
        block.ReleaseData();
        Set({grammer});
        Load(*file, &block);
        const auto n = static_cast<size_t>(block.GetCount());
        ASSERT_GE(n, static_cast<size_t>(count));
        const auto isZero = [n](const auto* values, size_t each) {
            return std::all_of(values, values + n * each, [](auto value) { return value == 0; });
        };
        EXPECT_TRUE(isZero(block.GetRadius(), 1) && isZero(block.GetType(), 1) && isZero(block.GetID(), 1));
        EXPECT_TRUE(isZero(block.GetRadiusWork(), 1) && isZero(block.GetValue1Work(), 1));
        EXPECT_NE(isZero(block.GetVelocity(), 3), isZero(block.GetValue1(), 1)) << grammer;
        EXPECT_FALSE(isZero(block.GetPosition(), 3));
    }
    block.ReleaseData();
    ParticleBuffer_cls::DropSpare();
}

TEST_F(FileReaderTest, BadFilesGiveWhatIsThereAndOneMessageForEachFault) {
    struct Case {
        const char* name;
        bool text;
        std::string bytes;
        int count;
        wxString problem;
    };
    const std::string two = DefaultSnapshot(1.0F, 2, std::vector<SampleParticle_cls>(2));
    const std::string cut = two.substr(0, two.size() - 1);
    const std::string huge = DefaultSnapshot(1.0F, 2000000000, {{}});
    const std::string notFinite = DefaultSnapshot(1.0F, 2, {{}, {{NAN, 0, 0}, {}, 0, 0, 0, 0}});
    const std::string mixed = "1\r\n2\r\n# x\r\n\r\n1\t2\t3\r\n \r\n4\t5\t6";
    const wxString bad = "%d particles have a value that is missing, no number or not finite";
    const wxString says = "the header says ";
    const Case cases[] = {
        {"truncated", false, cut, 1, says + "2 particles (88 bytes), the file has 87 bytes: 1 particles"},
        {"huge count", false, huge, 1, says + "2000000000 particles (80000000008 bytes), the file has 48"},
        {"negative count", false, DefaultSnapshot(1.0F, -3, {{}}), 0, says + "-3 particles"},
        {"no particles", false, DefaultSnapshot(1.0F, 0, {{}}), 0, ""},
        {"empty file", false, "", 0, "the file ends inside its header (0 of 8 bytes)"},
        {"not finite", false, notFinite, 2, "1 of " + wxString::Format(bad, 2)},
        {"missing columns", true, "1\n2\n1 2 3\n1 2\n", 2, "1 of " + wxString::Format(bad, 2)},
        {"CRLF, tabs, comments, blank lines", true, mixed, 2, ""},
        {"huge and Fortran", true, "1\n2\n1e400 0 0\n1D+05 0 0\n", 2, "1 of " + wxString::Format(bad, 2)},
        {"few lines", true, "1\n3\n1 2 3\n4 5 6\n#\n#\n#\n#\n", 2, says + "3 particles, the file holds 2"},
        {"few bytes", true, "1\n9999\n1 2 3\n4 5 6\n", 2, says + "9999 particles, the file has 2 lines"},
        {"more lines than the count", true, "1\n1\n1 2 3\n4 5 6\n7 8\n", 1, ""},
        {"no end", true, "1\n1\n" + std::string(1500000, '7'), 1, "1 of " + wxString::Format(bad, 1)},
    };
    for (const Case& c : cases) {
        Set({c.text ? "DataLoadDataType=1" : "DataLoadDataType=0",
             c.text ? "DataLoadGrammerBody=0" : "DataLoadGrammerBody=0 1 5 6 7 8"});
        PDataBlock_cls block;
        const auto problems = Load(File(c.bytes), &block);
        ASSERT_EQ(problems.size(), c.problem.empty() ? 0U : 1U) << c.name;
        for (const wxString& problem : problems)
            EXPECT_TRUE(problem.StartsWith("f: " + c.problem)) << problem;
        EXPECT_EQ(block.GetCount(), c.count) << c.name;
    }
    Set({"DataLoadGrammerHead=-1"});
    PDataBlock_cls block;
    EXPECT_EQ(Load(File("\xEF\xBB\xBF# x y z\n1 2 3\n4 5 6\n"), &block).size(), 0U);
    EXPECT_EQ(block.GetCount(), 2) << "a byte-order mark before a comment";
}

TEST_F(FileReaderTest, AFileThatShrinksBeforeOrWhileItIsRead) {
    constexpr int kCount = 400000;
    const std::string name =
        mFolder.Write("a0000.dat", DefaultSnapshot(1.0F, kCount, std::vector<SampleParticle_cls>(kCount)));
    PDataBlock_cls block;
    {
        const auto file = InputFile_cls::Open(name);
        block.ReadHeader(*file, "f", 0);
        // Cut at the first progress, when hundreds of pieces are still to come.
        const Listener_cls cut([&name](int) { std::filesystem::resize_file(name, 8 + 40 * 1000 + 17); });
        block.ReadBody(*file, "f");
        EXPECT_GE(block.GetCount(), 1000);
        EXPECT_LT(block.GetCount(), kCount);
        EXPECT_EQ(block.TakeProblems().size(), 1U);
    }
    const auto file = InputFile_cls::Open(name);
    block.ReleaseData();
    block.ReadHeader(*file, "f", 0);
    EXPECT_EQ(block.GetCount(), 1000);
    block.TakeProblems();
    std::filesystem::resize_file(name, 8 + 40 * 10 + 39);
    block.ReadBody(*file, "f");
    EXPECT_EQ(block.GetCount(), 10);
    EXPECT_EQ(block.TakeProblems(),
              std::vector<wxString>{"f: the header says 1000 particles, the file holds 10"});
}

TEST_F(FileReaderTest, AReadErrorIsToldInWords) {
    // A file of the system that can be opened and not read at its start.
    const auto file = InputFile_cls::Open("/proc/self/mem");
    ASSERT_TRUE(file);
    for (const char* type : {"DataLoadDataType=0", "DataLoadDataType=1"}) {
        Set({type});
        TargetArrays_cls arrays(10);
        const BodyReport_cls report = BodyReader_cls(mLoader, arrays.Target()).Read(*file);
        EXPECT_EQ(report.mRecords, 0);
        EXPECT_EQ(report.mFailure, "Input/output error");
    }
}

TEST_F(FileReaderTest, MemoryFiguresAndDiagnosticLines) {
    SetDiagnosticsOn(true);
    testing::internal::CaptureStdout();
    PDataBlock_cls block;
    EXPECT_EQ(block.GetUsedMemoryKB(), 0);
    for (const char* interpolation : {"InterpolateType=1", "InterpolateType=0"}) {
        Set({interpolation});
        Load(File(DefaultSnapshot(1.0F, 2000, std::vector<SampleParticle_cls>(2000))), &block);
        EXPECT_EQ(block.GetUsedMemoryKB(), mLoader.mInterpolateType.mValue == 1 ? 109 : 62);
        if (mLoader.mInterpolateType.mValue == 1) block.ReleaseData();
    }
    EXPECT_TRUE(block.Allocate(5));
    block.ReleaseData();
    EXPECT_EQ(block.GetCount(), -1);
    fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "time=1.000000\nnumber=2000\nAllocate -1\nReleaseAJ\n"
              "time=1.000000\nnumber=2000\nAllocate -1\nAllocate 2000\n");
}

TEST_F(FileReaderTest, TheReaderEndsInItsFixedOrder) {
    Set({"VariableNumber=2"});
    PDataBlock_cls block;
    std::atomic<bool> loaded{false};
    auto file = File(DefaultSnapshot(
        1.0F, 3, {{{3}, {30}, 0, 3, 0, 0}, {{1}, {10}, 0, 1, 0, 0}, {{2}, {20}, 0, 2, 0, 0}}));
    block.ReadHeader(file, "f", 0);
    ASSERT_TRUE(block.Allocate(block.GetCount()));

    std::vector<int> events;
    bool inOrder = true;
    const Listener_cls listener([&](int event) {
        events.push_back(event);
        if (events.size() == 1) return;  // the progress of the read itself
        inOrder &= loaded && GbThreadReaderFinished && GThreadReaderPercentage == 100 &&
                   GpCThreadReader.load() != nullptr && GThreadReaderIndex == 7;
    });
    ASSERT_TRUE(block.StartLoadingData(std::move(file), 7, &loaded));
    PollUntil(loaded, 1);
    ThreadFileReader_cls::Retire();
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(events, (std::vector<int>{EventSink_cls::kRefreshStatus, EventSink_cls::kRefreshStatus,
                                        EventSink_cls::kRedraw}));
    EXPECT_EQ(GpCThreadReader.load(), nullptr);
    EXPECT_EQ(GThreadReaderIndex.load(), -1);
    block.FinishLoadingData("f");
    EXPECT_TRUE(block.TakeProblems().empty());
    EXPECT_EQ(block.GetID()[0], 1);
    EXPECT_EQ(block.GetPosition()[0], 1.0F);
    EXPECT_EQ(block.GetVelocity()[0], 30.0F) << "velocities stay in file order";
}

TEST_F(FileReaderTest, AReaderThatEndsLeavesItsSuccessorRegistered) {
    PDataBlock_cls first;
    PDataBlock_cls second;
    const std::string bytes = DefaultSnapshot(1.0F, 1, {{}});
    std::atomic<bool> firstLoaded{false};
    std::atomic<bool> secondLoaded{false};
    std::atomic<bool> mayEnd{false};
    const Listener_cls listener([&](int event) {
        if (event != EventSink_cls::kRedraw) return;
        if (secondLoaded) {
            PollUntil(mayEnd, 1);
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));  // long last acts
        }
    });
    for (PDataBlock_cls* block : {&first, &second}) {
        block->ReadHeader(File(bytes), "f", 0);
        ASSERT_TRUE(block->Allocate(1));
    }
    ASSERT_TRUE(first.StartLoadingData(File(bytes), 1, &firstLoaded));
    EXPECT_FALSE(second.StartLoadingData(File(bytes), 2, &secondLoaded)) << "one reader at a time";
    PollUntil(GbThreadReaderFinished, 1);
    GpCThreadReader = nullptr;  // as a waiting loop does
    ASSERT_TRUE(second.StartLoadingData(File(bytes), 2, &secondLoaded));
    PollUntil(secondLoaded, 1);
    EXPECT_NE(GpCThreadReader.load(), nullptr);
    EXPECT_EQ(GThreadReaderIndex.load(), 2);
    mayEnd = true;
    ThreadFileReader_cls::Retire();
    EXPECT_EQ(GThreadReaderIndex.load(), -1);
}

TEST_F(FileReaderTest, ProgressIsToldInSteps) {
    struct Case {
        std::vector<const char*> settings;
        std::string bytes;
        size_t events;  // the last two tell the end
    };
    const std::vector<SampleParticle_cls> particles(250000);
    const std::string binary = DefaultSnapshot(1.0F, 250000, particles);
    const Case cases[] = {
        {{"DataLoadDataType=0"}, binary, 3 + 2},
        {{"DataLoadGrammerBody=0 1 5 6 8 7"}, binary, 1 + 2},
        {{"DataLoadDataType=1", "DataLoadGrammerBody=0 1 5 6 7 8"}, Text(particles), 5 + 2},
    };
    for (const Case& c : cases) {
        Set(c.settings);
        std::atomic<bool> loaded{false};
        std::atomic<size_t> events{0};
        const Listener_cls listener([&](int) { ++events; });
        PDataBlock_cls block;
        auto file = File(c.bytes);
        block.ReadHeader(file, "f", 0);
        ASSERT_TRUE(block.Allocate(block.GetCount()));
        ASSERT_TRUE(block.StartLoadingData(std::move(file), 0, &loaded));
        PollUntil(GbThreadReaderFinished, 5);
        ThreadFileReader_cls::Retire();
        EXPECT_EQ(events.load(), c.events) << c.settings[0];
        EXPECT_EQ(GThreadReaderPercentage.load(), 100);
    }
}

TEST_F(FileReaderTest, AReaderThatIsHandedAPathItCannotOpenEndsTheProgram) {
    std::atomic<bool> loaded{false};
    std::atomic<int> count{0};
    BodyReport_cls report;
    EXPECT_EXIT(ThreadFileReader_cls().SetParameters({&loaded, &count, &report}, mLoader,
                                                     wxString(mFolder.File("none")), {}),
                testing::ExitedWithCode(0), "");
}

}  // namespace
