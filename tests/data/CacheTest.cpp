#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <set>

#include "data/clsDataLoader.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsThreadFileReader.h"
#include "interp/clsThreadInterpolator.h"
#include "seam/clsClock.h"
#include "seam/clsLineStream.h"
#include "support/ReadAll.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "timeline/clsTimeCtrl.h"

namespace {

/// A series of small snapshots on disk and the controller that reads them.
class CacheTest : public ::testing::Test {
  protected:
    CacheTest() {
        PDataBlock_cls::mspCDataLoaderLink = &mLoader;
        mLoader.ReadStrLine("InterpolateType=0");
    }
    ~CacheTest() override {
        mControl.reset();
        ThreadFileReader_cls::Retire();
        ThreadInterpolator_cls::JoinLast();
        PDataBlock_cls::mspCDataLoaderLink = nullptr;
    }

    /// Particle p of snapshot i stands at x = 10 p + i; times are 2 i.
    void Write(int snapshots, int particles) {
        for (int i = 0; i < snapshots; ++i) {
            std::vector<SampleParticle_cls> all;
            for (int p = 0; p < particles; ++p) {
                const auto x = static_cast<float>(10 * p + i);
                all.push_back({{x, 0, 0}, {0, 0, 0}, 1, p, 0, x});
            }
            mFolder.Write(Name(i), DefaultSnapshot(2.0F * static_cast<float>(i), particles, all));
        }
    }
    static std::string Name(int i) { return "s" + std::to_string(10000 + i) + ".dat"; }

    PDataSequence_cls& Open() {
        mControl = std::make_unique<PDataSeqCtrl_cls>(true);
        mControl->OpenDataFile(mFolder.File(Name(0)));
        return mControl->GetActive();
    }
    void Load(std::initializer_list<int> indices) {
        for (const int i : indices) mControl->PrepareIndex(i, 0.0, false, true);
    }
    std::set<int> Loaded() const {
        std::set<int> loaded;
        for (int i = 0; i < mControl->GetActive().GetSeqLength(); ++i) {
            if (mControl->IsTheIndexLoaded(i)) loaded.insert(i);
        }
        return loaded;
    }

