#pragma once

#include <vector>

#include "seam/clsEventSink.h"

/// Stands in for the main window of one test: records the events posted to it.
class RecordingSink_cls : public EventSink_cls {
  public:
    RecordingSink_cls() : mBefore(GpCEventSink.exchange(this)) {}
    ~RecordingSink_cls() override { GpCEventSink = mBefore; }
    RecordingSink_cls(const RecordingSink_cls&) = delete;
    RecordingSink_cls& operator=(const RecordingSink_cls&) = delete;

    void Post(int identifier) override { mPosted.push_back(identifier); }

    std::vector<int> mPosted;

  private:
    EventSink_cls* mBefore;
};
