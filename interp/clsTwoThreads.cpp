#include "interp/clsTwoThreads.h"

#include "seam/clsJoinedThread.h"
#include "seam/clsUserMessage.h"

namespace {

/// Arrays that do not fit into the processor's cache are worth a second thread.
constexpr size_t kTwoThreads = 2000000;

class BesideThread_cls final : public JoinedThread_cls {
  public:
    explicit BesideThread_cls(const std::function<void()>& work) : mWork(work) {}
    ~BesideThread_cls() override { Join(); }
    ExitCode Entry() override {
        mWork();
        return nullptr;
    }

  private:
    const std::function<void()>& mWork;
};

}  // namespace

void TwoThreads_cls::Run(const std::function<void()>& beside, const std::function<void()>& here) {
    BesideThread_cls thread(beside);
    if (!thread.Start()) MsgBoxExit("Can't create thread", "Error!");
    here();
}

void TwoThreads_cls::OverRange(size_t count, const std::function<void(size_t begin, size_t end)>& work) {
    if (count < kTwoThreads) return work(0, count);
    Run([&work, count] { work(0, count / 2); }, [&work, count] { work(count / 2, count); });
}
