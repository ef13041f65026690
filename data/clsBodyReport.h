#pragma once

#include <exception>
#include <new>
#include <string>

/// What the reading of one body came to; handed by the reader's threads to whoever waits for them.
struct BodyReport_cls {
    int mRecords = 0;      ///< records stored, from the first particle on without a gap
    int mBadRecords = 0;   ///< of these, records with a value that is missing, no number, or not finite
    std::string mFailure;  ///< why reading broke off, in words; empty also when the file just ends early
};

/// Does the work of a thread that no exception may leave. Returns why it broke off, empty when it did not.
template <class Work>
std::string WhyItFailed(const Work& work) {
    try {
        work();
        return {};
    } catch (const std::bad_alloc&) {
        return "not enough memory";
    } catch (const std::exception& failure) {
        return failure.what();
    }
}
