#include "data/clsInformation.h"

#include <array>

#include "data/clsDataLoader.h"
#include "data/clsPDataSeqCtrl.h"
#include "timeline/clsTimeCtrl.h"

std::vector<Information_cls::Row> Information_cls::GetDataRows() const {
    const PDataSequence_cls& data = mData.GetActive();
    if (data.GetSeqLength() == 0) return {{"Data", "none"}};
    std::vector<Row> rows;
    rows.push_back({"First file", data.GetFilename(0)});
    rows.push_back({"Snapshots", wxString::Format("%d", data.GetSeqLength())});
    rows.push_back({"Layout", mLoader.IsText() ? "text" : "binary"});
    rows.push_back({"Snapshots in memory", wxString::Format("%d", data.GetLoadedFrameNumber())});
    rows.push_back(
        {"Memory", wxString::Format("%d of %d MB", mData.GetUsedTotalMemoryMB(), mData.GetMemoryLimitMB())});
    if (const int average = mData.GetAverageMemoryMB(); average >= 0)
        rows.push_back({"Memory a snapshot", wxString::Format("%d MB", average)});
    return rows;
}

std::vector<Information_cls::Row> Information_cls::GetFrameRows() const {
    std::vector<Row> rows;
    rows.push_back({"Frame", wxString::Format("%d of %d", mTime.GetFrame(), mTime.GetMaxFrame())});
    const PDataSequence_cls& data = mData.GetActive();
    if (data.GetSeqLength() == 0) return rows;
    const double position = mTime.GetRemappedIndexDouble();
    const int index = data.GetPlace(position).index;
    rows.push_back({"Data position", wxString::Format("%.3f", position)});
    rows.push_back({"File", data.GetFilename(index)});
    const PDataSnap_cls& snap = data.GetSnap(index);
    if (snap.GetFileState() == PDataSnap_cls::FileState::Unreadable)
        rows.push_back({"State", "cannot be read"});
    if (snap.GetTime() != PDataSnap_cls::kNoTime)
        rows.push_back({"Time", wxString::Format("%.9g", snap.GetTime())});
    if (!snap.IsItLoaded()) return rows;

    const PDataBlock_cls& block = snap.GetBlock();
    std::array<int, 5> types{};
    for (int i = 0; i < block.GetCount(); ++i) {
        const size_t type = block.GetType()[i];
        if (type < types.size()) ++types[type];
    }
    rows.push_back({"Particles", wxString::Format("%d", block.GetCount())});
    for (size_t type = 0; type < types.size(); ++type) {
        if (types[type] > 0)
            rows.push_back({wxString::Format("  of type %zu", type), wxString::Format("%d", types[type])});
    }
    return rows;
}
