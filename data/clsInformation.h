#pragma once

#include <wx/string.h>

#include <vector>

class DataLoader_cls;
class PDataSeqCtrl_cls;
class TimeCtrl_cls;

/// What there is to know about the open data and the shown frame, as rows of a name and a value. Owned by
/// whoever shows it; what it looks at outlives it. Threads: GUI thread. Reads no file: what has not been read
/// is left out.
class Information_cls {
  public:
    struct Row {
        wxString name;
        wxString value;
    };

    Information_cls(const PDataSeqCtrl_cls& data, const DataLoader_cls& loader, const TimeCtrl_cls& time)
        : mData(data), mLoader(loader), mTime(time) {}

    std::vector<Row> GetDataRows() const;
    std::vector<Row> GetFrameRows() const;

  private:
    const PDataSeqCtrl_cls& mData;
    const DataLoader_cls& mLoader;
    const TimeCtrl_cls& mTime;
};
