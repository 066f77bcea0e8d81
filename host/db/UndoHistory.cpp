#include "UndoHistory.h"

#include <algorithm>

namespace
{
using Kind = UndoEntry::Kind;

bool isView(const UndoEntry& entry)
{
    return entry.kind == Kind::step && (entry.name == L"ZOOM" || entry.name == L"PAN");
}
} // namespace

void UndoHistory::beginStep(const CString& name)
{
    if (mJournal.isHeld()) return;
    if (!mJournal.isEmpty()) pushStep();
    mName = name;
}

void UndoHistory::endStep()
{
    if (mJournal.isHeld()) return;
    if (mJournal.isEnabled()) pushStep();
    mName = mNameOutside;
}

void UndoHistory::separate(const CString& name)
{
    if (mJournal.isHeld()) return;
    if (!mJournal.isEmpty()) pushStep();
    mName = mNameOutside = name;
}

void UndoHistory::pushStep()
{
    UndoEntry entry{Kind::step, mName, mJournal.take()};
    if (!joinLastView(entry)) push(std::move(entry));
}

/// One step of several zooms in a row.
bool UndoHistory::joinLastView(UndoEntry& entry)
{
    if (!mCombinesViews || mDone.empty() || !isView(entry) || !isView(mDone.back())) return false;
    auto& segments = mDone.back().segments;
    std::move(entry.segments.begin(), entry.segments.end(), std::back_inserter(segments));
    mUndone.clear();
    return true;
}

void UndoHistory::push(UndoEntry entry)
{
    mUndone.clear();
    count(entry, 1);
    mDone.push_back(std::move(entry));
    if (mKeepsOnlyOne) dropOlder();
}

void UndoHistory::dropOlder()
{
    if (mDone.size() > 1) mDone.erase(mDone.begin(), mDone.end() - 1);
    mOpenGroups = mMarks = 0;
    for (const UndoEntry& entry : mDone)
        count(entry, 1);
}

void UndoHistory::setKeepsOnlyOne(bool one)
{
    mKeepsOnlyOne = one;
    if (one) dropOlder();
}

void UndoHistory::count(const UndoEntry& entry, int sign)
{
    if (entry.kind == Kind::mark) mMarks += sign;
    if (entry.kind == Kind::groupBegin) mOpenGroups += sign;
    if (entry.kind == Kind::groupEnd) mOpenGroups -= sign;
}

void UndoHistory::takeBack(Action& action, const Told& told)
{
    UndoEntry entry = std::move(mDone.back());
    mDone.pop_back();
    count(entry, -1);
    mJournal.revert(entry.segments);
    told(entry);
    action.push_back(std::move(entry));
}

bool UndoHistory::undoOnce(Action& action, const Told& told)
{
    if (mDone.empty()) return false;
    const int groups = mOpenGroups;
    do {
        takeBack(action, told);
    } while (mOpenGroups > groups && !mDone.empty()); // all of a group that has ended
    return true;
}

int UndoHistory::undo(int count, const Told& told)
{
    if (!mJournal.isEmpty()) pushStep();
    Action action;
    int undone = 0;
    while (undone < count && undoOnce(action, told))
        ++undone;
    if (!action.empty()) mUndone.push_back(std::move(action));
    return undone;
}

void UndoHistory::undoToMark(const Told& told)
{
    if (!mJournal.isEmpty()) pushStep();
    Action action;
    while (!mDone.empty()) {
        takeBack(action, told);
        if (action.back().kind == Kind::mark) break;
    }
    if (!action.empty()) mUndone.push_back(std::move(action));
}

int UndoHistory::redo(int count, const Told& told)
{
    if (!mJournal.isEmpty()) pushStep();
    int redone = 0;
    for (; redone < count && !mUndone.empty(); ++redone) {
        Action action = std::move(mUndone.back());
        mUndone.pop_back();
        std::for_each(action.rbegin(), action.rend(), [&](UndoEntry& entry) {
            mJournal.repeat(entry.segments);
            told(entry);
            this->count(entry, 1);
            mDone.push_back(std::move(entry));
        });
    }
    return redone;
}

void UndoHistory::addMark()
{
    if (!mJournal.isEmpty()) pushStep();
    push({Kind::mark, L"", {}});
}

void UndoHistory::beginGroup()
{
    if (!mJournal.isEmpty()) pushStep();
    endGroup();
    push({Kind::groupBegin, L"GROUP", {}});
}

bool UndoHistory::endGroup()
{
    if (!isGroupOpen()) return false;
    if (!mJournal.isEmpty()) pushStep();
    push({Kind::groupEnd, L"GROUP", {}});
    return true;
}

void UndoHistory::clear()
{
    mJournal.take();
    mDone.clear();
    mUndone.clear();
    mOpenGroups = mMarks = 0;
}

bool UndoHistory::keepsCopy(const std::function<bool(const AcDbObject&)>& test) const
{
    const auto inSegment = [&](const UndoSegment& segment) {
        return std::any_of(segment.edits.begin(), segment.edits.end(),
                           [&](const auto& edit) { return edit->copy() && test(*edit->copy()); });
    };
    const auto inEntry = [&](const UndoEntry& entry) {
        return std::any_of(entry.segments.begin(), entry.segments.end(), inSegment);
    };
    return std::any_of(mDone.begin(), mDone.end(), inEntry) ||
           std::any_of(mUndone.begin(), mUndone.end(), [&](const Action& action) {
               return std::any_of(action.begin(), action.end(), inEntry);
           });
}
