#pragma once

#include <atomic>
#include <memory>
#include <optional>

#include "data/clsBodyReader.h"
#include "seam/clsJoinedThread.h"

class ThreadFileReader_cls;

/// The reader that runs, null when none does. Set when it is started; set to null by the reader as it ends or
/// by whoever waited for it.
extern std::atomic<ThreadFileReader_cls*> GpCThreadReader;
/// Set by the reader when the particles are complete.
extern std::atomic<bool> GbThreadReaderFinished;
/// Number of the snapshot that the reader works on; -1 when it has ended.
extern std::atomic<int> GThreadReaderIndex;

/// Reads the body of one snapshot file on a thread of its own. One reader runs at a time.
/// Owned by the class itself from StartReading() on, until the next one starts or the program ends.
/// Threads: made and started on the GUI thread. While it runs it alone touches the arrays, the report and the
/// count; what it wrote may be read after its loaded flag was read as set.
/// Failure: handed over in the report; the count is then what is there, and the loaded flag is set all the
/// same. A thread that cannot be created ends the program with a message.
class ThreadFileReader_cls : public JoinedThread_cls {
  public:
    ~ThreadFileReader_cls() override { Join(); }

    /// Where the reader puts what it found: at its end, the loaded flag last.
    struct Outcome {
        std::atomic<bool>* loaded = nullptr;
        std::atomic<int>* count = nullptr;
        BodyReport_cls* report = nullptr;
    };
    /// The file is opened before the read is started, so that it can not vanish in between.
    void SetParameters(const Outcome& outcome, const DataLoader_cls& loader, InputFile_cls file,
                       const ParticleTarget_cls& target);
    /// The same for a path. A file that cannot be opened ends the program: there is no way back from here.
    void SetParameters(const Outcome& outcome, const DataLoader_cls& loader, const wxString& path,
                       const ParticleTarget_cls& target);

    /// Registers the reader for the snapshot and starts it. False, and nothing done, while another runs.
    static bool StartReading(std::unique_ptr<ThreadFileReader_cls> reader, int snapshotIndex);
    /// Joins the last reader, through its last act, and registers none. Called by whoever waited for it to
    /// finish, and before the program ends.
    static void Retire();

  protected:
    ExitCode Entry() override;

  private:
    Outcome mOutcome;
    std::optional<BodyReader_cls> mReader;
    std::optional<InputFile_cls> mFile;
};
