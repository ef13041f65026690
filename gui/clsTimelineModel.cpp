#include "gui/clsTimelineModel.h"

#include <algorithm>

int TimelineModel_cls::GetCurrentNumber() const {
    const auto& rows = mTree.GetRows();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [this](const auto& row) { return row.IsSame(mCurrent); });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

const TimelineTree_cls::Row* TimelineModel_cls::GetCurrentRow() const {
    return mTree.GetRow(GetCurrentNumber());
}

void TimelineModel_cls::SetCurrentRow(int number) {
    const TimelineTree_cls::Row* row = mTree.GetRow(number);
    mCurrent = row ? *row : TimelineTree_cls::Row();
}