    TempFolder_cls mFolder;
    DataLoader_cls mLoader;
    std::unique_ptr<PDataSeqCtrl_cls> mControl;
};

TEST_F(CacheTest, AnInstantBetweenTwoSnapshotsIsPrepared) {
    Write(3, 4);
    PDataSequence_cls& sequence = Open();
    ASSERT_EQ(sequence.GetSeqLength(), 3);
    EXPECT_FALSE(sequence.IsTheIndexReady(0, 0.5, false));
    EXPECT_EQ(sequence.GetTime(0), PDataSnap_cls::kNoTime);

    sequence.PrepareIndex(0, 0.5, false, true);
    EXPECT_TRUE(sequence.IsTheIndexReady(0, 0.5, false));
    EXPECT_EQ(Loaded(), (std::set<int>{0, 1}));
    EXPECT_FLOAT_EQ(sequence.GetSnap(0).GetBlock().GetVelocity()[0], 0.5F) << "one length in two time units";
    EXPECT_EQ(sequence.GetDT(0, 0.25), 0.5);

    // A whole instant needs no rates, unless they are asked for.
    sequence.PrepareIndex(2, 0.0, false, true);
    EXPECT_TRUE(sequence.IsTheIndexReady(2, 0.0, false));
    EXPECT_FALSE(sequence.IsTheIndexReady(2, 0.0, true));
    EXPECT_FALSE(sequence.IsTheIndexReady(2, NAN, false));
    // The last snapshot is interpolated towards itself, and numbers behind it mean it.
    sequence.PrepareIndex(7, 0.5, false, true);
    EXPECT_TRUE(sequence.IsTheIndexReady(2, 0.5, false));
    EXPECT_EQ(sequence.GetSnap(2).GetBlock().GetVelocity()[0], 0.0F);
    EXPECT_EQ(sequence.GetDT(2, 1.0), 0.0);
    EXPECT_EQ(sequence.GetParticleNumber(12), 4);
}

TEST_F(CacheTest, WithoutWaitingOnlyTheNextStepIsStarted) {
    Write(2, 4);
    PDataSequence_cls& sequence = Open();
    int rounds = 0;
    while (!sequence.IsTheIndexReady(0, 0.5, false)) {
        sequence.PrepareIndex(0, 0.5, false, false);
        ASSERT_LT(++rounds, 10000);
        Clock_cls::Current().Sleep(1);
    }
    EXPECT_EQ(sequence.GetLoadedFrameNumber(), 2);
}

TEST_F(CacheTest, MissingFilesAreReadyAndNothingMovesTowardsThem) {
    Write(103, 2);
    std::filesystem::remove(mFolder.File(Name(1)));
    PDataSequence_cls& sequence = Open();
    ASSERT_EQ(sequence.GetSeqLength(), 103) << "the gap is stepped over";
    sequence.PrepareIndex(0, 0.5, false, true);
    EXPECT_TRUE(sequence.IsTheIndexReady(0, 0.5, false));
    EXPECT_EQ(sequence.GetDT(0, 0.5), 0.0);
    sequence.PrepareIndex(1, 0.5, false, true);
    EXPECT_TRUE(sequence.IsTheIndexReady(1, 0.5, false));
    EXPECT_EQ(sequence.GetParticleNumber(1), 0);

    // One that vanishes after it was found there.
    EXPECT_TRUE(sequence.GetSnap(5).IsFileValid());
    std::filesystem::remove(mFolder.File(Name(5)));
    sequence.PrepareIndex(5, 0.0, false, true);
    EXPECT_EQ(sequence.GetFilenameStatus(5), PDataSnap_cls::FileState::Unreadable);
    EXPECT_TRUE(sequence.IsTheIndexReady(5, 0.0, false));
}

TEST_F(CacheTest, NothingMovesTowardsAFileThatDoesNotSayItsTime) {
    const std::string whole = DefaultSnapshot(6.0F, 1, {SampleParticle_cls{}});
    for (const std::string& broken :
         {std::string(), whole.substr(0, 3), DefaultSnapshot(std::nanf(""), 1, {SampleParticle_cls{}}),
          DefaultSnapshot(INFINITY, 0, {})}) {
        Write(5, 1);
        mFolder.Write(Name(3), broken);
        PDataSequence_cls& sequence = Open();
        Load({1, 2, 3, 4});
        EXPECT_EQ(sequence.GetDT(1, 0.5), 1.0);
        EXPECT_EQ(sequence.GetDT(2, 0.5), 0.0) << broken.size() << " bytes";
        EXPECT_EQ(sequence.GetDT(3, 0.5), 0.0) << broken.size() << " bytes";
        EXPECT_FALSE(sequence.GetSnap(3).TakeProblems().empty()) << broken.size() << " bytes";
    }
}

TEST_F(CacheTest, EmptySequencesAnswerHarmlessly) {
    mControl = std::make_unique<PDataSeqCtrl_cls>(false);
    PDataSequence_cls& sequence = mControl->GetActive();
    EXPECT_EQ(mControl->GetMemoryLimitMB(), 768);
    EXPECT_EQ(sequence.GetSeqLength(), 0);
    EXPECT_EQ(sequence.ClampIndexWithinRange(12), 12);
    EXPECT_EQ(sequence.GetUsedTotalMemoryMB(), 0);
    EXPECT_EQ(mControl->GetAverageMemoryMB(), -1);
    EXPECT_TRUE(sequence.IsTheIndexReady(0, 0.5, true));
    sequence.PrepareIndex(0, 0.5, true, true);
    mControl->CleanUpMemory(0, 1);
}

TEST_F(CacheTest, SnapshotsBetweenTheStepsOfPlaybackAreReleased) {
    struct Case {
        int step;
        std::set<int> kept;
    };
    Write(9, 1);
    Open();
    for (const Case& c : {Case{1, {0, 1, 2, 3, 4, 5, 6, 7, 8}}, Case{2, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
                          Case{3, {0, 1, 3, 4, 6, 7}}, Case{-5, {0, 1, 5, 6}}, Case{0, {0, 1, 5, 6}}}) {
        if (c.step != 0) Load({0, 1, 2, 3, 4, 5, 6, 7, 8});
        mControl->GetActive().ReleaseMemoryOutofStep(c.step);
        EXPECT_EQ(Loaded(), c.kept) << c.step;
    }
    Load({0, 1, 2, 3, 4, 5, 6, 7, 8});
    mControl->CleanUpMemory(3, 5);
    EXPECT_EQ(Loaded(), (std::set<int>{0, 1, 3, 4, 5, 6})) << "the one that is shown stays";
}

TEST_F(CacheTest, AnyNumberMeansSomeSnapshot) {
    struct Case {
        double position;
        int index;
        double fraction;
    };
    Write(9, 1);
    const PDataSequence_cls& sequence = Open();
    for (const Case& c : {Case{-1.0, 0, 0.0}, Case{3.25, 3, 0.25}, Case{7.5, 7, 0.5}, Case{8.0, 8, 0.0},
                          Case{8.5, 8, 0.0}, Case{1e300, 8, 0.0}, Case{-1e300, 0, 0.0},
                          Case{std::numeric_limits<double>::quiet_NaN(), 0, 0.0}}) {
        const auto place = sequence.GetPlace(c.position);
        EXPECT_EQ(place.index, c.index) << c.position;
        EXPECT_EQ(place.fraction, c.fraction) << c.position;
    }
    // Key frames mark snapshots of the three empty sequences too.
    for (const int index : {-1, 20000, INT32_MAX}) mControl->SetSnipping(index);
    mControl->ClearSnipping();
}

/// Looks at one frame for a while, as the window does when it has nothing else to do.
TEST_F(CacheTest, ReadingEndsUnderAnyLimitAndStep) {
    constexpr int kParticles = 19000;  // 1 MB by the fixed figures
    Write(12, kParticles);
    for (const int limit : {0, 2, 4, 100}) {
        for (const int frame : {0, 5, 50}) {
            for (const int increment : {1, -1}) {
                for (const int step : {1, 5}) {
                    const PDataSequence_cls& sequence = Open();
                    mControl->SetMemoryLimitMB(limit);
                    TimeCtrl_cls time;
                    time.SetMaxFrameNative(50);
                    ReadAll(time, wxString::Format("TimeAnimStep=%d\n", step));
                    time.SetPrefetchNative(3);
                    time.SetFrameNative(frame);
                    time.StartPlay(increment);
                    time.ProcStopPlaying();
                    const auto [index, fraction] = sequence.GetPlace(time.GetRemappedIndexDouble());
                    std::set<int> before;
                    for (int round = 0; round < 16; ++round) {
                        mControl->CleanUpMemory(index, time.GetSkippingStep());
                        before = Loaded();
                        mControl->PrepareIndex(index, fraction, false, true);
                        mControl->PrefetchNext(time);
                        if (GpCThreadReader.load()) PollUntil(GbThreadReaderFinished, 1);
                        ThreadFileReader_cls::Retire();
                    }
                    EXPECT_EQ(Loaded(), before) << "limit " << limit << ", frame " << frame << ", increment "
                                                << increment << ", step " << step;
                }
            }
        }
    }
}

TEST_F(CacheTest, TheSnapshotNeededLastIsReleasedFirst) {
    struct Case {
        const char* what;
        std::vector<int> loaded;
        std::vector<int> tagged;
        int current;
        int step;
        int released;  // -1: nothing can go
    };
    const Case cases[] = {
        {"far ahead", {0, 10, 19}, {}, 10, 1, 0},  // behind counts double: 20 against 9
        {"farther ahead", {8, 10, 19}, {}, 10, 1, 19},
        {"near ahead is kept", {10, 11, 12, 13}, {}, 10, 1, -1},
        {"just out of reach", {10, 14}, {}, 10, 1, 14},
        {"within three steps", {10, 14}, {}, 10, 2, -1},
        {"only the current one", {10}, {}, 10, 1, -1},
        {"tagged go last", {5, 10, 19}, {19}, 10, 1, 5},
        {"a far tag outweighs", {9, 10, 19}, {2}, 10, 1, 19},
        {"tagged ahead", {10, 19}, {19}, 10, 1, 19},
        {"tagged behind", {2, 10}, {2}, 10, 1, 2},
        {"tagged ahead against tagged behind", {8, 10, 15}, {8, 15}, 10, 1, 15},
        {"tagged behind against tagged ahead", {2, 10, 15}, {2, 15}, 10, 1, 2},
        {"first frame", {0, 9}, {}, 0, 1, 9},
    };
    Write(20, 1);
    for (const Case& c : cases) {
        PDataSequence_cls& sequence = Open();
        for (const int i : c.loaded) Load({i});
        for (const int i : c.tagged) sequence.SetSnipping(i);
        std::set<int> expected(c.loaded.begin(), c.loaded.end());
        expected.erase(c.released);
        EXPECT_EQ(sequence.ReleaseMemoryAStep(c.current, c.step), c.released >= 0) << c.what;
        EXPECT_EQ(Loaded(), expected) << c.what;
    }
}

TEST_F(CacheTest, ProblemsOfAFileAreTakenOnce) {
    mFolder.Write(Name(0), DefaultSnapshot(0, 5, {SampleParticle_cls{}}));
    PDataSequence_cls& sequence = Open();
    for (int round = 0; round < 2; ++round) {
        Load({0});
        EXPECT_EQ(sequence.GetSnap(0).TakeProblems().size(), round == 0 ? 1U : 0U);
        EXPECT_EQ(sequence.GetParticleNumber(0), 1);
        sequence.Clear(0, false);
    }
}

TEST_F(CacheTest, TheSequenceIsWrittenAndReadWithItsFile) {
    Write(3, 1);
    PDataSequence_cls& sequence = Open();
    const wxString text = mControl->Serialize();
    EXPECT_TRUE(text.StartsWith("DataSequence0=NONE\n" + mFolder.File(Name(0)) + "\nSEQ0TYPE0DrawType=0\n"))
        << text;

    PDataSeqCtrl_cls other(true);
    LineStream_cls stream(text.utf8_string());
    wxString line;
    while (stream.ReadLine(line)) other.ReadStrLine(stream, line);
    EXPECT_EQ(other.GetActive().GetSeqLength(), 3);
    EXPECT_EQ(other.Serialize(), text);
    sequence.Clear(PDataSequence_cls::kAll, true);
    EXPECT_EQ(sequence.GetSeqLength(), 0);
    EXPECT_EQ(sequence.GetFilename(0), "");
}

/// Plays forward, backward and by jumps through more snapshots than the limit holds, with reads under way.
TEST_F(CacheTest, PlayingUnderAMemoryLimitStaysBelowItAndShowsTheRightParticles) {
    constexpr int kSnapshots = 200;
    constexpr int kParticles = 19000;  // 1 MB by the fixed figures
    constexpr int kLimitMB = 5;
    Write(4, kParticles);
    for (int i = 4; i < kSnapshots; ++i) {
        std::filesystem::create_hard_link(mFolder.File(Name(i % 4)), mFolder.File(Name(i)));
    }
    mLoader.ReadStrLine("InterpolateType=1");
    PDataSequence_cls& sequence = Open();
    mControl->SetMemoryLimitMB(kLimitMB);
    ASSERT_EQ(sequence.GetSeqLength(), kSnapshots);

    std::mt19937 random(1);
    std::vector<int> road;
    for (int i = 0; i < 60; ++i) road.push_back(i);
    for (int i = 60; i > 20; --i) road.push_back(i);
    for (int i = 0; i < 60; ++i) road.push_back(static_cast<int>(random() % kSnapshots));
    for (const int index : road) {
        mControl->CleanUpMemory(index, 1);
        const bool within = mControl->GetUsedTotalMemoryMB() <= kLimitMB;
        EXPECT_TRUE(within || !sequence.ReleaseMemoryAStep(index, 1)) << mControl->GetUsedTotalMemoryMB();
        mControl->PrepareIndex(index, 0.5, false, true);
        ASSERT_TRUE(sequence.IsTheIndexReady(index, 0.5, false)) << index;
        const PDataBlock_cls& block = sequence.GetSnap(index).GetBlock();
        ASSERT_EQ(block.GetCount(), kParticles);
        EXPECT_EQ(block.GetPosition()[3 * (kParticles - 1)],
                  static_cast<float>(10 * (kParticles - 1) + index % 4));
        // The next ones are under way while this one is looked at.
        mControl->PrepareIndex(index + 2, 0.0, false, false);
    }
}

}  // namespace
