#include "seam/clsEventSink.h"

std::atomic<EventSink_cls*> GpCEventSink{nullptr};

void EventSink_cls::PostToFrame(int identifier) {
    if (EventSink_cls* sink = GpCEventSink.load(std::memory_order_acquire)) sink->Post(identifier);
}
