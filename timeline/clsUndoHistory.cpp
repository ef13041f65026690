#include "timeline/clsUndoHistory.h"

#include <algorithm>

namespace {

bool Changes(const UndoHistory_cls::Entry& entry) {
    return entry.doCommand->ChangesProject() || entry.undoCommand->ChangesProject();
}

int DepthChange(int type) {
    if (type == CommandItem_cls::kBlockOpen) return 1;
    return type == CommandItem_cls::kBlockClose ? -1 : 0;
}

}  // namespace

bool UndoHistory_cls::ChangesProject(size_t one, size_t other) const {
    const auto [from, to] = std::minmax(one, other);
    return std::any_of(mEntries.begin() + static_cast<std::ptrdiff_t>(from),
                       mEntries.begin() + static_cast<std::ptrdiff_t>(to), Changes);
}

void UndoHistory_cls::Push(Entry entry) {
    DropRedo();
    mEntries.push_back(std::move(entry));
}

void UndoHistory_cls::DropRedo() {
    if (mSaved && *mSaved > mCursor) {
        if (IsModified()) {
            mSaved.reset();
        } else {
            mSaved = mCursor;
        }
    }
    mEntries.resize(mCursor);
}

void UndoHistory_cls::InsertDone(size_t i, Entry entry) {
    mEntries.insert(mEntries.begin() + static_cast<std::ptrdiff_t>(i), std::move(entry));
    ++mCursor;
    if (mSaved && *mSaved > i) ++*mSaved;
}

void UndoHistory_cls::Erase(size_t i) {
    const bool done = i < mCursor;
    if (mSaved) {
        const bool inSaved = i < *mSaved;
        if (done != inSaved && Changes(mEntries[i])) {
            mSaved.reset();
        } else if (inSaved) {
            --*mSaved;
        }
    }
    if (done) --mCursor;
    mEntries.erase(mEntries.begin() + static_cast<std::ptrdiff_t>(i));
}

void UndoHistory_cls::DropFront(size_t count) {
    if (mSaved && *mSaved < count) {
        if (ChangesProject(*mSaved, count)) {
            mSaved.reset();
        } else {
            mSaved = count;
        }
    }
    if (mSaved) *mSaved -= count;
    mCursor -= count;
    mEntries.erase(mEntries.begin(), mEntries.begin() + static_cast<std::ptrdiff_t>(count));
}

void UndoHistory_cls::Clear(bool saved) {
    mEntries.clear();
    mCursor = 0;
    mSaved = saved ? std::optional<size_t>(0) : std::nullopt;
}

size_t UndoHistory_cls::StepEnd(size_t begin) const {
    int depth = 0;
    for (size_t i = begin; i < mEntries.size(); ++i) {
        depth += DepthChange(GetType(i));
        if (depth <= 0) return i + 1;
    }
    return mEntries.size();
}

size_t UndoHistory_cls::StepBegin(size_t end, int depth) const {
    for (size_t i = end; i > 0; --i) {
        depth -= DepthChange(GetType(i - 1));
        if (depth <= 0) return i - 1;
    }
    return 0;
}

std::optional<size_t> UndoHistory_cls::FindPartner(size_t i) const {
    int depth = DepthChange(GetType(i));
    if (depth > 0) {
        for (size_t k = i + 1; k < mEntries.size(); ++k) {
            depth += DepthChange(GetType(k));
            if (depth == 0) return k;
        }
    } else if (depth < 0) {
        for (size_t k = i; k-- > 0;) {
            depth += DepthChange(GetType(k));
            if (depth == 0) return k;
        }
    }
    return std::nullopt;
}

wxString UndoHistory_cls::GetStepName(size_t begin, size_t end) const {
    for (size_t i = begin; i < end; ++i) {
        if (wxString name = mEntries[i].doCommand->GetName(); !name.empty()) return name;
    }
    return {};
}
