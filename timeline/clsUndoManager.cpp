#include "timeline/clsUndoManager.h"

#include <algorithm>

#include "timeline/clsComBlock.h"

UndoManager_cls GCUndoList;

void UndoManager_cls::PushNewCommand(Command doCommand, Command undoCommand) {
    if (!doCommand || !undoCommand) return;
    if (mRunning) {
        mNested = std::move(doCommand);
        return;
    }
    const bool strayClose = doCommand->GetCommandType() == CommandItem_cls::kBlockClose && mBlockDepth == 0;
    if (strayClose) return;
    mHistory.Push({std::move(doCommand), std::move(undoCommand)});
    Trim(1);
}

// Walking the list

/// Runs the command at the cursor and moves the cursor on. False when the walk must stop here: at the end of
/// the list, or because the command has cleared it.
bool UndoManager_cls::RunDo() {
    const size_t i = mHistory.GetCursor();
    mHistory.At(i).doCommand->Execute(false);
    if (mClearAfterRun) return false;
    mHistory.SetCursor(i + 1);
    return CanRedo();
}

/// The same backwards.
bool UndoManager_cls::RunUndo() {
    const size_t i = mHistory.GetCursor() - 1;
    mHistory.At(i).undoCommand->Execute(true);
    if (mClearAfterRun) return false;
    mHistory.SetCursor(i);
    return CanUndo();
}

/// Commands run only in here. Afterwards the list is whole again, whatever they did.
template <class Walk>
void UndoManager_cls::Run(const Walk& walk) {
    const size_t cursor = mHistory.GetCursor();
    const int blockDepth = mBlockDepth;
    const auto settle = [this] {
        mRunning = false;
        mNested.reset();
        if (std::exchange(mClearAfterRun, false)) Clear();
        DropLongStep();
    };
    mRunning = true;
    try {
        walk();
    } catch (...) {
        TakeBack(cursor, blockDepth);
        settle();
        throw;
    }
    settle();
}

/// After a failure: back to where the walk began. A command that fails here too is passed over, there is no
/// better state to be had.
void UndoManager_cls::TakeBack(size_t cursor, int blockDepth) {
    const auto tryToRun = [](CommandItem_cls& command, bool undo) {
        try {
            command.Execute(undo);
        } catch (...) {
            return;
        }
    };
    for (; mHistory.GetCursor() > cursor; mHistory.SetCursor(mHistory.GetCursor() - 1))
        tryToRun(*mHistory.At(mHistory.GetCursor() - 1).undoCommand, true);
    for (; mHistory.GetCursor() < cursor; mHistory.SetCursor(mHistory.GetCursor() + 1))
        tryToRun(*mHistory.At(mHistory.GetCursor()).doCommand, false);
    mBlockDepth = blockDepth;
}

void UndoManager_cls::ExecCurrent() {
    if (mRunning) {
        if (const Command nested = std::move(mNested)) nested->Execute(false);
        return;
    }
    if (!CanRedo()) return;
    Run([this] {
        while (RunDo() && mBlockDepth > 0) continue;
    });
    if (mBlockDepth == 0) ExecUpdate();
}

void UndoManager_cls::UndoCurrent() {
    if (mRunning) return;
    EndDrag();
    while (mBlockDepth > 0) CloseBlock();
    if (!CanUndo()) return;
    Run([this] {
        while (RunUndo() && mBlockDepth > 0) continue;
        // No block is open before the first entry, even if markers were missing.
        if (!CanUndo()) mBlockDepth = 0;
    });
    ExecUpdate();
}

void UndoManager_cls::SkipCurrent() {
    if (mRunning || !CanRedo()) return;
    do {
        const size_t i = mHistory.GetCursor();
        CommandItem_cls& command = *mHistory.At(i).doCommand;
        // Markers change nothing but the depth, which must be right behind the skipped entries too.
        if (command.GetCommandType() == CommandItem_cls::kOrdinary) {
            command.UpdateBit();
        } else {
            command.Execute(false);
        }
        mHistory.SetCursor(i + 1);
    } while (mBlockDepth > 0 && CanRedo());
    DropLongStep();
    if (mBlockDepth == 0) ExecUpdate();
}

// Blocks

void UndoManager_cls::OpenBlock(const wxString& name) {
    if (mRunning) return;
    PushNewCommand(std::make_unique<ComBlockOpen>(name), std::make_unique<ComBlockClose>());
    ExecCurrent();
}

void UndoManager_cls::CloseBlock() {
    if (mRunning || mBlockDepth == 0) return;
    const size_t last = GetCursor() - 1;
    const bool empty = CanUndo() && mHistory.GetType(last) == CommandItem_cls::kBlockOpen;
    if (empty) {
        mHistory.SetCursor(last);
        mHistory.DropRedo();
        ChangeBlockDepth(-1);
        DropLongStep();
        return;
    }
    PushNewCommand(std::make_unique<ComBlockClose>(), std::make_unique<ComBlockOpen>());
    ExecCurrent();
}

void UndoManager_cls::ChangeBlockDepth(int change) {
    mBlockDepth = std::max(0, mBlockDepth + change);
}

// Taking entries out

void UndoManager_cls::Erase(size_t i) {
    if (mDrag && i < mDrag->start) --mDrag->start;
    mHistory.Erase(i);
}

void UndoManager_cls::RemoveItem(size_t i) {
    if (mRunning || i >= GetSize()) return;
    const std::optional<size_t> partner = mHistory.FindPartner(i);
    const bool openedNow = !partner && i < GetCursor() && mHistory.GetType(i) == CommandItem_cls::kBlockOpen;
    if (openedNow) ChangeBlockDepth(-1);
    if (partner) Erase(std::max(i, *partner));
    Erase(partner ? std::min(i, *partner) : i);
}

void UndoManager_cls::Clear() {
    if (mRunning) {
        mClearAfterRun = true;
        return;
    }
    mHistory.Clear(true);
    mBlockDepth = 0;
    mDrag.reset();
    mStepTooLong = false;
}

void UndoManager_cls::Trim(size_t pending) {
    while (GetSize() > kMaxEntries) {
        const bool dragIsFirst = mDrag && mDrag->start == 0;
        const size_t stepEnd = dragIsFirst ? GetSize() : mHistory.StepEnd(0);
        const size_t done = GetSize() - pending;
        if (stepEnd > done) mStepTooLong = IsStepUnderWay();
        const size_t dropped = std::min(stepEnd, done);
        mHistory.DropFront(dropped);
        if (mDrag) mDrag->start -= std::min(mDrag->start, dropped);
    }
}

/// Once a step that was too long has ended, nothing of it stays on the list.
void UndoManager_cls::DropLongStep() {
    if (!mStepTooLong || IsStepUnderWay()) return;
    mHistory.Clear(false);
    mStepTooLong = false;
}

// Drags

void UndoManager_cls::BeginDrag(const wxString& name) {
    if (mRunning) return;
    EndDrag();
    mDrag = Drag{GetCursor(), name};
}

void UndoManager_cls::RestartDrag() {
    if (mRunning || !mDrag || mStepTooLong || GetCursor() <= mDrag->start) return;
    Run([this] {
        while (RunUndo() && GetCursor() > mDrag->start) continue;
    });
    mHistory.DropRedo();
}

void UndoManager_cls::EndDrag() {
    if (mRunning || !mDrag) return;
    const Drag drag = *std::exchange(mDrag, std::nullopt);
    const bool severalSteps = drag.start < GetCursor() && mHistory.StepEnd(drag.start) < GetCursor();
    // In an open block the drag is a part of that step already.
    if (severalSteps && mBlockDepth == 0 && !mStepTooLong) {
        mHistory.InsertDone(drag.start,
                            {std::make_unique<ComBlockOpen>(drag.name), std::make_unique<ComBlockClose>()});
        mHistory.InsertDone(GetCursor(),
                            {std::make_unique<ComBlockClose>(), std::make_unique<ComBlockOpen>()});
        Trim(0);
    }
    DropLongStep();
}

void UndoManager_cls::CancelDrag() {
    RestartDrag();
    EndDrag();
    ExecUpdate();
}

// What the menus show

wxString UndoManager_cls::GetUndoName() const {
    return mHistory.GetStepName(mHistory.StepBegin(GetCursor(), mBlockDepth), GetCursor());
}

wxString UndoManager_cls::GetRedoName() const {
    return mHistory.GetStepName(GetCursor(), mHistory.StepEnd(GetCursor()));
}

int UndoManager_cls::GetUndoCommandType(size_t i) const {
    return i < GetSize() ? mHistory.At(i).undoCommand->GetCommandType() : -1;
}

int UndoManager_cls::GetRedoCommandType(size_t i) const {
    return i < GetSize() ? mHistory.At(i).doCommand->GetCommandType() : -1;
}

// Refreshing

int UndoManager_cls::AddObserver(Observer observer) {
    mObservers.emplace_back(++mNextObserver, std::move(observer));
    return mNextObserver;
}

void UndoManager_cls::RemoveObserver(int number) {
    std::erase_if(mObservers, [number](const auto& entry) { return entry.first == number; });
}

void UndoManager_cls::ExecUpdate() {
    if (mRunning || mPendingUpdates == 0) return;
    const std::uint64_t bits = std::exchange(mPendingUpdates, 0);
    // Observers may come and go while they are called.
    const auto observers = mObservers;
    for (const auto& [number, observer] : observers) {
        const auto same = [n = number](const auto& entry) { return entry.first == n; };
        if (std::any_of(mObservers.begin(), mObservers.end(), same)) observer(bits);
    }
}
